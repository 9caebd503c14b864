// SPDX-License-Identifier: GPL-3.0-or-later
#include "control_fixture.h"
#include "dark_palette.h"
#include "picture_button.h"
#include "press.h"

#include <QAccessible>
#include <QApplication>
#include <QDeadlineTimer>
#include <QDir>
#include <QStyle>
#include <QTemporaryDir>

using namespace orb;

namespace {

class PictureButtonTest : public FormTest {};

TEST_F(PictureButtonTest, APictureIsFoundInAnotherLetterCaseAndItsPathReadsBack)
{
    const QTemporaryDir folder;
    QDir(folder.path()).mkdir("ICON");
    QImage(4, 4, QImage::Format_RGB32).save(folder.filePath("ICON/B2PAUSE.JPG"));
    PictureButton button;

    button.setPicture(folder.path() + "\\icon\\b2pause.jpg");

    EXPECT_EQ(button.picture(), folder.path() + "\\icon\\b2pause.jpg");
    EXPECT_FALSE(button.icon().isNull());
}

TEST_F(PictureButtonTest, AMissingPictureIsFileNotFoundAndAFileThatIsNoneIsAnInvalidPicture)
{
    const QTemporaryDir folder;
    QFile file(folder.filePath("other.jpg"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("no picture");
    file.close();
    PictureButton button;

    EXPECT_EQ(failureOf([&] { button.setPicture(folder.path() + "\\none.jpg"); }), failure::FileNotFound);
    EXPECT_EQ(failureOf([&] { button.setPicture(folder.path() + "\\other.jpg"); }), failure::InvalidPicture);
    EXPECT_EQ(button.picture(), "");
}

TEST_F(PictureButtonTest, EnterAndReturnAndTheSpaceBarPressTheButton)
{
    int clicks = 0;
    PictureButton button;
    put(button).onClick = [&] { ++clicks; };

    for (const int key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space, Qt::Key_A})
        for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            QKeyEvent event(type, key, Qt::NoModifier);
            QCoreApplication::sendEvent(&button, &event);
        }

    EXPECT_EQ(clicks, 3);
}

TEST_F(PictureButtonTest, APictureStandsAboveTheCaptionOrAlone)
{
    const QTemporaryDir folder;
    ASSERT_TRUE(QImage(4, 4, QImage::Format_RGB32).save(folder.filePath("a.png")));
    PictureButton withCaption("Start"), without;
    EXPECT_EQ(withCaption.toolButtonStyle(), Qt::ToolButtonTextOnly);

    withCaption.setPicture(folder.filePath("a.png"));
    without.setPicture(folder.filePath("a.png"));
    EXPECT_EQ(withCaption.toolButtonStyle(), Qt::ToolButtonTextUnderIcon);
    EXPECT_EQ(without.toolButtonStyle(), Qt::ToolButtonIconOnly);

    withCaption.setPicture("");
    EXPECT_EQ(withCaption.toolButtonStyle(), Qt::ToolButtonTextOnly);
    EXPECT_TRUE(withCaption.icon().isNull());
    EXPECT_EQ(withCaption.picture(), "");
}

TEST_F(PictureButtonTest, ThePictureIsReadWhenItIsPainted)
{
    const QTemporaryDir folder;
    QImage red(8, 8, QImage::Format_RGB32);
    red.fill(Qt::red);
    ASSERT_TRUE(red.save(folder.filePath("a.png")));
    PictureButton button;
    button.setPicture(folder.filePath("a.png"));

    EXPECT_EQ(button.icon().pixmap(8, 8).toImage().pixelColor(4, 4), QColor(Qt::red));
}

TEST_F(PictureButtonTest, ACaptionOnTwoLinesIsNarrowerAndHigherAndReadsBackAsItWasSet)
{
    PictureButton button("Transfer Sequence to ORB");
    const QSize onOneLine = button.sizeHint();

    button.setOnTwoLines(true);

    EXPECT_EQ(button.caption(), "Transfer Sequence to ORB");
    EXPECT_LT(button.sizeHint().width(), onOneLine.width() - 30);
    EXPECT_EQ(button.sizeHint().height(), onOneLine.height() + button.fontMetrics().lineSpacing());
    EXPECT_EQ(button.minimumSizeHint(), button.sizeHint());
}

TEST_F(PictureButtonTest, ACaptionIsBrokenAtTheBlankNearestToItsMiddleWhateverIsLonger)
{
    const auto widthOf = [](const char* caption) {
        PictureButton button(QString::fromLatin1(caption));
        button.setOnTwoLines(true);
        const QFontMetrics metrics = button.fontMetrics();
        return button.sizeHint().width() - PictureButton(QString::fromLatin1(caption)).sizeHint().width() +
               metrics.size(0, QString::fromLatin1(caption)).width();
    };
    const QFontMetrics metrics = PictureButton().fontMetrics();
    EXPECT_EQ(widthOf("Transfer Sequence to ORB"), metrics.size(0, "Sequence to ORB").width());
    EXPECT_EQ(widthOf("Load Sequence from ORB"), metrics.size(0, "Load Sequence").width());
    EXPECT_EQ(widthOf("Transfer"), metrics.size(0, "Transfer").width());
}

TEST_F(PictureButtonTest, TheLinesOfACaptionOnTwoLinesAreDrawnBeneathEachOther)
{
    PictureButton button("Load Sequence");
    put(button).setOnTwoLines(true);
    form.resize(300, 200);
    form.show();
    button.resize(button.sizeHint());
    const auto rowsWithInk = [&] {
        const QImage shown = button.grab().toImage();
        int rows = 0;
        for (int y = 4; y < shown.height() - 4; ++y)
            for (int x = 4; x < shown.width() - 4; ++x)
                if (shown.pixelColor(x, y).lightness() < 100) {
                    ++rows;
                    break;
                }
        return rows;
    };
    const int onTwoLines = rowsWithInk();
    button.setOnTwoLines(false);
    EXPECT_GT(onTwoLines, rowsWithInk() + button.fontMetrics().xHeight());
}

TEST_F(PictureButtonTest, AMarkIsShownAndAPressDoesNotChangeIt)
{
    PictureButton button("Control");
    put(button).resize(67, 65);
    form.show();
    const QColor mark = button.palette().color(QPalette::Highlight);
    const auto lowerEdge = [&] { return button.grab().toImage().pixelColor(33, 60); };
    EXPECT_NE(lowerEdge(), mark);

    button.setMarked(true);
    EXPECT_EQ(lowerEdge(), mark);
    button.click();
    EXPECT_TRUE(button.marked());
    button.setMarked(false);
    button.click();

    EXPECT_FALSE(button.marked());
    EXPECT_NE(lowerEdge(), mark);
}

TEST_F(PictureButtonTest, TheButtonWithTheFocusHasAnOutlineAndNoMark)
{
    PictureButton button("Control");
    PictureButton other;
    put(button).resize(67, 65);
    put(other);
    form.show();
    const QColor ring = button.palette().color(QPalette::Highlight);
    const auto edge = [&] { return button.grab().toImage().pixelColor(1, 30); };
    giveFocus(other);
    EXPECT_NE(edge(), ring);

    giveFocus(button);

    EXPECT_EQ(edge(), ring);
    EXPECT_NE(button.grab().toImage().pixelColor(33, 60), ring);
}

TEST_F(PictureButtonTest, ACaptionWiderThanItsButtonIsDrawnSmallerAndOneWithRoomIsNot)
{
    PictureButton button("Sequence");
    QFont font = button.font();
    font.setPointSize(14);
    button.setFont(font);
    const auto width = [&] { return QFontMetrics(button.captionFont()).size(0, "Sequence").width(); };
    button.resize(200, 65);
    EXPECT_EQ(button.captionFont(), font);

    button.resize(67, 65);
    EXPECT_LE(width(), 63);
    EXPECT_GT(width(), 55) << "as large as it can be";
    EXPECT_EQ(button.font(), font);
    button.resize(5, 65);
    EXPECT_GE(button.captionFont().pointSizeF(), 5);
}

TEST_F(PictureButtonTest, ADrawnCaptionKeepsClearOfTheEdgesOfItsButton)
{
    PictureButton button("MMMMMMMM");
    put(button).resize(60, 30);
    form.show();
    const QImage shown = button.grab().toImage();
    const QImage empty = [&] {
        button.setCaption({});
        return button.grab().toImage();
    }();
    for (int y = 0; y < 30; ++y)
        for (int x : {0, 1, 58, 59})
            EXPECT_EQ(shown.pixelColor(x, y), empty.pixelColor(x, y)) << x << ' ' << y;
    EXPECT_NE(shown, empty);
}

TEST_F(PictureButtonTest, OnADarkDesktopAPictureStandsOnALightTileWithRoundCorners)
{
    const QTemporaryDir folder;
    QImage dark(32, 32, QImage::Format_ARGB32);
    dark.fill(Qt::transparent);
    dark.setPixelColor(16, 16, QColor(0x3b, 0x4c, 0x5f));
    ASSERT_TRUE(dark.save(folder.filePath("a.png")));
    PictureButton button;
    button.setPicture(folder.filePath("a.png"));
    const auto pixel = [&](QIcon::Mode mode, int at) {
        return button.icon().pixmap(QSize(32, 32), mode).toImage().pixelColor(at, 8);
    };
    EXPECT_EQ(pixel(QIcon::Normal, 8).alpha(), 0);

    QApplication::setPalette(darkPalette());
    EXPECT_EQ(pixel(QIcon::Normal, 8), QColor(0xf5, 0xf6, 0xf8));
    EXPECT_EQ(button.icon().pixmap(QSize(32, 32)).toImage().pixelColor(0, 0).alpha(), 0);
    EXPECT_LT(pixel(QIcon::Disabled, 8).lightness(), 128) << "a disabled one is dimmed";
    QApplication::setPalette(QApplication::style()->standardPalette());
}

TEST_F(PictureButtonTest, AnAssistiveToolPressesAButtonThatCanBeMarkedAndLeavesTheMark)
{
    int presses = 0;
    PictureButton button("Control");
    put(button);
    button.onClick = [&] { ++presses; };
    const auto pressByTool = [&] {
        QAccessibleActionInterface* actions = QAccessible::queryAccessibleInterface(&button)->actionInterface();
        actions->doAction(actions->actionNames().constFirst());
    };
    for (const bool marked : {true, false}) {
        button.setMarked(marked);
        presses = 0;
        pressByTool();
        EXPECT_EQ(presses, 0) << "the tool waits for the reply";
        EXPECT_EQ(button.marked(), marked);
        const QDeadlineTimer limit(5000);
        while (presses == 0 && !limit.hasExpired())
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 20);
        EXPECT_EQ(presses, 1);
        EXPECT_EQ(button.marked(), marked);
        button.click();
        EXPECT_EQ(presses, 2);
    }
}

TEST_F(PictureButtonTest, APictureWithoutTransparencyHasTheGroundOfItsButton)
{
    const QTemporaryDir folder;
    QImage opaque(32, 32, QImage::Format_RGB32);
    opaque.fill(QColor(0xf5, 0xf6, 0xf8));
    opaque.setPixelColor(1, 0, QColor(0xf0, 0xfb, 0xf4)); // as a lossy file has it
    opaque.setPixelColor(16, 16, QColor(0x3b, 0x4c, 0x5f));
    ASSERT_TRUE(opaque.save(folder.filePath("a.png")));
    PictureButton button;
    button.setPicture(folder.filePath("a.png"));
    const QImage shown = button.icon().pixmap(QSize(32, 32)).toImage();

    EXPECT_EQ(shown.pixelColor(0, 0).alpha(), 0);
    EXPECT_EQ(shown.pixelColor(1, 0).alpha(), 0);
    EXPECT_EQ(shown.pixelColor(16, 16), QColor(0x3b, 0x4c, 0x5f));
}

} // namespace
