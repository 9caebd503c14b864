// SPDX-License-Identifier: GPL-3.0-or-later
#include "instrument_error.h"

#include <algorithm>
#include <array>

namespace orb {

namespace {

struct ErrorRow {
    ErrorNumber number;
    std::string_view text;
};

constexpr ErrorRow rows[] = {
    {ErrorNumber::NoError, "No error"},
    {ErrorNumber::InvalidCharacter, "Invalid character"},
    {ErrorNumber::SyntaxError, "Syntax error"},
    {ErrorNumber::InvalidSeparator, "Invalid separator"},
    {ErrorNumber::DataTypeError, "Data type error"},
    {ErrorNumber::ParameterNotAllowed, "Parameter not allowed"},
    {ErrorNumber::MissingParameter, "Missing parameter"},
    {ErrorNumber::HeaderSeparatorError, "Header separator error"},
    {ErrorNumber::ProgramMnemonicTooLong, "Program mnemonic too long"},
    {ErrorNumber::UndefinedHeader, "Undefined header"},
    {ErrorNumber::HeaderSuffixOutOfRange, "Header suffix out of range"},
    {ErrorNumber::NumericDataError, "Numeric data error"},
    {ErrorNumber::InvalidCharacterInNumber, "Invalid character in number"},
    {ErrorNumber::ExponentTooLarge, "Exponent too large"},
    {ErrorNumber::TooManyDigits, "Too many digits"},
    {ErrorNumber::InvalidSuffix, "Invalid suffix"},
    {ErrorNumber::SuffixNotAllowed, "Suffix not allowed"},
    {ErrorNumber::InvalidCharacterData, "Invalid character data"},
    {ErrorNumber::CharacterDataTooLong, "Character data too long"},
    {ErrorNumber::InvalidStringData, "Invalid string data"},
    {ErrorNumber::InvalidBlockData, "Invalid block data"},
    {ErrorNumber::ExpressionNotAllowed, "Expression data not allowed"},
    {ErrorNumber::SettingsConflict, "Settings conflict"},
    {ErrorNumber::DataOutOfRange, "Data out of range"},
    {ErrorNumber::IllegalParameterValue, "Illegal parameter value"},
    {ErrorNumber::DataCorruptOrStale, "Data corrupt or stale"},
    {ErrorNumber::HardwareMissing, "Hardware missing"},
    {ErrorNumber::FileNameNotFound, "File name not found"},
    {ErrorNumber::MediaProtected, "Media protected"},
    {ErrorNumber::QueueOverflow, "Queue overflow"},
    {ErrorNumber::InputBufferOverrun, "Input buffer overrun"},
    {ErrorNumber::QueryDeadlocked, "Query DEADLOCKED"},
};

constexpr auto numbers = [] {
    std::array<ErrorNumber, std::size(rows)> all{};
    std::ranges::transform(rows, all.begin(), &ErrorRow::number);
    return all;
}();

} // namespace

std::span<const ErrorNumber> allErrors()
{
    return numbers;
}

std::string_view errorText(ErrorNumber number)
{
    const auto row = std::ranges::find(rows, number, &ErrorRow::number);
    return row == std::end(rows) ? "Device-specific error" : row->text;
}

std::string errorEntry(ErrorNumber number)
{
    return std::to_string(static_cast<int>(number)) + ",\"" + std::string(errorText(number)) + '"';
}

} // namespace orb
