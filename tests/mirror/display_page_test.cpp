// SPDX-License-Identifier: GPL-3.0-or-later
#include "display_page_test.h"

#include <QCoreApplication>
#include <QDir>
#include <QMouseEvent>

using namespace orb;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

const QString idle = "play";
const QString running = "timer stop pause enlarge";
const QString paused = "stop pause enlarge"; // and the same when the link is lost

TEST_F(DisplayPageTest, EveryControlHasItsTextAndState)
{
    DisplayPage fresh(clock, dialogs, paths, instrument, bFullScrMode);
    QStringList rows{fresh.caption()};
    const auto add = [&](const char* name, const auto& control) {
        rows << QStringLiteral("%1|%2|%3|%4 %5 %6 %7")
                    .arg(name, control.visible() ? "" : "hidden", control.enabled() ? "" : "disabled")
                    .arg(control.leftTwips())
                    .arg(control.topTwips())
                    .arg(control.widthTwips())
                    .arg(control.heightTwips());
    };
    add("page", fresh);
    add("Image2", fresh.Image2);
    add("Picture1", fresh.Picture1);
    add("Image1", fresh.Image1);
    add("dispPlay", fresh.dispPlay);
    add("dispStop", fresh.dispStop);
    add("dispPause", fresh.dispPause);
    add("dispRec", fresh.dispRec);
    add("dispSave", fresh.dispSave);
    add("dispEnlarge", fresh.dispEnlarge);
    for (const OptionButton* option : {&fresh.optDispDev, &fresh.optDispFull})
        rows << QStringList{option->caption(), option->visible() ? "" : "hidden", option->enabled() ? "" : "disabled",
                            option->value() ? "selected" : ""}
                    .join('|');
    rows << QStringLiteral("barRec|%1").arg(fresh.barRec.visible() ? "" : "hidden");
    rows << QStringLiteral("TimerDisplay %1 %2").arg(fresh.TimerDisplay.enabled()).arg(fresh.TimerDisplay.interval());

    const QStringList expected{"DISPLAY",
                               "page|||0 0 7455 9555",
                               "Image2|||120 300 5700 9180",
                               "Picture1|||540 840 4815 3615",
                               "Image1|||0 0 4815 3615",
                               "dispPlay|||5970 300 1335 975",
                               "dispStop|||5970 1395 1335 975",
                               "dispPause|hidden||5970 2490 1335 975",
                               "dispRec|hidden|disabled|5970 3585 1335 975",
                               "dispSave|||5970 4680 1335 975",
                               "dispEnlarge||disabled|5970 5775 1335 975",
                               "Device Screen|hidden||selected",
                               "Full Screen|hidden|disabled|",
                               "barRec|hidden",
                               "TimerDisplay 1 200"};
    EXPECT_EQ(rows, expected);
    EXPECT_EQ(fresh.Picture1.tag(), "");
}

TEST_F(DisplayPageTest, BeforeTheFirstPictureTheBoxHoldsABlackOneOfTheSizeOfTheScreen)
{
    const QImage blank = page.Picture1.pixmap().toImage();
    EXPECT_EQ(blank.size(), QSize(320, 240));
    EXPECT_EQ(blank.pixelColor(319, 239), QColor(Qt::black));
}

TEST_F(DisplayPageTest, PlayWithoutALinkShowsItsMessageStopsTheTimerAndChangesNoButton)
{
    instrument.connected = false;
    page.TimerDisplay.setEnabled(true);
    journal.clear();

    click(&DisplayPage::dispPlayClick);

    EXPECT_THAT(journal.lines(),
                ElementsAre("read IsConnected False", "timer TimerDisplay off",
                            "message \"Please Connect ORB Device first!\\r\\nGoto Control Page and Connect ORB\" "
                            "information Ok"));
    EXPECT_EQ(state(), idle);
}

TEST_F(DisplayPageTest, PlayAndStopSwitchTheTimerTheButtonsAndTheirPictures)
{
    click(&DisplayPage::dispPlayClick);
    EXPECT_THAT(journal.linesWithout({"picture"}),
                ElementsAre("read IsConnected True", "read LinkType 0", "timer TimerDisplay on 500", "enable dispStop",
                            "enable dispEnlarge", "enable dispPause", "disable dispPlay"));
    EXPECT_EQ(page.dispStop.picture(), paths.inApplication("\\ICON\\B4STOP-A.JPG"));
    EXPECT_EQ(page.dispPause.picture(), paths.inApplication("\\ICON\\B2PAUSE.JPG"));
    journal.clear();

    press(page.dispStop);
    EXPECT_THAT(journal.linesWithout({"picture"}),
                ElementsAre("timer TimerDisplay off", "enable dispPlay", "disable dispPause", "disable dispStop",
                            "disable dispEnlarge"));
    EXPECT_EQ(page.dispStop.picture(), paths.inApplication("\\ICON\\B4STOP.JPG"));
    EXPECT_EQ(state(), idle);
}

TEST_F(DisplayPageTest, PlayGoesOnPastEveryFailingStep)
{
    QFile::remove(application.filePath("ICON"));
    click(&DisplayPage::dispPlayClick);
    EXPECT_EQ(state(), running);
    EXPECT_THAT(processExit.reports, IsEmpty());
}

TEST_F(DisplayPageTest, PlayCreatesTheStagingFolder)
{
    QDir(realPath(staging::folder)).removeRecursively();
    click(&DisplayPage::dispPlayClick);
    EXPECT_TRUE(folderExists(staging::folder));
}

TEST_F(DisplayPageTest, ALinkThatFallsWhileTheMirrorRunsStopsTheTimerOnlyAndShowsNothing)
{
    click(&DisplayPage::dispPlayClick);
    instrument.connected = false;

    clock.advance(500);

    EXPECT_EQ(state(), paused);
    EXPECT_THAT(dialogs.shown, IsEmpty());
    EXPECT_THAT(instrument.calls, IsEmpty());
}

TEST_F(DisplayPageTest, AScreenThatCanNotBeGrabbedLeavesThePictureAndTheTimerGoesOn)
{
    run.enter([this] { page.Image1.setPicture(paths.inApplication("\\OrbEmpty.jpg")); });
    const QImage before = page.Image1.pixmap().toImage();
    writeScreen(Qt::red);
    click(&DisplayPage::dispPlayClick);

    clock.advance(1500);

    EXPECT_THAT(instrument.calls, ElementsAre("GrabScreen", "GrabScreen", "GrabScreen"));
    EXPECT_EQ(page.Image1.pixmap().toImage(), before);
    EXPECT_EQ(page.Picture1.tag(), "");
    EXPECT_EQ(state(), running);
}

TEST_F(DisplayPageTest, AGrabbedScreenGoesByThePictureBoxToTheImage)
{
    writeScreen(Qt::green);
    instrument.screenGrabbed = true;
    click(&DisplayPage::dispPlayClick);

    clock.advance(500);

    EXPECT_EQ(page.Picture1.tag(), "c:\\temp\\ORB.bmp");
    EXPECT_EQ(page.Picture1.picture(), "c:\\temp\\ORB.bmp");
    EXPECT_EQ(page.Image1.pixmap().toImage().pixelColor(5, 5), QColor(Qt::green));
}

TEST_F(DisplayPageTest, AGrabbedScreenThatCanNotBeLoadedEndsTheProgram)
{
    QFile::remove(realPath(staging::screen));
    instrument.screenGrabbed = true;
    click(&DisplayPage::dispPlayClick);
    clock.advance(500);
    EXPECT_THAT(processExit.reports, ElementsAre("Run-time error '53':\n\nFile not found"));
}

TEST_F(DisplayPageTest, ALinkOfType1HasALongPeriod)
{
    instrument.linkType = 1;
    click(&DisplayPage::dispPlayClick);

    clock.advance(1999);
    EXPECT_THAT(instrument.calls, IsEmpty());
    clock.advance(1);
    EXPECT_THAT(instrument.calls, ElementsAre("GrabScreen"));
}

TEST_F(DisplayPageTest, PauseStopsAndRestartsTheTimerWithoutATestOfTheLink)
{
    click(&DisplayPage::dispPlayClick);
    instrument.connected = false;
    journal.clear();
    click(&DisplayPage::dispPauseClick);
    click(&DisplayPage::dispPauseClick);
    EXPECT_THAT(journal.lines(), ElementsAre("timer TimerDisplay off", "picture dispPause APP\\icon\\B2PAUSE2.JPG",
                                             "timer TimerDisplay on 500", "picture dispPause APP\\icon\\B2PAUSE.JPG"));
}

TEST_F(DisplayPageTest, AStopFromPauseKeepsThePausedPicture)
{
    click(&DisplayPage::dispPlayClick);
    click(&DisplayPage::dispPauseClick);
    EXPECT_EQ(state(), paused);

    press(page.dispStop);

    EXPECT_EQ(page.dispPause.picture(), paths.inApplication("\\icon\\B2PAUSE2.JPG"));
    EXPECT_EQ(state(), idle);
}

TEST_F(DisplayPageTest, ARefreshBlanksThePictureAndLetsPlayFollowTheLink)
{
    page.Image1.setPixmap({});
    instrument.connected = false;
    click(&DisplayPage::RefreshDisplayPage);
    EXPECT_EQ(page.Image1.picture(), paths.inApplication("\\OrbEmpty.jpg"));
    EXPECT_THAT(journal.linesOf({"read", "picture", "enable", "disable"}),
                ElementsAre("read IsConnected False", "picture dispPlay APP\\ICON\\B1RUNSTOP.jpg",
                            "read IsConnected False", "disable dispPlay"));
}

TEST_F(DisplayPageTest, OnALowScreenThePanelIsAsHighAsThePageAndItsKeysStayWhereTheyAreOnIt)
{
    std::vector<float> at;
    page.Image2.onMouseDown = [&](float x, float y) { at = {x, y}; };
    page.setVisible(true);
    page.resizeTwips(9285, 7590);
    form.resize(800, 600);
    form.show();
    QCoreApplication::processEvents();
    EXPECT_LE(page.Image2.geometry().bottom(), page.height());
    EXPECT_NEAR(1.0 * page.Image2.width() / page.Image2.height(), 5700.0 / 9180, 0.01);
    EXPECT_TRUE(page.Image2.geometry().contains(page.Picture1.geometry()));
    EXPECT_EQ(page.Image1.size(), page.Picture1.size());
    EXPECT_GT(page.dispPlay.x(), page.Image2.geometry().right());
    EXPECT_LT(page.dispEnlarge.geometry().bottom(), page.height());

    const QPointF middle = QRectF(page.Image2.rect()).center();
    QMouseEvent press(QEvent::MouseButtonPress, middle, page.Image2.mapToGlobal(middle), Qt::LeftButton, Qt::LeftButton,
                      Qt::NoModifier);
    QCoreApplication::sendEvent(&page.Image2, &press);
    ASSERT_EQ(at.size(), 2U);
    EXPECT_NEAR(at[0], 2850, 15);
    EXPECT_NEAR(at[1], 4590, 15);

    page.resizeTwips(9285, 12000);
    QCoreApplication::processEvents();
    EXPECT_EQ(page.Image2.geometry(), QRect(8, 20, 380, 612)) << "no larger than its design";
}

} // namespace
