// SPDX-License-Identifier: GPL-3.0-or-later
#include "curve_marks.h"

#include <gmock/gmock.h>

#include <cmath>
#include <string>

namespace orb {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// A hundred columns from x 0 on, a unit each, and a hundred rows in which a value is its height above the lower edge.
const CurveArea hundred{{0, 1, 0}, {0, -1, 100}, 100, 100};

struct Shaped {
    Curve curve;
    CurveShape shape;
};

Shaped shaped(std::vector<double> values, double start = 0, double increment = 1)
{
    Shaped result;
    result.curve.assign(std::move(values), start, increment);
    result.shape = curveShape(result.curve, hundred);
    return result;
}

/// "top 10, right 50"
std::string exits(const Shaped& shaped, double scale = 1)
{
    static constexpr std::array names{"top", "bottom", "left", "right"};
    std::string text;
    for (const CurveExit& exit : curveExits(shaped.shape, shaped.curve.xExtent(), hundred, scale))
        text +=
            (text.empty() ? "" : ", ") + std::string(names.at(exit.edge)) + ' ' + std::to_string(std::lround(exit.at));
    return text;
}

/// Values of one height with another from `from` to before `end`.
std::vector<double> step(double low, double high, int from, int end, int count = 100)
{
    std::vector<double> values(static_cast<std::size_t>(count), low);
    std::fill(values.begin() + from, values.begin() + end, high);
    return values;
}

TEST(CurveMarksTest, ACurveThatStaysInTheAreaLeavesItNowhere)
{
    EXPECT_EQ(exits(shaped({0, 100, 50}, 0, 45)), "");
    EXPECT_EQ(exits(shaped({})), "");
    EXPECT_EQ(exits(shaped({std::nan(""), std::nan("")}, 0, 45)), "");
}

TEST(CurveMarksTest, ALineIsMarkedWhereItCrossesTheUpperOrTheLowerEdge)
{
    EXPECT_EQ(exits(shaped({51, 151}, 0, 90)), "top 45");
    EXPECT_EQ(exits(shaped({49, -51}, 0, 90)), "bottom 45");
    EXPECT_EQ(exits(shaped({151, 51}, 0, 90)), "top 0") << "it is outside from its first point on";
    EXPECT_EQ(exits(shaped({50, 150, 50, -50}, 0, 30)), "top 15, bottom 75");
}

TEST(CurveMarksTest, DensePointsAreMarkedWhereTheyBeginToLieOutside)
{
    EXPECT_EQ(exits(shaped(step(50, 130, 400, 900, 1000), 0, 0.1)), "top 40");
    EXPECT_EQ(exits(shaped(step(50, -30, 300, 1000, 1000), 0, 0.1)), "bottom 30");
    EXPECT_EQ(exits(shaped(std::vector<double>(1000, 200), 0, 0.1)), "top 0");
}

TEST(CurveMarksTest, ALineCutByLessThanItsWidthIsNotMarked)
{
    EXPECT_EQ(exits(shaped({50, 100.9}, 0, 90)), "");
    EXPECT_EQ(exits(shaped({50, -0.9}, 0, 90)), "");
    EXPECT_EQ(exits(shaped(std::vector<double>(1000, 100.9), 0, 0.1)), "");
    EXPECT_EQ(exits(shaped({50, 102}, 0, 90), 2.5), "");
}

TEST(CurveMarksTest, StretchesThatLieCloseHaveOneMark)
{
    std::vector<double> values = step(50, 130, 20, 25);
    values[45] = 130; // 20 columns after the last
    values[80] = 130; // 34 columns after that
    EXPECT_EQ(exits(shaped(values)), "top 20, top 80");
}

TEST(CurveMarksTest, ACurveThatGoesOnBeyondTheTimesShownIsMarkedAtItsHeight)
{
    EXPECT_EQ(exits(shaped({30, 30}, -50, 100)), "left 70");
    EXPECT_EQ(exits(shaped({30, 30}, 50, 100)), "right 70");
    EXPECT_EQ(exits(shaped(std::vector<double>(3000, 30), -100, 0.1)), "left 70, right 70");
    EXPECT_EQ(exits(shaped(std::vector<double>(1000, 30), 0, 0.1)), "");
}

TEST(CurveMarksTest, ACurveOutsideAtTheEndOfTheTimesHasNoMarkThere)
{
    EXPECT_EQ(exits(shaped({150, 150}, 50, 100)), "top 50");
}

TEST(CurveMarksTest, ACurveOutOfTheTimesShownHasNoMark)
{
    EXPECT_EQ(exits(shaped({150, 150}, -300, 100)), "");
    EXPECT_EQ(exits(shaped({30, 150}, 300, 100)), "");
}

TEST(CurveMarksTest, TheHeightOfACurveIsThatOfItsLineOrTheMiddleOfItsColumn)
{
    EXPECT_EQ(curveHeight(shaped({0, 90}, 0, 90).shape, hundred, 30), 70);
    EXPECT_EQ(curveHeight(shaped({20, 40, 20, 40}, 30, 0.3).shape, hundred, 30), 70);
    EXPECT_EQ(curveHeight(shaped({0, 90}, 0, 40).shape, hundred, 41), std::nullopt);
    EXPECT_EQ(curveHeight(shaped({120, 120}, 0, 90).shape, hundred, 30), std::nullopt);
    EXPECT_EQ(curveHeight(shaped({-20, -20}, 0, 90).shape, hundred, 30), std::nullopt);
    EXPECT_EQ(curveHeight(shaped({20, 20}, 0, 90).shape, hundred, -1), std::nullopt);
    EXPECT_EQ(curveHeight(shaped({20, 20}, 0, 300).shape, hundred, 100), std::nullopt);
}

TEST(CurveMarksTest, MarksStandAtEveryPeriodWhereTheCurveIs)
{
    EXPECT_THAT(markPlaces(shaped({0, 90}, 0, 90).shape, hundred, 10, 30),
                ElementsAre(QPointF(10, 90), QPointF(40, 60), QPointF(70, 30)));
    EXPECT_THAT(markPlaces(shaped({0, 45}, 0, 45).shape, hundred, 10, 30),
                ElementsAre(QPointF(10, 90), QPointF(40, 60)));
}

TEST(CurveMarksTest, ACurveThatReachesNoPeriodHasItsMarkInItsMiddle)
{
    EXPECT_THAT(markPlaces(shaped({50, 50}, 10, 20).shape, hundred, 60, 90), ElementsAre(QPointF(20, 50)));
    EXPECT_THAT(markPlaces(shaped(std::vector<double>(101, 50.0), 10, 0.2).shape, hundred, 60, 90),
                ElementsAre(QPointF(20, 50)));
    EXPECT_THAT(markPlaces(shaped({}).shape, hundred, 60, 90), IsEmpty());
    EXPECT_THAT(markPlaces(shaped({150, 150}, 10, 20).shape, hundred, 60, 90), IsEmpty());
}

} // namespace
} // namespace orb
