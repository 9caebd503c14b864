// SPDX-License-Identifier: GPL-3.0-or-later
#include "command_call.h"

#include "instrument_error.h"

#include <gtest/gtest.h>

#include <cmath>

namespace orb {
namespace {

constexpr NumberLimits anyNumber{-HUGE_VAL, HUGE_VAL, 0};

/// The only parameter of a message, read as a number with that unit.
double numberIn(const std::string& parameter, Unit unit, const NumberLimits& limits = anyNumber)
{
    const std::string message = "A " + parameter;
    const MessageUnit read = readUnit(message);
    return CommandCall({}, read.parameters).number(0, unit, limits);
}

ErrorNumber errorIn(const std::string& parameter, Unit unit, const NumberLimits& limits = anyNumber)
{
    try {
        numberIn(parameter, unit, limits);
    } catch (const CommandFailure& failure) {
        return failure.number;
    }
    return ErrorNumber::NoError;
}

constexpr std::pair<Unit, const char*> units[] = {
    {Unit::Volt, "V"}, {Unit::Ampere, "A"}, {Unit::Ohm, "OHM"},
    {Unit::Watt, "W"}, {Unit::Second, "S"}, {Unit::AmperePerMicrosecond, "A/US"},
};

TEST(CommandCallTest, EveryUnitMayHaveEveryMultiplierInAnyLetterCase)
{
    const std::pair<const char*, double> multipliers[] = {
        {"N", 1e-9}, {"n", 1e-9}, {"U", 1e-6}, {"u", 1e-6}, {"K", 1e3}, {"k", 1e3}, {"MA", 1e6}, {"ma", 1e6}, {"", 1},
    };
    for (const auto& [unit, name] : units) {
        for (const auto& [multiplier, factor] : multipliers)
            EXPECT_DOUBLE_EQ(numberIn(std::string("2.5") + multiplier + name, unit), 2.5 * factor)
                << multiplier << name;
    }
}

TEST(CommandCallTest, MIsMilliButMegaBeforeOhm)
{
    for (const auto& [unit, name] : units) {
        const double factor = unit == Unit::Ohm ? 1e6 : 1e-3;
        EXPECT_DOUBLE_EQ(numberIn(std::string("2.5M") + name, unit), 2.5 * factor) << name;
        EXPECT_DOUBLE_EQ(numberIn(std::string("2.5 m") + name, unit), 2.5 * factor) << name;
    }
}

TEST(CommandCallTest, AnotherMultiplierOrUnitIsAnError)
{
    for (const auto& [unit, name] : units) {
        EXPECT_EQ(errorIn(std::string("1X") + name, unit), ErrorNumber::InvalidSuffix) << name;
        EXPECT_EQ(errorIn("1HZ", unit), ErrorNumber::InvalidSuffix) << name;
        EXPECT_EQ(errorIn(std::string("1") + name, Unit::None), ErrorNumber::SuffixNotAllowed) << name;
    }
    EXPECT_DOUBLE_EQ(numberIn("7", Unit::None), 7);
}

TEST(CommandCallTest, ANumberMayBeAtItsLimitsAndNotBeyond)
{
    const NumberLimits limits{-1, 5, 2};
    EXPECT_DOUBLE_EQ(numberIn("-1", Unit::Volt, limits), -1);
    EXPECT_DOUBLE_EQ(numberIn("5", Unit::Volt, limits), 5);
    EXPECT_EQ(errorIn("-1.001", Unit::Volt, limits), ErrorNumber::DataOutOfRange);
    EXPECT_EQ(errorIn("5.001", Unit::Volt, limits), ErrorNumber::DataOutOfRange);
    EXPECT_DOUBLE_EQ(numberIn("MIN", Unit::Volt, limits), -1);
    EXPECT_DOUBLE_EQ(numberIn("maximum", Unit::Volt, limits), 5);
    EXPECT_DOUBLE_EQ(numberIn("Def", Unit::Volt, limits), 2);
}

TEST(CommandCallTest, AStringAndABlockAreReadAsWhatTheyAre)
{
    const MessageUnit read = readUnit("A \"one\",#13two");
    const CommandCall call({}, read.parameters);
    EXPECT_EQ(call.string(0), "one");
    EXPECT_EQ(call.block(1), "two");
    EXPECT_THROW(call.string(1), CommandFailure);
    EXPECT_THROW(call.block(0), CommandFailure);
}

} // namespace
} // namespace orb
