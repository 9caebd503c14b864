// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "program_message.h"

#include <span>

namespace orb {

/// The units that may stand behind a number, with the usual prefixes.
enum class Unit { None, Volt, Ampere, Ohm, Watt, Second, AmperePerMicrosecond };

/// What a number may be, and what DEFault stands for.
struct NumberLimits {
    double lowest = 0;
    double highest = 0;
    double fallback = 0;
};

/// One command as its handler sees it: the numbers behind the header's nodes and the parameters. The readers throw
/// `CommandFailure` where a parameter is not what they read. The count of the parameters has been checked before.
class CommandCall {
public:
    /// `suffixes` and `parameters` must outlive the call.
    CommandCall(std::span<const std::optional<int>> suffixes, std::span<const Parameter> parameters)
        : suffixes_(suffixes), parameters_(parameters)
    {}

    /// The number behind the given node of the header, counted from 0 among the nodes that can have one; `otherwise`
    /// where none was given. Error -114 outside of `lowest` to `highest`.
    int suffix(std::size_t slot, int otherwise, int lowest, int highest) const;

    std::size_t parameterCount() const { return parameters_.size(); }
    /// A number with or without a unit, or MINimum, MAXimum or DEFault. Error -222 outside of the limits.
    double number(std::size_t index, Unit unit, const NumberLimits& limits) const;
    /// What MINimum, MAXimum or DEFault stands for: the parameter of a query for the limits.
    double limit(std::size_t index, const NumberLimits& limits) const;
    /// Whether the parameter is one of these words, in any letter case.
    bool isWord(std::size_t index, std::span<const std::string_view> mnemonics) const;
    /// A number that is rounded to a whole one.
    int integer(std::size_t index, const NumberLimits& limits) const;
    /// ON, OFF, or a number: 0 is off.
    bool boolean(std::size_t index) const;
    /// The index of the word among the mnemonics; -224 where it is none of them. A whole number is taken as the word
    /// that it spells.
    std::size_t choice(std::size_t index, std::span<const std::string_view> mnemonics) const;

private:
    std::span<const std::optional<int>> suffixes_;
    std::span<const Parameter> parameters_;
};

} // namespace orb
