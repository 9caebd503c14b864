// SPDX-License-Identifier: GPL-3.0-or-later
#include "mark_painter.h"

#include <QImage>
#include <QPainter>

#include <gmock/gmock.h>

namespace orb {
namespace {

class MarkPainterTest : public testing::Test {
protected:
    MarkPainterTest() { image.fill(Qt::black); }

    int pixelsOf(const QColor& color, const QRect& part) const
    {
        int count = 0;
        for (int y = part.top(); y <= part.bottom(); ++y)
            for (int x = part.left(); x <= part.right(); ++x)
                count += image.pixelColor(x, y) == color ? 1 : 0;
        return count;
    }

    /// Where anything red lies.
    QRect bounds() const
    {
        QRect result;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                if (image.pixelColor(x, y).red() > 100)
                    result |= QRect(x, y, 1, 1);
        return result;
    }

    void paintExits(const std::vector<CurveExit>& exits, double scale = 1)
    {
        QPainter painter(&image);
        ExitPainter marks(painter, image.size(), scale);
        for (const CurveExit& exit : exits)
            marks.paint(exit, red);
    }

    const CurveColors red{QColor(255, 0, 0), QColor(), QColor(0, 0, 0)};
    QImage image{200, 100, QImage::Format_ARGB32_Premultiplied};
};

TEST_F(MarkPainterTest, AnExitPointsToItsEdge)
{
    const auto widths = [&](const QRect& outer, const QRect& inner) {
        return std::pair(pixelsOf(red.line, outer), pixelsOf(red.line, inner));
    };
    paintExits({{CurveExit::Top, 60}, {CurveExit::Bottom, 60}, {CurveExit::Left, 40}, {CurveExit::Right, 40}});
    const auto top = widths({50, 0, 20, 4}, {50, 4, 20, 4});
    const auto bottom = widths({50, 96, 20, 4}, {50, 92, 20, 4});
    const auto left = widths({0, 30, 4, 20}, {4, 30, 4, 20});
    const auto right = widths({196, 30, 4, 20}, {192, 30, 4, 20});
    for (const auto& [outer, inner] : {top, bottom, left, right}) {
        EXPECT_GT(inner, outer) << "it is wider away from the edge";
        EXPECT_GT(inner, 12);
    }
}

TEST_F(MarkPainterTest, AnExitIsAsLargeAtDoubleScale)
{
    paintExits({{CurveExit::Top, 60}});
    const QRect single = bounds();
    image.fill(Qt::black);
    paintExits({{CurveExit::Top, 60}}, 2);
    EXPECT_NEAR(bounds().width(), 2 * single.width(), 2);
    EXPECT_NEAR(bounds().height(), 2 * single.height(), 2);
}

TEST_F(MarkPainterTest, ExitsAtTheSamePlaceStandSideBySide)
{
    paintExits({{CurveExit::Top, 60}});
    const int one = pixelsOf(red.line, image.rect());
    paintExits({{CurveExit::Top, 60}, {CurveExit::Top, 61}, {CurveExit::Top, 60}});
    EXPECT_NEAR(pixelsOf(red.line, image.rect()), 3 * one, 6);
    EXPECT_NEAR(bounds().left(), 60 - 5, 1);
}

TEST_F(MarkPainterTest, ExitsAtTheSidesStandAtTheHeightOfTheirCurves)
{
    paintExits({{CurveExit::Right, 40}});
    const QRect one = bounds();
    paintExits({{CurveExit::Right, 41}});
    EXPECT_LE(bounds().height(), one.height() + 1);
}

TEST_F(MarkPainterTest, ExitsThatFindNoFreePlaceStandAtTheEnd)
{
    const std::vector<CurveExit> exits(40, CurveExit{CurveExit::Bottom, 195});
    paintExits(exits);
    EXPECT_GT(bounds().left(), 185);
    EXPECT_LE(bounds().right(), 199);
}

TEST_F(MarkPainterTest, AnExitAtTheEndOfAnEdgeStandsInTheAreaAsAWhole)
{
    paintExits({{CurveExit::Top, 60}});
    const int one = pixelsOf(red.line, image.rect());
    paintExits({{CurveExit::Bottom, 0}, {CurveExit::Right, 100}});
    EXPECT_NEAR(pixelsOf(red.line, image.rect()), 3 * one, 6);
}

TEST_F(MarkPainterTest, AMarkIsARingInTheColorOfTheLineWithAReadableCharacter)
{
    QPainter painter(&image);
    paintMark(painter, {100, 50}, "8", red, 2);
    painter.end();
    EXPECT_GT(pixelsOf(red.line, image.rect()), 40);
    EXPECT_NEAR(bounds().width(), 28, 2);
    EXPECT_LE((bounds().center() - QPoint(100, 50)).manhattanLength(), 2);
    EXPECT_GT(pixelsOf(QColor(226, 231, 238), {90, 40, 20, 20}), 20);
}

TEST_F(MarkPainterTest, AMarkOfALineThatNeedsAnEdgeHasARingInTheColorOfTheEdge)
{
    QPainter painter(&image);
    paintMark(painter, {100, 50}, "8", {QColor(0, 0, 64), QColor(90, 90, 255), Qt::black}, 2);
    painter.end();
    EXPECT_GT(pixelsOf(QColor(90, 90, 255), image.rect()), 40);
}

} // namespace
} // namespace orb
