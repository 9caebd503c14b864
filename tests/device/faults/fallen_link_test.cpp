// SPDX-License-Identifier: GPL-3.0-or-later
// A link that falls while the Control page is shown, over every kind of link.
#include "channel_card.h"
#include "faulty_control.h"

namespace orb {

class FallenLinkTest : public testing::TestWithParam<LinkName> {
protected:
    /// The far end closes the link when the page asks for its readings the fourth time.
    FaultyControl row{GetParam(), "4 \":FETC:ALLV?;*\" closed\n"};
    DeviceControl& control() { return *row.control; }

    /// Lets the page tick until the condition holds. Whether it came to hold.
    bool becomes(const std::function<bool()>& condition)
    {
        QElapsedTimer timer;
        timer.start();
        for (; !condition() && timer.elapsed() < Pace::generousMs; QThread::usleep(200))
            row.clock.advance(10);
        return condition();
    }
    std::string shown()
    {
        const QString page = control().controlPage.cards.empty()
                                 ? QStringLiteral("no cards")
                                 : control().controlPage.cards.at(0)->lblState.caption();
        return (control().lblLink.caption() + QStringLiteral(" | ") + page + QStringLiteral(" | ") +
                control().allOffBar.lblLink.caption() + QStringLiteral(" | ") + control().allOffBar.lblInputs.caption())
            .toStdString();
    }
    void showPage()
    {
        control().ShowControlPage();
        ASSERT_TRUE(becomes([&] {
            return !control().controlPage.cards.empty() &&
                   control().controlPage.cards.at(0)->lblState.caption() == "ON";
        }));
    }
};

TEST_P(FallenLinkTest, TheFallShowsAtOnceAndReconnectBringsTheLinkBackAndSwitchesNoInput)
{
    ASSERT_TRUE(row.connect());
    row.link->execute(":LOAD1 ON");
    const std::string inputs = row.link->execute(":LOAD:ALL?");
    ASSERT_EQ(inputs, "1,0,0,0,0,0,0,0");
    showPage();

    ASSERT_TRUE(becomes([&] { return !control().IsConnected(); }));
    row.clock.advance(50); // one tick
    EXPECT_THAT(shown(), testing::HasSubstr("| no cards | Not connected | Link lost"));
    EXPECT_THAT(control().connectPage.lblStatus.caption().toStdString(), testing::HasSubstr("link"));
    EXPECT_EQ(row.link->execute(":LOAD:ALL?"), inputs);

    row.link->restore();
    control().Reconnect();
    ASSERT_TRUE(control().IsConnected());
    showPage();
    EXPECT_THAT(shown(), testing::HasSubstr("| ON | Faulty |"));
    row.clock.advance(5000);
    EXPECT_EQ(row.link->execute(":LOAD:ALL?"), inputs) << "nothing switches an input, on or off";
}

TEST_P(FallenLinkTest, AnInputThatWasSwitchedOffWhileTheLinkWasDownStaysOff)
{
    ASSERT_TRUE(row.connect());
    row.link->execute(":LOAD1 ON");
    showPage();
    ASSERT_TRUE(becomes([&] { return !control().IsConnected(); }));
    row.link->execute(":LOAD1 OFF");

    row.link->restore();
    control().Reconnect();
    ASSERT_TRUE(control().IsConnected());
    control().ShowControlPage();
    ASSERT_TRUE(becomes([&] {
        return !control().controlPage.cards.empty() && control().controlPage.cards.at(0)->lblState.caption() == "OFF";
    }));
    row.clock.advance(5000);
    EXPECT_EQ(row.link->execute(":LOAD:ALL?"), "0,0,0,0,0,0,0,0");
}

INSTANTIATE_TEST_SUITE_P(AllLinks, FallenLinkTest, testing::ValuesIn(links),
                         [](const auto& tested) { return linkNames[static_cast<int>(tested.param)]; });

} // namespace orb
