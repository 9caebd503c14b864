// SPDX-License-Identifier: GPL-3.0-or-later
#include "curve_shape.h"

#include <gmock/gmock.h>

#include <cmath>
#include <limits>
#include <random>

namespace orb {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

constexpr double infinity = std::numeric_limits<double>::infinity();
const double noNumber = std::nan("");

/// An area in which x 0 to `span` fills 100 columns and a value is its own row.
CurveArea area(double span, double from = 0)
{
    return {{from, 100 / span, 0}, {0, 1, 0}, 100, 100};
}

Curve curveOf(std::vector<double> values, double start = 0, double increment = 1)
{
    Curve curve;
    curve.assign(std::move(values), start, increment);
    return curve;
}

/// Adds what a line covers of each column.
void addLine(Columns& columns, const QLineF& line)
{
    for (int part = 0; part < 2000; ++part) {
        const QPointF at = line.pointAt(part / 2000.0);
        if (at.x() >= 0 && at.x() < static_cast<double>(columns.size()))
            columns[static_cast<std::size_t>(at.x())].add(at.y());
    }
}

/// What each column has to cover, point by point: the points in it and the lines to their neighbors.
Columns plainColumns(const Curve& curve, const CurveArea& where)
{
    Columns columns(static_cast<std::size_t>(where.width));
    const auto place = [&](std::size_t i) { return QPointF(where.x.pixel(curve.x(i)), where.y.pixel(curve.y(i))); };
    for (std::size_t i = 0; i + 1 < curve.size(); ++i)
        addLine(columns, {place(i), place(i + 1)});
    return columns;
}

/// What a shape covers of each column with its columns and its lines.
Columns covered(const CurveShape& shape)
{
    Columns columns = shape.columns;
    for (const QLineF& line : shape.lines)
        addLine(columns, line);
    return columns;
}

void expectCovers(const Columns& columns, const Columns& wanted, double slack)
{
    ASSERT_EQ(columns.size(), wanted.size());
    for (std::size_t c = 0; c < wanted.size(); ++c) {
        ASSERT_EQ(columns[c].isEmpty(), wanted[c].isEmpty()) << "column " << c;
        if (wanted[c].isEmpty())
            continue;
        ASSERT_NEAR(columns[c].lowest, wanted[c].lowest, slack) << "column " << c;
        ASSERT_NEAR(columns[c].highest, wanted[c].highest, slack) << "column " << c;
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

TEST(CurveShapeTest, AColumnReachesFromItsLowestToItsHighestPointAndToThePointBefore)
{
    const Curve curve = curveOf(noise(5000));
    const CurveShape shape = curveShape(curve, area(5000));
    ASSERT_THAT(shape.columns, SizeIs(100));
    EXPECT_EQ(shape.columns[0], curve.extent(0, 50));
    for (std::size_t c = 1; c < 100; ++c)
        EXPECT_EQ(shape.columns[c], curve.extent(c * 50 - 1, c * 50 + 50)) << "column " << c;
    EXPECT_THAT(shape.lines, IsEmpty());
}

TEST(CurveShapeTest, AColumnOfManyPointsEndsWithAWholeBlock)
{
    const Curve curve = curveOf(noise(100'000));
    const Columns columns = curveShape(curve, area(100'000)).columns;
    EXPECT_EQ(columns[0], curve.extent(0, 1024)); // and not 1000, where the second column begins
    EXPECT_EQ(columns[1], curve.extent(1023, 2048));
    EXPECT_EQ(columns[99], curve.extent(99'007, 100'000));
}

TEST(CurveShapeTest, NeighboringColumnsAlwaysMeet)
{
    for (const double span : {100.5, 150.0, 777.0}) {
        const Columns columns = curveShape(curveOf(noise(1000)), area(span)).columns;
        for (std::size_t c = 1; c < columns.size(); ++c) {
            ASSERT_LE(columns[c].lowest, columns[c - 1].highest) << span << ", column " << c;
            ASSERT_GE(columns[c].highest, columns[c - 1].lowest) << span << ", column " << c;
        }
    }
}

TEST(CurveShapeTest, PointsFartherApartThanColumnsAreJoinedByLines)
{
    const CurveShape shape = curveShape(curveOf({10, 90, 50, 50}, -0.5, 1), area(2));
    EXPECT_THAT(shape.lines, ElementsAre(QLineF(-25, 10, 25, 90), QLineF(25, 90, 75, 50), QLineF(75, 50, 125, 50)));
    EXPECT_EQ(shape.columns, Columns(100));
}

TEST(CurveShapeTest, APointAColumnIsDrawnByLinesAndTwoAColumnByColumns)
{
    EXPECT_THAT(curveShape(curveOf(noise(101)), area(100)).lines, SizeIs(100));
    EXPECT_THAT(curveShape(curveOf(noise(201)), area(200)).lines, IsEmpty());
}

TEST(CurveShapeTest, OnlyThePointsInViewAndOneMoreAtEitherSideAreDrawn)
{
    for (const double increment : {1.0, -1.0}) {
        const QVector<QLineF> lines =
            curveShape(curveOf(noise(1000), increment > 0 ? 0 : 1000, increment), area(10, 499.5)).lines;
        ASSERT_THAT(lines, SizeIs(11)) << increment;
        EXPECT_NEAR(std::min(lines.first().x1(), lines.last().x2()), -5, 1e-9) << increment;
        EXPECT_NEAR(std::max(lines.first().x1(), lines.last().x2()), 105, 1e-9) << increment;
    }
}

TEST(CurveShapeTest, AStretchFromTheMiddleOfALongCurveIsDrawn)
{
    const Curve curve = curveOf(noise(100'000));
    const CurveArea middle = area(777, 54'321.5);
    expectCovers(covered(curveShape(curve, middle)), plainColumns(curve, middle), 60);
    EXPECT_EQ(curveShape(curve, middle).columns[50].lowest, curve.extent(54'709, 54'718).lowest);
}

TEST(CurveShapeTest, RunsOfDifferentIncrementsAreJoined)
{
    Curve curve;
    for (const double value : noise(300))
        curve.append(value, 0.1);
    for (const double value : noise(20))
        curve.append(value, 3);
    for (const double value : noise(300))
        curve.append(value, 0.1);
    expectCovers(covered(curveShape(curve, area(120))), plainColumns(curve, area(120)), 61);
}

TEST(CurveShapeTest, TheLineBetweenRunsThatBeginAndEndOutOfViewIsDrawn)
{
    Curve curve = curveOf({0, 10, 20, 30, 40}, 20, 20); // up to x 100, out of view from 60 on
    curve.append(80, -90);                              // and back to x 10
    expectCovers(covered(curveShape(curve, area(60))), plainColumns(curve, area(60)), 0.1);
}

TEST(CurveShapeTest, ANegativeIncrementIsDrawnBackwards)
{
    const Curve curve = curveOf(noise(1000), 1000, -1);
    expectCovers(covered(curveShape(curve, area(1000))), plainColumns(curve, area(1000)), 60);
}

TEST(CurveShapeTest, AnIncrementOfZeroPutsAllPointsIntoOneColumn)
{
    const Columns columns = curveShape(curveOf({3, 9, 5}, 50, 0), area(100)).columns;
    EXPECT_EQ(columns[50], (Extent{3, 9}));
    EXPECT_TRUE(columns[49].isEmpty());
    EXPECT_TRUE(columns[51].isEmpty());
}

TEST(CurveShapeTest, PointsOutsideOfTheColumnsAreLeftOut)
{
    EXPECT_EQ(curveShape(curveOf({3, 9, 5}, 100, 0), area(100)).columns, Columns(100));
    EXPECT_EQ(curveShape(curveOf({3, 9, 5}, -1, 0), area(100)).columns, Columns(100));
    EXPECT_FALSE(curveShape(curveOf({3, 9, 5}, 0, 0), area(100)).columns[0].isEmpty());
}

TEST(CurveShapeTest, AValueThatIsNoNumberLeavesAGap)
{
    std::vector<double> values(1000, 50);
    for (std::size_t i = 400; i < 600; ++i)
        values[i] = noNumber;
    const Columns columns = curveShape(curveOf(values), area(1000)).columns;
    EXPECT_EQ(columns[39], (Extent{50, 50}));
    EXPECT_TRUE(columns[40].isEmpty());
    EXPECT_TRUE(columns[59].isEmpty());
    EXPECT_EQ(columns[60], (Extent{50, 50}));
    EXPECT_THAT(curveShape(curveOf({1, 2, noNumber, 4, 5}), area(5)).lines,
                ElementsAre(QLineF(0, 1, 20, 2), QLineF(60, 4, 80, 5)));
}

TEST(CurveShapeTest, APointBetweenTwoGapsIsALineWithoutLength)
{
    EXPECT_THAT(curveShape(curveOf({50}), area(5)).lines, ElementsAre(QLineF(0, 50, 0, 50)));
    EXPECT_THAT(curveShape(curveOf({noNumber, 50, noNumber}), area(5)).lines, ElementsAre(QLineF(20, 50, 20, 50)));
    EXPECT_THAT(curveShape(curveOf({noNumber, 50, 60}), area(5)).lines, ElementsAre(QLineF(20, 50, 40, 60)));
}

TEST(CurveShapeTest, EveryCoordinateIsANumberWhateverTheValues)
{
    const Curve curve = curveOf({50, 1e308, -1e308, infinity, 50, -infinity, 50});
    CurveArea fine = area(6);
    fine.y.factor = -1e300;
    for (const CurveArea& where : {area(6), area(1e-6, 3), area(1e-300, 3), fine})
        for (const QLineF& line : curveShape(curve, where).lines)
            for (const double coordinate : {line.x1(), line.y1(), line.x2(), line.y2()})
                EXPECT_LE(std::abs(coordinate), 1e12);
    EXPECT_THAT(curveShape(curve, area(6)).lines, SizeIs(6));
}

/// The columns of 100 that show something, as a text of # and blanks.
std::string shadow(const CurveShape& shape)
{
    std::string text;
    for (const Extent& column : covered(shape))
        text += column.isEmpty() ? ' ' : '#';
    return text;
}

TEST(CurveShapeTest, DashesFollowTheColumnsAndLeaveRoomForTheCapsOfLines)
{
    const CurveArea where = area(100);
    const CurveShape dense{Columns(100, {50, 50}), {}};
    const CurveShape sparse{Columns(100), {QLineF(-50, 50, 30, 50), QLineF(30, 50, 150, 50)}};
    EXPECT_EQ(shadow(dashed(dense, where, 1)).substr(0, 33), "#######    #######    #######    ");
    EXPECT_EQ(shadow(dashed(dense, where, 2)).substr(0, 33), "##############        ###########");
    const std::string dashes = shadow(dashed(sparse, where, 1));
    EXPECT_EQ(dashes.substr(0, 33), " #####      #####      #####     ");
    EXPECT_EQ(dashes.substr(88), " #####      ");
    EXPECT_EQ(shadow(dashed(sparse, where, 2)).substr(0, 33), "  ##########            #########");
}

TEST(CurveShapeTest, DashesStandStillWhereverALineBegins)
{
    const CurveArea where = area(100);
    for (const double begin : {-1e6, -200.0, 3.5, 8.5, 40.0}) {
        const std::string dashes = shadow(dashed({Columns(100), {QLineF(begin, 50, 1e6, 50)}}, where, 1));
        EXPECT_EQ(dashes.substr(44), shadow(dashed({Columns(100), {QLineF(0, 50, 100, 50)}}, where, 1)).substr(44));
    }
    const std::string backwards = shadow(dashed({Columns(100), {QLineF(100, 50, 40, 50)}}, where, 1));
    EXPECT_EQ(backwards.substr(33, 22), "            #####     ");
}

TEST(CurveShapeTest, AStepBetweenTwoDashesIsSeen)
{
    CurveShape shape{Columns(100, {20, 20}), {QLineF(8, 20, 10, 30)}};
    EXPECT_EQ(shadow(dashed(shape, area(100), 1)).substr(7, 4), " ## ");
    shape = {Columns(100, {20, 20}), {}};
    shape.columns[52] = {20, 24};
    EXPECT_EQ(shadow(dashed(shape, area(100), 1))[52], '#');
    shape.columns[52] = {20, 23.9};
    EXPECT_EQ(shadow(dashed(shape, area(100), 1))[52], ' ');
}

TEST(CurveShapeTest, APointBetweenTwoDashesIsSeen)
{
    const CurveShape shape{Columns(100), {QLineF(9, 50, 9, 50)}};
    EXPECT_THAT(dashed(shape, area(100), 1).lines, ElementsAre(QLineF(9, 50, 9, 50)));
}

TEST(CurveShapeTest, ADashOfASlopeLiesOnTheLine)
{
    const CurveShape shape{Columns(100), {QLineF(0, 0, 22, 44)}};
    EXPECT_THAT(dashed(shape, area(100), 1).lines, ElementsAre(QLineF(1, 2, 6, 12), QLineF(12, 24, 17, 34)));
}

TEST(CurveShapeTest, ARoundPenWidensColumns)
{
    Columns columns(7);
    columns[3] = {50, 50};
    const Columns wide = widened(columns, 4);
    EXPECT_TRUE(wide[0].isEmpty());
    EXPECT_EQ(wide[1], (Extent{50, 50}));
    EXPECT_NEAR(wide[2].highest, 50 + std::sqrt(3), 1e-12);
    EXPECT_EQ(wide[3], (Extent{48, 52}));
    EXPECT_NEAR(wide[4].lowest, 50 - std::sqrt(3), 1e-12);
    EXPECT_EQ(wide[5], (Extent{50, 50}));
    EXPECT_TRUE(wide[6].isEmpty());
    columns = {Extent{1, 2}};
    EXPECT_THAT(widened(columns, 4), ElementsAre(Extent{-1, 4}));
}

} // namespace
} // namespace orb
