// SPDX-License-Identifier: GPL-3.0-or-later
#include "link_kind.h"
#include "recorded_exit.h"
#include "serial_address.h"
#include "tcp_address.h"
#include "virtual_clock.h"

#include <gmock/gmock.h>

namespace orb {

namespace {

QString resourceOf(const char* typed)
{
    const auto address = readTcpAddress(QString::fromUtf8(typed));
    return address ? address->resourceName() : QStringLiteral("none");
}

} // namespace

TEST(TcpAddress, IsReadFromWhatOperatorsType)
{
    EXPECT_EQ(resourceOf("192.168.0.7"), "TCPIP0::192.168.0.7::5025::SOCKET");
    EXPECT_EQ(resourceOf("  load-3.lab:5026 "), "TCPIP0::load-3.lab::5026::SOCKET");
    EXPECT_EQ(resourceOf("localhost:65535"), "TCPIP0::localhost::65535::SOCKET");
    EXPECT_EQ(resourceOf("::1"), "TCPIP0::[::1]::5025::SOCKET");
    EXPECT_EQ(resourceOf("[fe80::1]:1"), "TCPIP0::[fe80::1]::1::SOCKET");
    EXPECT_EQ(resourceOf("[::1]"), "TCPIP0::[::1]::5025::SOCKET");
    EXPECT_EQ(resourceOf("TCPIP0::192.168.0.7::5025::SOCKET"), "TCPIP0::192.168.0.7::5025::SOCKET");
    EXPECT_EQ(resourceOf("tcpip::load::99::socket"), "TCPIP0::load::99::SOCKET");
    EXPECT_EQ(resourceOf("TCPIP0::[::1]::5025::SOCKET"), "TCPIP0::[::1]::5025::SOCKET");
}

TEST(TcpAddress, IsNoneOfAnythingElse)
{
    for (const char* typed : {"",
                              " ",
                              ":",
                              ":5025",
                              "host:",
                              "host:0",
                              "host:65536",
                              "host:-1",
                              "host:5 25",
                              "host:5025x",
                              "host:000005025",
                              "two words",
                              "a/b",
                              "a@b",
                              "host;rm",
                              "[::1",
                              "::1]:5",
                              "[host]:5",
                              "1:2:3",
                              "TCPIP0::::5025::SOCKET",
                              "TCPIP0::host::0::SOCKET",
                              "SIM::INSTR",
                              "\x01",
                              "%1"})
        EXPECT_EQ(resourceOf(typed), "none") << typed;
    EXPECT_EQ(readTcpAddress(QString(254, QLatin1Char('a'))), std::nullopt);
}

TEST(TcpAddress, IsShownAsItIsTyped)
{
    EXPECT_EQ((TcpAddress{QStringLiteral("host"), 5025}).shown(), "host:5025");
    EXPECT_EQ((TcpAddress{QStringLiteral("::1"), 7}).shown(), "[::1]:7");
}

TEST(SerialAddressTest, AnAddressIsReadFromWhatOperatorsType)
{
    const auto resourceOfLine = [](const char* typed) {
        const auto address = readSerialAddress(QString::fromUtf8(typed));
        return address ? address->resourceName() : QStringLiteral("none");
    };
    EXPECT_EQ(resourceOfLine(" /dev/ttyUSB0 "), "ASRL/dev/ttyUSB0::INSTR");
    EXPECT_EQ(resourceOfLine("ttyACM1"), "ASRL/dev/ttyACM1::INSTR");
    EXPECT_EQ(resourceOfLine("/dev/pts/3"), "ASRL/dev/pts/3::INSTR");
    EXPECT_EQ(resourceOfLine("com12"), "ASRLCOM12::INSTR");
    EXPECT_EQ(resourceOfLine("asrl/dev/ttyUSB0::instr"), "ASRL/dev/ttyUSB0::INSTR");
    EXPECT_EQ(resourceOfLine("ASRL/dev/ttyUSB0"), "ASRL/dev/ttyUSB0::INSTR");
    EXPECT_EQ(resourceOfLine("ASRLcom3::INSTR"), "ASRLCOM3::INSTR");
    EXPECT_EQ(resourceOfLine("ASRL2::INSTR"), "ASRL/dev/ttyS1::INSTR");
    for (const char* typed : {"", "/", "/dev/", "dev/ttyS0", "/dev/tty S0", "load", "192.168.0.7", "COM", "COM1234",
                              "ASRL", "ASRL0::INSTR", "ASRL257", "ASRL-1", "ASRL::INSTR", "/dev/a::b", "SIM::INSTR"})
        EXPECT_EQ(resourceOfLine(typed), "none") << typed;
    EXPECT_EQ(readSerialAddress(QLatin1Char('/') + QString(200, QLatin1Char('a'))), std::nullopt);
}

TEST(LinkKinds, ClaimTheirOwnResourceNamesAlone)
{
    RecordedExit processExit;
    orb::Run run(processExit);
    VirtualClock clock(run);
    const auto kinds = standardLinkKinds(clock);
    const auto titleOf = [&](const char* resourceName) {
        const LinkKind* kind = kindOf(kinds, QString::fromLatin1(resourceName));
        return kind != nullptr ? kind->title : QStringLiteral("none");
    };
    EXPECT_EQ(titleOf("SIM::INSTR"), "Simulated instrument");
    EXPECT_EQ(titleOf("TCPIP0::host::5025::SOCKET"), "Network (TCP)");
    EXPECT_EQ(titleOf("host"), "none"); // typed, not a resource name
    EXPECT_EQ(titleOf(""), "none");
    EXPECT_EQ(titleOf("ASRL/dev/ttyUSB0::INSTR"), "Serial line");
    EXPECT_EQ(titleOf("USB0::0x12AB::0x0001::SN-7::INSTR"), "USB (USBTMC)");
    EXPECT_EQ(titleOf("ASRL1::INSTR"), "none"); // read, but not written like this
}

} // namespace orb
