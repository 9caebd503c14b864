// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "message_unit.h"

#include <span>

namespace orb {

/// The units that may follow a number, with the usual multipliers.
enum class Unit { None, Volt, Ampere, Ohm, Watt, Second, AmperePerMicrosecond };

/// The limits of a number, and what DEFault stands for.
struct NumberLimits {
    double lowest = 0;
    double highest = 0;
    double fallback = 0;
};

/// One command as its handler sees it: the numbers after the header's nodes, and the parameters. The readers throw
/// `CommandFailure` for a parameter of another kind. The number of parameters has been checked before.
class CommandCall {
public:
    /// `suffixes` and `parameters` must outlive the call.
    CommandCall(std::span<const std::optional<int>> suffixes, std::span<const Parameter> parameters)
        : suffixes_(suffixes), parameters_(parameters)
    {}

    /// The number after the given node of the header, counted from 0 among the nodes that can have one; `otherwise`
    /// where there is none. Error -114 outside of `lowest` to `highest`.
    int suffix(std::size_t slot, int otherwise, int lowest, int highest) const;

    std::size_t parameterCount() const { return parameters_.size(); }
    /// A number with or without a unit, or MINimum, MAXimum or DEFault. Error -222 outside of the limits.
    double number(std::size_t index, Unit unit, const NumberLimits& limits) const;
    /// The answer to a query for a number: what MINimum, MAXimum or DEFault stands for, or `value` where the query
    /// has no parameter.
    double limitOr(double value, const NumberLimits& limits) const;
    /// The text of a string, the bytes of a block. Error -104 for any other parameter.
    std::string_view string(std::size_t index) const { return textOf(index, Parameter::Kind::String); }
    std::string_view block(std::size_t index) const { return textOf(index, Parameter::Kind::Block); }
    /// Whether the parameter is one of these words, in any letter case.
    bool isWord(std::size_t index, std::span<const std::string_view> mnemonics) const;
    /// A number that is rounded to a whole one.
    int integer(std::size_t index, const NumberLimits& limits) const;
    /// ON, OFF, or a number: 0 is off.
    bool boolean(std::size_t index) const;
    /// The index of the word among the mnemonics; -224 where it is none of them. A number is compared as it is
    /// written.
    std::size_t choice(std::size_t index, std::span<const std::string_view> mnemonics) const;

private:
    std::string_view textOf(std::size_t index, Parameter::Kind kind) const;

    std::span<const std::optional<int>> suffixes_;
    std::span<const Parameter> parameters_;
};

} // namespace orb
