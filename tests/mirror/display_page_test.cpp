// SPDX-License-Identifier: GPL-3.0-or-later
#include "display_page.h"

#include "page_test.h"

using namespace orb;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class DisplayPageTest : public PageTest {
protected:
    DisplayPageTest()
    {
        page.setParent(&form);
        run.enter([this] { page.dispStopClick(); });
        instrument.connected = true;
    }

    void play()
    {
        run.enter([this] { page.dispPlayClick(); });
    }

    /// The state of the mirror as the operator could tell it: the timer and the four buttons.
    QString state() const
    {
        const auto shown = [](const char* name, bool on) {
            return QLatin1String(on ? "" : "no ") + QLatin1String(name);
        };
        return QStringList{shown("timer", page.TimerDisplay.enabled()), shown("play", page.dispPlay.enabled()),
                           shown("stop", page.dispStop.enabled()), shown("pause", page.dispPause.enabled()),
                           shown("enlarge", page.dispEnlarge.enabled())}
            .join(", ");
    }

    Form form{run};
    DisplayPage page{clock, dialogs, paths, instrument};
};

const QString idle = "no timer, play, no stop, no pause, no enlarge";
const QString running = "timer, no play, stop, pause, enlarge";

TEST_F(DisplayPageTest, PlayWithoutALinkSaysSoAndChangesNoButton)
{
    instrument.connected = false;

    play();

    EXPECT_THAT(dialogs.shown,
                ElementsAre(Shown{"Please Connect ORB Device first!\r\nGoto Control Page and Connect ORB",
                                  Icon::Information, Buttons::Ok}));
    EXPECT_EQ(state(), idle);
}

TEST_F(DisplayPageTest, PlayAndStopSwitchTheButtonsAndTheirPictures)
{
    play();
    EXPECT_EQ(state(), running);
    EXPECT_EQ(page.dispStop.picture(), paths.inApplication("\\ICON\\B4STOP-A.JPG"));
    EXPECT_EQ(page.dispPause.picture(), paths.inApplication("\\ICON\\B2PAUSE.JPG"));

    press(page.dispStop);
    EXPECT_EQ(state(), idle);
    EXPECT_EQ(page.dispStop.picture(), paths.inApplication("\\ICON\\B4STOP.JPG"));
}

TEST_F(DisplayPageTest, ALinkThatFallsWhileTheMirrorRunsStopsTheTimerAloneAndSaysNothing)
{
    play();
    instrument.connected = false;

    clock.advance(500);

    EXPECT_EQ(state(), "no timer, no play, stop, pause, enlarge");
    EXPECT_THAT(dialogs.shown, IsEmpty());
}

TEST_F(DisplayPageTest, AScreenThatCanNotBeGrabbedLeavesThePictureAndTheTimerGoesOn)
{
    run.enter([this] { page.Image1.setPicture(paths.inApplication("\\OrbEmpty.jpg")); });
    const QImage before = page.Image1.pixmap().toImage();
    play();

    clock.advance(1500);

    EXPECT_EQ(instrument.calls, (std::vector<QString>{"GrabScreen", "GrabScreen", "GrabScreen"}));
    EXPECT_EQ(page.Image1.pixmap().toImage(), before);
    EXPECT_EQ(state(), running);
}

TEST_F(DisplayPageTest, TheSlowLinkHasALongerPeriod)
{
    instrument.linkType = 1;
    play();

    clock.advance(1999);
    EXPECT_THAT(instrument.calls, IsEmpty());
    clock.advance(1);
    EXPECT_THAT(instrument.calls, ElementsAre("GrabScreen"));
}

TEST_F(DisplayPageTest, AStopFromPauseKeepsThePausedPicture)
{
    play();
    run.enter([this] { page.dispPauseClick(); });
    EXPECT_EQ(state(), "no timer, no play, stop, pause, enlarge");

    press(page.dispStop);

    EXPECT_EQ(page.dispPause.picture(), paths.inApplication("\\icon\\B2PAUSE2.JPG"));
    EXPECT_EQ(state(), idle);
}

} // namespace
