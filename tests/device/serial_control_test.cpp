// SPDX-License-Identifier: GPL-3.0-or-later
#include "serial_line.h"
#include "simulated_instrument.h"
#include "tcp_control.h"

namespace orb {

/// The control over a serial line, at whose other end is the simulated instrument.
class SerialControlTest : public TcpControlTest {
protected:
    bool connectOver(const QString& device)
    {
        pressConnect(device, QStringLiteral("Serial line"));
        waitUntil([&] { return page().cmdConnect.enabled() || page().cmdDisconnect.enabled(); });
        return control.IsConnected();
    }

    SimulatedInstrument instrument{defaultConfiguration(8)};
    SerialLine line{[this](const std::string& message) {
        const std::string answer = instrument.execute(message);
        return answer.empty() ? answer : answer + '\n';
    }};
};

TEST_F(SerialControlTest, AnInstrumentIsWorkedOverASerialLineAsOverAnyOtherLink)
{
    ASSERT_TRUE(connectOver(line.device())) << status();
    EXPECT_EQ(control.LinkType(), 1);
    EXPECT_EQ(control.ChannelCount(), 8);

    EXPECT_TRUE(isVoltages(ask(":FETC:ALLV?")));
    EXPECT_TRUE(isCurrents(ask(":FETC:ALLC?")));
    EXPECT_EQ(page().lblResource.caption(), QStringLiteral("ASRL%1::INSTR").arg(line.device()));
}

TEST_F(SerialControlTest, TheLineIsOpenedWithTheChosenSettings)
{
    control.ShowConnectPage();
    pick(page().cmbKind, QStringLiteral("Serial line"));
    pick(page().cmbOption[0], QStringLiteral("57600"));
    pick(page().cmbOption[3], QStringLiteral("2"));
    pick(page().cmbOption[4], QStringLiteral("XON/XOFF"));
    page().cmbAddress.setText(line.device());
    press(page().cmdConnect);
    ASSERT_TRUE(waitUntil([&] { return control.IsConnected(); })) << status();

    const termios used = line.settings();

    EXPECT_EQ(::cfgetospeed(&used), static_cast<speed_t>(B57600));
    EXPECT_NE(used.c_cflag & CSTOPB, 0U);
    EXPECT_NE(used.c_iflag & IXON, 0U);
}

TEST_F(SerialControlTest, AMissingDeviceIsReported)
{
    EXPECT_FALSE(connectOver(QStringLiteral("/dev/no-such-line")));
    EXPECT_EQ(status(), "There is no /dev/no-such-line on this machine. Is the cable plugged in?");
}

TEST_F(SerialControlTest, APulledCableIsNoticed)
{
    ASSERT_TRUE(connectOver(line.device())) << status();

    line.unplug();

    EXPECT_TRUE(waitUntil([&] { return !control.IsConnected(); }));
    EXPECT_EQ(control.Reply(), "");
}

} // namespace orb
