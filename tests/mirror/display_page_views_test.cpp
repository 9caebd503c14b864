// SPDX-License-Identifier: GPL-3.0-or-later
#include "display_page_test.h"

#include <QCoreApplication>
#include <QKeyEvent>

using namespace orb;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

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
    EXPECT_EQ(state(), "timer stop pause enlarge");
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

} // namespace
