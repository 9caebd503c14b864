// SPDX-License-Identifier: GPL-3.0-or-later
#include "form_test.h"
#include "slide.h"

#include <QAccessible>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QStyle>

namespace orb {
namespace {

using testing::ElementsAre;

class SlideTest : public FormTest {
protected:
    SlideTest()
    {
        GraphMode.setGeometry(0, 0, GraphMode.sizeHint().width(), 120);
        GraphMode.onChange = [this] { texts.push_back(GraphMode.text().toStdString()); };
        form.resize(300, 200);
        form.show();
    }

    void press(Qt::Key key)
    {
        for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            QKeyEvent event(type, key, Qt::NoModifier);
            QCoreApplication::sendEvent(&GraphMode, &event);
        }
    }
    void clickAt(const QPoint& at)
    {
        for (const QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
            QMouseEvent event(type, at, GraphMode.mapToGlobal(at), Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
            QCoreApplication::sendEvent(&GraphMode, &event);
        }
    }

    Slide GraphMode{{"Axis", "Zoom", "Cursor Coordinates"}, &form};
    std::vector<std::string> texts;
};

/// The rows of the image in which something of the text's part is drawn: the first and the last.
std::pair<int, int> inkRows(const QImage& image, int left)
{
    std::pair<int, int> rows{-1, -1};
    for (int y = 0; y < image.height(); ++y)
        for (int x = left; x < image.width(); ++x)
            if (image.pixelColor(x, y) != image.pixelColor(image.width() - 1, 0)) {
                rows.first = rows.first < 0 ? y : rows.first;
                rows.second = y;
            }
    return rows;
}

/// How many texts, one above the other with a gap between them, stand in the part from `left` on.
int inkBands(const QImage& image, int left)
{
    int bands = 0;
    bool inBand = false;
    for (int y = 0; y < image.height(); ++y) {
        const bool isInk = inkRows(image.copy(0, y, image.width(), 1), left).first == 0;
        bands += isInk && !inBand ? 1 : 0;
        inBand = isInk;
    }
    return bands;
}

TEST_F(SlideTest, ASlideStartsAtItsFirstPosition)
{
    EXPECT_EQ(GraphMode.value(), 0);
    EXPECT_EQ(GraphMode.text(), "Axis");
    EXPECT_THAT(GraphMode.positions(), ElementsAre("Axis", "Zoom", "Cursor Coordinates"));
}

TEST_F(SlideTest, AnAssignmentRunsTheHandlerWhenThePositionChanges)
{
    GraphMode.setValue(2);
    GraphMode.setValue(2);
    EXPECT_THAT(texts, ElementsAre("Cursor Coordinates"));
    EXPECT_EQ(GraphMode.accessibleDescription(), "Cursor Coordinates");
}

TEST_F(SlideTest, ANumberWithoutAPositionIsRefused)
{
    for (const int position : {-1, 3}) {
        try {
            GraphMode.setValue(position);
            ADD_FAILURE() << position;
        } catch (const RuntimeFailure& failed) {
            EXPECT_EQ(failed.number(), failure::InvalidPropertyValue) << position;
        }
    }
    EXPECT_EQ(GraphMode.value(), 0);
}

TEST_F(SlideTest, TheArrowKeysMoveASlideDownItsTexts)
{
    press(Qt::Key_Down);
    EXPECT_EQ(GraphMode.accessibleDescription(), "Zoom");
    press(Qt::Key_Down);
    press(Qt::Key_Down); // there is no fourth
    press(Qt::Key_Up);
    press(Qt::Key_End);
    press(Qt::Key_Home);
    EXPECT_THAT(texts, ElementsAre("Zoom", "Cursor Coordinates", "Zoom", "Cursor Coordinates", "Axis"));
}

TEST_F(SlideTest, APressBelowTheHandleMovesASlideByOnePosition)
{
    clickAt({GraphMode.style()->pixelMetric(QStyle::PM_SliderThickness) / 2, 110});
    EXPECT_THAT(texts, ElementsAre("Zoom"));
}

TEST_F(SlideTest, AFailureOfTheHandlerOfAKeyEndsTheRun)
{
    GraphMode.onChange = [] { throw RuntimeFailure(failure::Overflow); };
    press(Qt::Key_Down);
    EXPECT_TRUE(run.isOver());
}

TEST_F(SlideTest, ASlideIsWideAndHighEnoughForItsTexts)
{
    const QFontMetrics metrics = GraphMode.fontMetrics();
    EXPECT_GT(GraphMode.sizeHint().width(), metrics.horizontalAdvance("Cursor Coordinates") + 10);
    EXPECT_GE(GraphMode.sizeHint().height(), 3 * metrics.height());
    EXPECT_EQ(GraphMode.minimumSizeHint(), GraphMode.sizeHint());
}

TEST_F(SlideTest, TheTextsStandBesideTheSliderFromItsTopToItsBottom)
{
    const int left = GraphMode.sizeHint().width() - GraphMode.fontMetrics().horizontalAdvance("Cursor Coordinates");
    const auto [first, last] = inkRows(GraphMode.grab().toImage(), left);
    EXPECT_GE(first, 0);
    EXPECT_LT(first, 12);
    EXPECT_GT(last, 108);
    EXPECT_LT(last, 119);
    EXPECT_EQ(inkBands(GraphMode.grab().toImage(), left), 3);
}

TEST_F(SlideTest, ASlideIsASliderToAssistiveTechnology)
{
    GraphMode.setAccessibleName("Graph Mode");
    QAccessibleInterface* slide = QAccessible::queryAccessibleInterface(&GraphMode);
    ASSERT_TRUE(slide);
    EXPECT_EQ(slide->role(), QAccessible::Slider);
    EXPECT_EQ(slide->text(QAccessible::Name), "Graph Mode");
    EXPECT_EQ(GraphMode.focusPolicy() & Qt::TabFocus, Qt::TabFocus);
}

} // namespace
} // namespace orb
