// SPDX-License-Identifier: GPL-3.0-or-later
#include "command_call.h"

#include "ascii.h"
#include "instrument_error.h"
#include "mnemonic.h"

#include <cmath>

namespace orb {

namespace {

struct Multiplier {
    std::string_view text;
    double factor;
};

// MA is mega, M alone is milli. The letters of the unit follow, so that MA is milliampere and MAA megaampere.
constexpr Multiplier multipliers[] = {
    {"", 1},     {"EX", 1e18}, {"PE", 1e15}, {"T", 1e12},  {"G", 1e9},   {"MA", 1e6},  {"K", 1e3},
    {"M", 1e-3}, {"U", 1e-6},  {"N", 1e-9},  {"P", 1e-12}, {"F", 1e-15}, {"A", 1e-18},
};

[[noreturn]] void fail(ErrorNumber number)
{
    throw CommandFailure{number};
}

std::string_view nameOf(Unit unit)
{
    switch (unit) {
    case Unit::Volt:
        return "V";
    case Unit::Ampere:
        return "A";
    case Unit::Ohm:
        return "OHM";
    case Unit::Watt:
        return "W";
    case Unit::Second:
        return "S";
    case Unit::AmperePerMicrosecond:
        return "A/US";
    default:
        return "";
    }
}

/// The factor of the unit after a number.
double factorOf(std::string_view suffix, Unit unit)
{
    if (suffix.empty())
        return 1;
    if (unit == Unit::None)
        fail(ErrorNumber::SuffixNotAllowed);
    const std::string_view name = nameOf(unit);
    if (suffix.size() < name.size() || !ascii::sameText(suffix.substr(suffix.size() - name.size()), name))
        fail(ErrorNumber::InvalidSuffix);
    const std::string_view before = suffix.substr(0, suffix.size() - name.size());
    // Before this unit alone M is mega.
    if (unit == Unit::Ohm && ascii::sameText(before, "M"))
        return 1e6;
    for (const Multiplier& multiplier : multipliers) {
        if (ascii::sameText(multiplier.text, before))
            return multiplier.factor;
    }
    fail(ErrorNumber::InvalidSuffix);
}

double namedNumber(std::string_view word, const NumberLimits& limits)
{
    if (isMnemonic("MINimum", word))
        return limits.lowest;
    if (isMnemonic("MAXimum", word))
        return limits.highest;
    if (isMnemonic("DEFault", word))
        return limits.fallback;
    fail(ErrorNumber::IllegalParameterValue);
}

} // namespace

int CommandCall::suffix(std::size_t slot, int otherwise, int lowest, int highest) const
{
    const int value = slot < suffixes_.size() ? suffixes_[slot].value_or(otherwise) : otherwise;
    if (value < lowest || value > highest)
        fail(ErrorNumber::HeaderSuffixOutOfRange);
    return value;
}

double CommandCall::number(std::size_t index, Unit unit, const NumberLimits& limits) const
{
    const Parameter& parameter = parameters_[index];
    if (parameter.kind == Parameter::Kind::Word)
        return namedNumber(parameter.text, limits);
    if (parameter.kind != Parameter::Kind::Number)
        fail(ErrorNumber::DataTypeError);
    const double value = parameter.number * factorOf(parameter.suffix, unit);
    if (!(value >= limits.lowest && value <= limits.highest))
        fail(ErrorNumber::DataOutOfRange);
    return value;
}

double CommandCall::limitOr(double value, const NumberLimits& limits) const
{
    if (parameters_.empty())
        return value;
    if (parameters_[0].kind != Parameter::Kind::Word)
        fail(ErrorNumber::DataTypeError);
    return namedNumber(parameters_[0].text, limits);
}

std::string_view CommandCall::textOf(std::size_t index, Parameter::Kind kind) const
{
    if (parameters_[index].kind != kind)
        fail(ErrorNumber::DataTypeError);
    return parameters_[index].text;
}

bool CommandCall::isWord(std::size_t index, std::span<const std::string_view> mnemonics) const
{
    const Parameter& parameter = parameters_[index];
    return parameter.kind == Parameter::Kind::Word &&
           std::ranges::any_of(mnemonics, [&](std::string_view each) { return isMnemonic(each, parameter.text); });
}

int CommandCall::integer(std::size_t index, const NumberLimits& limits) const
{
    const NumberLimits rounded{limits.lowest - 0.5, std::nextafter(limits.highest + 0.5, 0), limits.fallback};
    const double value = number(index, Unit::None, rounded);
    return static_cast<int>(std::round(std::clamp(value, limits.lowest, limits.highest)));
}

bool CommandCall::boolean(std::size_t index) const
{
    const Parameter& parameter = parameters_[index];
    if (parameter.kind == Parameter::Kind::Word) {
        constexpr std::string_view words[] = {"OFF", "ON"};
        return choice(index, words) == 1;
    }
    constexpr double any = HUGE_VAL;
    return std::round(number(index, Unit::None, {-any, any, 0})) != 0;
}

std::size_t CommandCall::choice(std::size_t index, std::span<const std::string_view> mnemonics) const
{
    const Parameter& parameter = parameters_[index];
    if (parameter.kind == Parameter::Kind::String || parameter.kind == Parameter::Kind::Block)
        fail(ErrorNumber::DataTypeError);
    const std::string_view word = parameter.text;
    const auto found = std::ranges::find_if(mnemonics, [&](std::string_view each) { return isMnemonic(each, word); });
    if (found == mnemonics.end())
        fail(ErrorNumber::IllegalParameterValue);
    return static_cast<std::size_t>(found - mnemonics.begin());
}

} // namespace orb
