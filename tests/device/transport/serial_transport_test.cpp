// SPDX-License-Identifier: GPL-3.0-or-later
#include "serial_transport.h"

#include "serial_line.h"
#include "tcp_control.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <fcntl.h>
#include <unistd.h>

namespace orb {

namespace {

std::string echo(const std::string& line)
{
    return line + '\n';
}

/// Reads until a line has come.
QByteArray readLine(Transport& transport)
{
    QByteArray bytes;
    while (!bytes.endsWith('\n') && transport.waitReadable(generousMs))
        bytes += transport.read();
    return bytes;
}

} // namespace

TEST(SerialTransportTest, ALineOpensAtOnceAndCarriesBothWaysWithoutAnEventLoop)
{
    SerialLine line(echo);
    SerialTransport transport({line.device()}, {});
    transport.begin();
    ASSERT_EQ(transport.state(), Transport::State::Open);

    EXPECT_TRUE(transport.write("*IDN?\n"));
    EXPECT_TRUE(transport.flush(generousMs));

    EXPECT_EQ(readLine(transport), "*IDN?\n");
    EXPECT_EQ(transport.read(), "");
    EXPECT_FALSE(transport.waitReadable(0));
    EXPECT_EQ(transport.state(), Transport::State::Open); // a wait without a byte is no break
}

TEST(SerialTransportTest, ALineHasItsSettings)
{
    SerialLine line(echo);
    SerialTransport transport({line.device()}, {57600, QSerialPort::Data7, QSerialPort::EvenParity,
                                                QSerialPort::TwoStop, QSerialPort::SoftwareControl});
    ASSERT_TRUE(transport.open(0));

    const termios settings = line.settings();

    EXPECT_EQ(::cfgetospeed(&settings), static_cast<speed_t>(B57600));
    EXPECT_NE(settings.c_cflag & CSTOPB, 0U);
    EXPECT_NE(settings.c_iflag & IXON, 0U);
}

TEST(SerialTransportTest, WhatCameBeforeTheOpeningIsDropped)
{
    SerialLine line(echo);
    const int other = ::open(line.device().toLocal8Bit().constData(), O_RDWR | O_NOCTTY);
    line.say("left over\n");
    SerialTransport transport({line.device()}, {});
    ASSERT_TRUE(transport.open(0));
    ::close(other);

    transport.write("new\n");

    EXPECT_EQ(readLine(transport), "new\n");
}

TEST(SerialTransportTest, AMissingDeviceIsReported)
{
    SerialTransport transport({QStringLiteral("/dev/no-such-line")}, {});
    EXPECT_FALSE(transport.open(0));
    EXPECT_EQ(transport.state(), Transport::State::Closed);
    EXPECT_EQ(transport.error(), LinkError::NoDevice);
}

TEST(SerialTransportTest, AFileIsNoLine)
{
    QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("file")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    SerialTransport transport({file.fileName()}, {});
    EXPECT_FALSE(transport.open(0));
    EXPECT_EQ(transport.state(), Transport::State::Closed);
}

TEST(SerialTransportTest, ALineThatIsPulledEndsTheLink)
{
    SerialLine line(echo);
    SerialTransport transport({line.device()}, {});
    ASSERT_TRUE(transport.open(0));
    transport.write("a\n");
    ASSERT_EQ(readLine(transport), "a\n");

    line.unplug();

    while (transport.waitReadable(generousMs))
        EXPECT_EQ(transport.read(), "");
    EXPECT_EQ(transport.state(), Transport::State::Closed);
    EXPECT_EQ(transport.error(), LinkError::Broken);
    EXPECT_FALSE(transport.write("b\n"));
}

TEST(SerialTransportTest, AnInstrumentThatReadsNothingEndsTheLink)
{
    SerialLine line([](const std::string&) {
        ::usleep(100);
        return std::string();
    });
    SerialTransport transport({line.device()}, {});
    ASSERT_TRUE(transport.open(0));
    int writes = 0;
    while (transport.write(QByteArray(32 * 1024, 'x')))
        ASSERT_LT(++writes, 1000);
    EXPECT_EQ(transport.error(), LinkError::Broken);
}

TEST(SerialTransportTest, AClosedLinkHasNoError)
{
    SerialLine line(echo);
    SerialTransport transport({line.device()}, {});
    ASSERT_TRUE(transport.open(0));
    transport.close();
    EXPECT_EQ(transport.state(), Transport::State::Closed);
    EXPECT_EQ(transport.error(), LinkError::None);
    EXPECT_FALSE(transport.write("b\n"));
    EXPECT_EQ(transport.read(), "");
}

} // namespace orb
