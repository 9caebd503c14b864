// SPDX-License-Identifier: GPL-3.0-or-later
#include "load_module.h"

#include <gmock/gmock.h>

#include <cmath>
#include <vector>

namespace orb {
namespace {

void expectWholeSteps(const ValueRange& range, std::string_view module)
{
    const double steps = range.highest / range.step;
    EXPECT_NEAR(steps, std::round(steps), 1e-6) << module << " " << range.highest;
    EXPECT_LT(range.lowest, range.highest) << module;
}

TEST(LoadModuleTest, ThereAreNineModules)
{
    std::vector<std::string_view> names;
    for (const LoadModule& module : loadModules())
        names.push_back(module.name);
    EXPECT_THAT(names, testing::ElementsAre("K11", "K11AB", "K12A", "K12B", "K13", "K14", "K15", "K16", "K17"));
}

TEST(LoadModuleTest, EveryModuleHasACoherentDataSheet)
{
    for (const LoadModule& module : loadModules()) {
        for (const RangePair& pair : module.values) {
            for (const ValueRange& range : pair) {
                if (range.exists())
                    expectWholeSteps(range, module.name);
            }
            EXPECT_TRUE(pair[1].exists()) << module.name;
            EXPECT_LT(pair[0].highest, pair[1].highest) << module.name;
        }
        EXPECT_LT(module.maxPower, module.maxVoltage() * module.maxCurrent()) << module.name;
        EXPECT_GT(module.onResistance, 0) << module.name;
        EXPECT_EQ(module.slewRate[0].exists(), module.values[0][0].exists()) << module.name;
    }
}

TEST(LoadModuleTest, AModuleIsFoundInAnyLetterCase)
{
    EXPECT_EQ(findLoadModule("k12b"), findLoadModule("K12B"));
    EXPECT_EQ(findLoadModule("K12B")->name, "K12B");
    EXPECT_EQ(findLoadModule("K12"), nullptr);
    EXPECT_EQ(findLoadModule(""), nullptr);
}

TEST(LoadModuleTest, K12AHasTheHighRangeOnly)
{
    const LoadModule& module = *findLoadModule("K12A");
    EXPECT_FALSE(module.range(LoadFunction::Current, LoadRange::Low).exists());
    EXPECT_TRUE(module.range(LoadFunction::Current, LoadRange::High).exists());
}

TEST(ValueRangeTest, AValueIsRoundedToTheNearestStepOfTheRange)
{
    constexpr ValueRange range{0.5, 20, 0.005};
    EXPECT_DOUBLE_EQ(range.nearest(1.2374), 1.235);
    EXPECT_DOUBLE_EQ(range.nearest(1.2376), 1.24);
    EXPECT_DOUBLE_EQ(range.nearest(0), 0.5);
    EXPECT_DOUBLE_EQ(range.nearest(99), 20);
}

} // namespace
} // namespace orb
