// SPDX-License-Identifier: GPL-3.0-or-later
#include "display_page.h"

#include "page_test.h"

#include <QCoreApplication>
#include <QDir>
#include <QKeyEvent>

using namespace orb;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

/// The display page on a form after the start of the program, which has stopped the mirror, with the instrument connected.
class DisplayPageTest : public PageTest {
protected:
    DisplayPageTest()
    {
        page.setParent(&form);
        click(&DisplayPage::dispStopClick);
        instrument.connected = true;
        journal.watch(page.dispPlay, "dispPlay");
        journal.watch(page.dispStop, "dispStop");
        journal.watch(page.dispPause, "dispPause");
        journal.watch(page.dispEnlarge, "dispEnlarge");
        journal.watchTimer(page.TimerDisplay, "TimerDisplay");
        journal.clear();
    }

    void click(void (DisplayPage::*handler)())
    {
        run.enter([this, handler] { (page.*handler)(); });
    }

    /// Writes the file that the instrument's screen is fetched into.
    void writeScreen(const QColor& color) const
    {
        createFolder("c:\\temp");
        QPixmap screen(320, 240);
        screen.fill(color);
        ASSERT_TRUE(screen.save(realPath(staging::screen)));
    }

    /// The timer and the four buttons, as what is enabled.
    QString state() const
    {
        QStringList enabled;
        const std::initializer_list<std::pair<const char*, bool>> parts{{"timer", page.TimerDisplay.enabled()},
                                                                        {"play", page.dispPlay.enabled()},
                                                                        {"stop", page.dispStop.enabled()},
                                                                        {"pause", page.dispPause.enabled()},
                                                                        {"enlarge", page.dispEnlarge.enabled()}};
        for (const auto& [name, isEnabled] : parts)
            if (isEnabled)
                enabled << name;
        return enabled.join(' ');
    }

    Form form{run};
    bool bFullScrMode = false;
    DisplayPage page{clock, dialogs, paths, instrument, bFullScrMode};
};

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

// Saving and the full screen.

/// The page with a green picture of the mirror, which is still running.
class DisplayPageViewsTest : public DisplayPageTest {
protected:
    DisplayPageViewsTest()
    {
        instrument.screenGrabbed = true;
        click(&DisplayPage::dispPlayClick);
        nextScreen(Qt::green);
        journal.clear();
    }

    /// The instrument shows this color; a tick fetches it.
    void nextScreen(const QColor& color)
    {
        writeScreen(color);
        clock.advance(500);
    }

    static QColor colorOf(const Image& image) { return image.pixmap().toImage().pixelColor(5, 5); }
    QColor saved() const { return QImage(file()).pixelColor(5, 5); }
    QString file() const { return application.filePath("screen.bmp"); }

    void activateMainForm()
    {
        bFullScrMode = false; // what the main form does when it becomes the active window
    }

    void pressKey(int key)
    {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
        QCoreApplication::sendEvent(&*page.oFullScreen, &event);
    }
};

TEST_F(DisplayPageTest, SavingBeforeAnyPictureHasArrivedShowsNoDialog)
{
    click(&DisplayPage::RefreshDisplayPage); // the image has a picture, the box has none from the instrument
    journal.clear();
    press(page.dispSave);
    EXPECT_THAT(journal.lines(), IsEmpty());
}

TEST_F(DisplayPageViewsTest, SavingWithAnotherChoiceThanTheDevicesScreenShowsNoDialog)
{
    page.optDispFull.setValue(true);
    page.optDispDev.setValue(false);
    press(page.dispSave);
    EXPECT_THAT(dialogs.fileDialogs, IsEmpty());
}

TEST_F(DisplayPageViewsTest, TheSaveDialogHasItsFilterAndTheFolderOfTheProgramOnlyAtItsNextUse)
{
    dialogs.CommonDialog1 = {"before", "Log(*.scp)|*.scp", "title", ""};
    press(page.dispSave);
    press(page.dispSave);
    EXPECT_THAT(
        journal.lines(),
        ElementsAre("save directory \"before\" filter \"圖檔 (*.bmp;*.gif)|*.bmp;*.gif\" title \"title\" name \"\"",
                    "save directory \"APP\" filter \"圖檔 (*.bmp;*.gif)|*.bmp;*.gif\" title \"title\" name \"\""));
    EXPECT_THAT(processExit.reports, IsEmpty()) << "without a name nothing is saved";
}

TEST_F(DisplayPageViewsTest, ASavedPictureIsABitmapWhateverItsNameEndsIn)
{
    dialogs.files = {application.filePath("screen.gif")};
    press(page.dispSave);
    QFile saved(application.filePath("screen.gif"));
    ASSERT_TRUE(saved.open(QIODevice::ReadOnly));
    const QByteArray bytes = saved.readAll();
    EXPECT_TRUE(bytes.startsWith("BM"));
    const QImage image = QImage::fromData(bytes, "BMP");
    EXPECT_EQ(image.convertToFormat(QImage::Format_RGB32),
              page.Image1.pixmap().toImage().convertToFormat(QImage::Format_RGB32));
}

TEST_F(DisplayPageViewsTest, ACancelSavesUnderTheNameThatTheSharedDialogHolds)
{
    dialogs.CommonDialog1.fileName = file();
    dialogs.files = {std::nullopt};
    press(page.dispSave);
    EXPECT_EQ(saved(), QColor(Qt::green));
}

TEST_F(DisplayPageViewsTest, ThePictureOfTheMomentOfTheSaveIsSavedAndNotThatOfTheClick)
{
    dialogs.files = {file()};
    dialogs.onFileDialog = [&] { page.Image1.setPicture(paths.inApplication("\\OrbEmpty.jpg")); };
    press(page.dispSave);
    EXPECT_EQ(QImage(file()).size(), QSize(320, 240));
    EXPECT_NE(saved(), QColor(Qt::green));
}

TEST_F(DisplayPageViewsTest, AfterARefreshTheBlankPictureIsSaved)
{
    click(&DisplayPage::RefreshDisplayPage);
    const QImage blank(application.filePath("OrbEmpty.jpg"));
    dialogs.files = {file()};
    press(page.dispSave);
    EXPECT_EQ(QImage(file()).convertToFormat(QImage::Format_RGB32), blank.convertToFormat(QImage::Format_RGB32));
}

TEST_F(DisplayPageViewsTest, ASaveInFullScreenWritesTheOlderPicture)
{
    press(page.dispEnlarge);
    nextScreen(Qt::blue);
    dialogs.files = {file()};
    press(page.dispSave);
    EXPECT_EQ(saved(), QColor(Qt::green));
}

TEST_F(DisplayPageViewsTest, ASaveThatFailsEndsTheProgram)
{
    dialogs.files = {application.filePath("none/screen.bmp")};
    press(page.dispSave);
    EXPECT_THAT(processExit.reports, ElementsAre("Run-time error '76':\n\nPath not found"));
}

#ifdef Q_OS_LINUX
TEST_F(DisplayPageViewsTest, ASaveOnAFullDiskEndsTheProgram)
{
    dialogs.files = {"/dev/full"};
    press(page.dispSave);
    EXPECT_THAT(processExit.reports, ElementsAre("Run-time error '61':\n\nDisk full"));
}
#endif

TEST_F(DisplayPageViewsTest, ASaveWithoutAPictureOnTheMainFormEndsTheProgram)
{
    page.Image1.setPixmap({});
    dialogs.files = {file()};
    press(page.dispSave);
    EXPECT_THAT(processExit.reports, ElementsAre("Run-time error '380':\n\nInvalid property value"));
    EXPECT_FALSE(QFile::exists(file()));
}

TEST_F(DisplayPageViewsTest, TheRecordButtonDoesNothing)
{
    page.dispRec.setVisible(true);
    page.dispRec.setEnabled(true);
    journal.clear();
    press(page.dispRec);
    EXPECT_THAT(journal.lines(), IsEmpty());
}

TEST_F(DisplayPageViewsTest, InFullScreenTheNewPicturesGoToTheOtherFormAndThatOfTheMainFormStands)
{
    press(page.dispEnlarge);
    ASSERT_TRUE(page.oFullScreen && page.oFullScreen->isVisible());
    EXPECT_TRUE(bFullScrMode);
    nextScreen(Qt::blue);
    EXPECT_EQ(colorOf(page.oFullScreen->Image1), QColor(Qt::blue));
    EXPECT_EQ(colorOf(page.Image1), QColor(Qt::green));
    EXPECT_EQ(colorOf(page.Picture1), QColor(Qt::blue)) << "it goes on changing underneath";
    EXPECT_EQ(state(), running);
}

TEST_F(DisplayPageViewsTest, ATickInFullScreenModeCreatesTheFormAndLeavesItHidden)
{
    bFullScrMode = true;
    nextScreen(Qt::blue);
    ASSERT_TRUE(page.oFullScreen);
    EXPECT_FALSE(page.oFullScreen->isVisible());
    EXPECT_EQ(colorOf(page.oFullScreen->Image1), QColor(Qt::blue));
}

TEST_F(DisplayPageViewsTest, TheFirstTickAfterEscapeAndTheActivationOfTheMainFormPaintsIntoTheMainForm)
{
    press(page.dispEnlarge);
    nextScreen(Qt::blue);
    pressKey(Qt::Key_Escape);
    EXPECT_FALSE(page.oFullScreen->isVisible());
    nextScreen(Qt::red);
    EXPECT_EQ(colorOf(page.Image1), QColor(Qt::green)) << "the main form has not become active yet";
    activateMainForm();
    nextScreen(Qt::yellow);
    EXPECT_EQ(colorOf(page.Image1), QColor(Qt::yellow));
}

TEST_F(DisplayPageViewsTest, WhenTheMainFormBecomesActiveTheFullScreenFormStandsStillInFrontOfIt)
{
    press(page.dispEnlarge);
    nextScreen(Qt::blue);
    activateMainForm();
    nextScreen(Qt::red);
    EXPECT_TRUE(page.oFullScreen->isVisible());
    EXPECT_EQ(colorOf(page.oFullScreen->Image1), QColor(Qt::blue));
    EXPECT_EQ(colorOf(page.Image1), QColor(Qt::red));
}

TEST_F(DisplayPageViewsTest, ASecondFullScreenShowsTheSameFormWithItsLastPicture)
{
    press(page.dispEnlarge);
    const FormFullScreen* first = &*page.oFullScreen;
    nextScreen(Qt::blue);
    pressKey(Qt::Key_Escape);
    activateMainForm();
    nextScreen(Qt::red);
    press(page.dispEnlarge);
    EXPECT_EQ(&*page.oFullScreen, first);
    EXPECT_TRUE(page.oFullScreen->isVisible());
    EXPECT_EQ(colorOf(page.oFullScreen->Image1), QColor(Qt::blue));
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
