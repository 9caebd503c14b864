// SPDX-License-Identifier: GPL-3.0-or-later
#include "memory_cell.h"

#include "dark_palette.h"

#include "form_test.h"

#include <QCoreApplication>
#include <QImage>
#include <QKeyEvent>
#include <QMouseEvent>

using namespace orb;
using testing::ElementsAre;

namespace {

class MemoryCellTest : public FormTest {
protected:
    MemoryCellTest()
    {
        put(cell).resize(60, 30);
        form.show();
        cell.onMouseDown = [this] { done << "open"; };
        cell.onArrow = [this](int rows, int columns) { done << QString("%1 %2").arg(rows).arg(columns); };
    }

    void key(int code)
    {
        QKeyEvent down(QEvent::KeyPress, code, Qt::NoModifier);
        QCoreApplication::sendEvent(&cell, &down);
    }

    /// The number of pixels of this color, the border left out.
    int count(const QColor& color)
    {
        const QImage image = cell.grab().toImage();
        int pixelCount = 0;
        for (int y = 2; y < image.height() - 2; ++y)
            for (int x = 2; x < image.width() - 2; ++x)
                pixelCount += image.pixelColor(x, y) == color;
        return pixelCount;
    }

    MemoryCell cell;
    QStringList done;
};

TEST_F(MemoryCellTest, AFreshCellIsEmptyBlackOnWhite)
{
    EXPECT_EQ(cell.text(), "");
    EXPECT_EQ(cell.tag(), "");
    EXPECT_EQ(cell.backColor(), QColor(Qt::white));
    EXPECT_EQ(cell.foreColor(), QColor(Qt::black));
    EXPECT_EQ(count(Qt::white), 56 * 26);
}

TEST_F(MemoryCellTest, EveryMouseButtonOpensTheCell)
{
    for (const auto button : {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton}) {
        QMouseEvent down(QEvent::MouseButtonPress, QPointF(50, 25), cell.mapToGlobal(QPointF(50, 25)), button, button,
                         Qt::NoModifier);
        QCoreApplication::sendEvent(&cell, &down);
    }

    EXPECT_THAT(done, ElementsAre("open", "open", "open"));
}

TEST_F(MemoryCellTest, EnterAndTheSpaceBarOpenTheCellArrowsMoveAndOtherKeysDoNothing)
{
    for (const int code : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space, Qt::Key_Up, Qt::Key_Down, Qt::Key_Left,
                           Qt::Key_Right, Qt::Key_7, Qt::Key_Delete})
        key(code);

    EXPECT_THAT(done, ElementsAre("open", "open", "open", "-1 0", "1 0", "0 -1", "0 1"));
    EXPECT_EQ(cell.text(), "");
}

TEST_F(MemoryCellTest, TheColorsOfTheRunModesAreMarkedWithTheirLetters)
{
    QStringList marks;
    for (const QColor& color : {QColor(128, 0, 0), QColor(0, 0, 128), QColor(0, 0, 0), QColor(Qt::white)}) {
        cell.setBackColor(color);
        marks << cell.mark();
    }
    EXPECT_THAT(marks, ElementsAre("S", "A", "M", ""));
}

TEST_F(MemoryCellTest, TheMarkIsDrawnThoughTheCellHasNoText)
{
    cell.setForeColor(Qt::white);
    cell.setBackColor(QColor(0, 0, 128));

    EXPECT_GT(count(QColor(0, 0, 128)), 1000);
    EXPECT_LT(count(QColor(0, 0, 128)), 56 * 26);
}

TEST_F(MemoryCellTest, WhiteTextOnWhiteIsDrawnReadably)
{
    cell.setForeColor(Qt::white);
    cell.setText("120");

    EXPECT_LT(count(Qt::white), 56 * 26);
    EXPECT_EQ(cell.foreColor(), QColor(Qt::white));
}

TEST_F(MemoryCellTest, ATextHasItsSizeAndItsAlignment)
{
    cell.setText("1");
    cell.setFontSize(8);
    const int small = count(Qt::white);
    cell.setFontSize(16);
    EXPECT_LT(count(Qt::white), small);
    EXPECT_EQ(cell.fontSize(), 16);

    const QImage left = cell.grab().toImage();
    cell.setAlignment(Qt::AlignCenter);
    EXPECT_NE(cell.grab().toImage(), left);
    EXPECT_EQ(cell.alignment(), Qt::AlignCenter);
}

TEST_F(MemoryCellTest, TheCellWithTheFocusIsDrawnDifferently)
{
    const QImage before = cell.grab().toImage();
    form.activateWindow();
    cell.setFocus();
    QCoreApplication::processEvents();
    ASSERT_TRUE(cell.hasFocus());

    EXPECT_NE(cell.grab().toImage(), before);
    const QImage focused = cell.grab().toImage();
    EXPECT_EQ(focused.pixelColor(1, 12), cell.palette().color(QPalette::Highlight));
    EXPECT_EQ(focused.pixelColor(2, 12), QColor(Qt::white));
}

TEST_F(MemoryCellTest, AnEmptyCellHasTheGroundOfADarkDesktopAndAFilledOneItsOwn)
{
    form.setPalette(darkPalette());
    cell.setText("7");
    const QColor ground = darkPalette().color(QPalette::Base);
    EXPECT_GT(count(ground), 1000);
    EXPECT_GT(count(darkPalette().color(QPalette::Text)), 0) << "black on dark could not be read";
    EXPECT_EQ(cell.backColor(), QColor(Qt::white));

    cell.setBackColor(QColor(128, 0, 0));
    EXPECT_GT(count(QColor(128, 0, 0)), 1000);
    EXPECT_EQ(count(ground), 0);
}

TEST_F(MemoryCellTest, TheCellThatIsEditedIsDrawnUnlikeTheOneWithTheFocus)
{
    cell.setBackColor(QColor(0, 0, 128));
    EXPECT_EQ(count(QColor(0xff, 0xc1, 0x07)), 0);
    cell.setEdited(true);
    EXPECT_TRUE(cell.isEdited());

    const QImage edited = cell.grab().toImage();
    EXPECT_EQ(edited.pixelColor(0, 12), QColor(Qt::black));
    EXPECT_EQ(edited.pixelColor(1, 12), QColor(0xff, 0xc1, 0x07));
    EXPECT_EQ(edited.pixelColor(2, 12), QColor(0xff, 0xc1, 0x07));
    EXPECT_EQ(edited.pixelColor(58, 12), QColor(0xff, 0xc1, 0x07));
    EXPECT_EQ(edited.pixelColor(30, 28), QColor(0xff, 0xc1, 0x07));
    EXPECT_EQ(edited.pixelColor(30, 5), QColor(0, 0, 128));
}

} // namespace
