// SPDX-License-Identifier: GPL-3.0-or-later
#include "curve_paint.h"

#include <gmock/gmock.h>

#include <cmath>
#include <limits>
#include <random>

namespace orb {
namespace {

using testing::IsEmpty;
using testing::SizeIs;

constexpr double infinity = std::numeric_limits<double>::infinity();
const double noNumber = std::nan("");

/// An area in which x 0 to `span` fills 100 columns and a value is its own row.
SketchArea area(double span, double from = 0)
{
    return {{from, 100 / span, 0}, {0, 1, 0}, 100, 100};
}

Curve curveOf(std::vector<double> values, double start = 0, double increment = 1)
{
    Curve curve;
    curve.assign(std::move(values), start, increment);
    return curve;
}

/// What each column has to cover, point by point: the points in it and the lines to their neighbours.
SketchColumns plainColumns(const Curve& curve, const SketchArea& where)
{
    SketchColumns columns(static_cast<std::size_t>(where.width));
    for (std::size_t i = 0; i + 1 < curve.size(); ++i) {
        const double x0 = where.x.pixel(curve.x(i));
        const double x1 = where.x.pixel(curve.x(i + 1));
        const double y0 = where.y.pixel(curve.y(i));
        const double y1 = where.y.pixel(curve.y(i + 1));
        for (int part = 0; part <= 200; ++part) {
            const double x = x0 + (x1 - x0) * part / 200;
            if (x >= 0 && x < where.width)
                columns[static_cast<std::size_t>(x)].add(y0 + (y1 - y0) * part / 200);
        }
    }
    return columns;
}

void expectCovers(const SketchColumns& columns, const SketchColumns& wanted, double slack)
{
    for (std::size_t c = 0; c < wanted.size(); ++c) {
        ASSERT_EQ(columns[c].isEmpty(), wanted[c].isEmpty()) << "column " << c;
        if (wanted[c].isEmpty())
            continue;
        ASSERT_LE(columns[c].lowest, wanted[c].lowest + 1e-6) << "column " << c;
        ASSERT_GE(columns[c].highest, wanted[c].highest - 1e-6) << "column " << c;
        ASSERT_GE(columns[c].lowest, wanted[c].lowest - slack) << "column " << c;
        ASSERT_LE(columns[c].highest, wanted[c].highest + slack) << "column " << c;
    }
}

std::vector<double> noise(std::size_t count)
{
    std::mt19937 random(3);
    std::uniform_real_distribution<double> value(20, 80);
    std::vector<double> values(count);
    for (double& one : values)
        one = value(random);
    return values;
}

TEST(CurveSketch, CoversInEachColumnFromItsLowestToItsHighestPoint)
{
    const Curve curve = curveOf(noise(5000));
    const SketchColumns columns = sketchColumns(curve, area(5000));
    for (std::size_t c = 0; c < 100; ++c) {
        const Extent inside = curve.extent(c * 50, c * 50 + 50);
        EXPECT_LE(columns[c].lowest, inside.lowest) << "column " << c;
        EXPECT_GE(columns[c].highest, inside.highest) << "column " << c;
        // The lines from and to the neighbouring columns may reach further, but not beyond their next points.
        const Extent around = curve.extent(c > 0 ? c * 50 - 1 : 0, c * 50 + 51);
        EXPECT_GE(columns[c].lowest, around.lowest - 1e-9) << "column " << c;
        EXPECT_LE(columns[c].highest, around.highest + 1e-9) << "column " << c;
    }
}

TEST(CurveSketch, FollowsTheLineBetweenPointsThatStandFarApart)
{
    const Curve curve = curveOf({10, 90, 50, 50}, -0.5, 1);
    expectCovers(sketchColumns(curve, area(2)), plainColumns(curve, area(2)), 2);
}

TEST(CurveSketch, DrawsAStretchFromTheMiddleOfALongCurve)
{
    const Curve curve = curveOf(noise(100'000));
    const SketchArea middle = area(777, 54'321.5);
    expectCovers(sketchColumns(curve, middle), plainColumns(curve, middle), 60);
}

TEST(CurveSketch, JoinsRunsOfDifferentIncrements)
{
    Curve curve;
    for (const double value : noise(300))
        curve.append(value, 0.1);
    for (const double value : noise(20))
        curve.append(value, 3);
    for (const double value : noise(300))
        curve.append(value, 0.1);
    expectCovers(sketchColumns(curve, area(120)), plainColumns(curve, area(120)), 61);
}

TEST(CurveSketch, DrawsTheLineBetweenRunsThatBothBeginAndEndOutOfView)
{
    Curve curve = curveOf({0, 10, 20, 30, 40}, 20, 20); // up to x 100, out of view behind 60
    curve.append(80, -90);                              // and back to x 10
    expectCovers(sketchColumns(curve, area(60)), plainColumns(curve, area(60)), 2);
    EXPECT_NEAR(sketchLines(curve, area(60)).back().back().x, curve.x(5) / 60 * 100, 1e-9);
}

TEST(CurveSketch, DrawsBackwardsForANegativeIncrement)
{
    const Curve curve = curveOf(noise(1000), 1000, -1);
    expectCovers(sketchColumns(curve, area(1000)), plainColumns(curve, area(1000)), 60);
}

TEST(CurveSketch, PutsAllPointsIntoOneColumnForAnIncrementOfZero)
{
    const SketchColumns columns = sketchColumns(curveOf({3, 9, 5}, 50, 0), area(100));
    EXPECT_EQ(columns[50], (Extent{3, 9}));
    EXPECT_TRUE(columns[49].isEmpty());
    EXPECT_TRUE(columns[51].isEmpty());
}

TEST(CurveSketch, LeavesAGapWhereAValueIsNoNumber)
{
    std::vector<double> values(1000, 50);
    for (std::size_t i = 400; i < 600; ++i)
        values[i] = noNumber;
    const SketchColumns columns = sketchColumns(curveOf(values), area(1000));
    EXPECT_EQ(columns[39], (Extent{50, 50}));
    EXPECT_TRUE(columns[40].isEmpty());
    EXPECT_TRUE(columns[59].isEmpty());
    EXPECT_EQ(columns[60], (Extent{50, 50}));
    EXPECT_THAT(sketchLines(curveOf({1, 2, noNumber, 4, 5}), area(5)), SizeIs(2));
}

TEST(CurveSketch, ShowsAPointAloneAsADot)
{
    EXPECT_THAT(sketchLines(curveOf({50}), area(5)), testing::ElementsAre(SizeIs(1)));
    EXPECT_THAT(sketchLines(curveOf({noNumber, 50, noNumber}), area(5)), testing::ElementsAre(SizeIs(1)));
    EXPECT_THAT(sketchLines(curveOf({500}), area(5)), IsEmpty());
}

TEST(CurveSketch, CutsLinesAtTheAreaSoThatEveryCoordinateStaysSmall)
{
    const Curve curve = curveOf({50, 1e308, -1e308, infinity, 50, -infinity, 50});
    const auto expectSmall = [](const SketchArea& where, const Curve& drawn) {
        for (const SketchLine& line : sketchLines(drawn, where))
            for (const SketchPoint& point : line) {
                EXPECT_LE(std::abs(point.x), 200);
                EXPECT_LE(std::abs(point.y), 200);
            }
    };
    expectSmall(area(6), curve);
    expectSmall(area(1e-6, 3), curve);
    SketchArea fine = area(6);
    fine.y.factor = -1e9;
    expectSmall(fine, curve);
    EXPECT_THAT(sketchLines(curve, area(6)), testing::Not(IsEmpty()));
}

TEST(CurveSketch, KeepsTheSlopeOfALineThatLeavesTheArea)
{
    const std::vector<SketchLine> lines = sketchLines(curveOf({0, 1000}), area(1));
    ASSERT_THAT(lines, SizeIs(1));
    EXPECT_NEAR(lines[0].back().y, 116, 1e-9);
    EXPECT_NEAR(lines[0].back().x, 11.6, 1e-9);
}

TEST(CurveSketch, WidensByARoundPen)
{
    SketchColumns columns(7);
    columns[3] = {50, 50};
    const SketchColumns wide = widened(columns, 4);
    EXPECT_TRUE(wide[0].isEmpty());
    EXPECT_EQ(wide[1], (Extent{50, 50}));
    EXPECT_NEAR(wide[2].highest, 50 + std::sqrt(3), 1e-12);
    EXPECT_EQ(wide[3], (Extent{48, 52}));
    EXPECT_NEAR(wide[4].lowest, 50 - std::sqrt(3), 1e-12);
    EXPECT_TRUE(wide[6].isEmpty());
}

QImage canvas()
{
    QImage image(100, 100, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    return image;
}

TEST(CurvePaint, FillsWholePixelsWhollyAndOthersByTheirShare)
{
    QImage image = canvas();
    SketchColumns columns(100);
    columns[5] = {10.5, 13.25};
    columns[6] = {20.25, 20.75};
    columns[7] = {-infinity, infinity};
    columns[8] = {99.5, 300};
    fillColumns(image, columns, Qt::white);
    std::vector<int> alphas;
    for (const QPoint& at :
         {QPoint(5, 9), {5, 10}, {5, 11}, {5, 12}, {5, 13}, {5, 14}, {6, 20}, {7, 0}, {7, 99}, {8, 99}})
        alphas.push_back(qAlpha(image.pixel(at)));
    EXPECT_THAT(alphas, testing::ElementsAre(0, 128, 255, 255, 64, 0, 128, 255, 255, 128));
}

/// The columns of the image that show something, as a text of # and blanks.
std::string shadow(const QImage& image)
{
    std::string text;
    for (int x = 0; x < image.width(); ++x) {
        bool any = false;
        for (int y = 0; y < image.height(); ++y)
            any = any || qAlpha(image.pixel(x, y)) > 100;
        text += any ? '#' : ' ';
    }
    return text;
}

std::string painted(const Curve& curve, double span, bool dashed)
{
    QImage image = canvas();
    paintCurve(image, curve, area(span), {Qt::red, QColor(), dashed}, 1);
    return shadow(image);
}

TEST(CurvePaint, DrawsSolidLinesWithoutAGapAndDashedOnesWith)
{
    const Curve dense = curveOf(std::vector<double>(1000, 50.0));
    const Curve sparse = curveOf({50, 50}, 0, 100);
    EXPECT_EQ(painted(dense, 999, false), std::string(100, '#'));
    EXPECT_EQ(painted(sparse, 100, false), std::string(100, '#'));
    std::string dashes;
    while (dashes.size() < 100)
        dashes += "#######    ";
    dashes.resize(100);
    EXPECT_EQ(painted(dense, 999, true), dashes);
    EXPECT_EQ(painted(sparse, 100, true), dashes);
}

TEST(CurvePaint, ShowsAStepThatFallsBetweenTwoDashes)
{
    std::vector<double> values(1000, 20);
    for (std::size_t i = 500; i < 1000; ++i)
        values[i] = 80;
    ASSERT_EQ(painted(curveOf(std::vector<double>(1000, 20)), 1000, true)[52], ' ');
    for (std::size_t i = 500; i < 525; ++i)
        values[i] = 20;
    EXPECT_EQ(painted(curveOf(values), 1000, true)[52], '#');
    EXPECT_EQ(painted(curveOf({20, 20, 80, 80}, 0, 17.5), 100, true)[30], '#');
}

} // namespace
} // namespace orb
