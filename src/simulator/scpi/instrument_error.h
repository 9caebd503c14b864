// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>
#include <string>
#include <string_view>

namespace orb {

/// The numbers of the errors that the instrument reports, with their standard texts in `errorText`.
enum class ErrorNumber : int {
    NoError = 0,
    InvalidCharacter = -101,
    SyntaxError = -102,
    InvalidSeparator = -103,
    DataTypeError = -104,
    ParameterNotAllowed = -108,
    MissingParameter = -109,
    HeaderSeparatorError = -111,
    ProgramMnemonicTooLong = -112,
    UndefinedHeader = -113,
    HeaderSuffixOutOfRange = -114,
    NumericDataError = -120,
    InvalidCharacterInNumber = -121,
    ExponentTooLarge = -123,
    TooManyDigits = -124,
    InvalidSuffix = -131,
    SuffixNotAllowed = -138,
    InvalidCharacterData = -141,
    CharacterDataTooLong = -144,
    InvalidStringData = -151,
    InvalidBlockData = -161,
    ExpressionNotAllowed = -178,
    SettingsConflict = -221,
    DataOutOfRange = -222,
    IllegalParameterValue = -224,
    DataCorruptOrStale = -230,
    HardwareMissing = -241,
    FileNameNotFound = -256,
    MediaProtected = -258,
    QueueOverflow = -350,
    InputBufferOverrun = -363,
    QueryDeadlocked = -430,
};

/// All of them, 0 first, in falling order.
std::span<const ErrorNumber> allErrors();

/// The standard text, such as "Undefined header".
std::string_view errorText(ErrorNumber number);

/// As the error queue gives it: -113,"Undefined header".
std::string errorEntry(ErrorNumber number);

/// Thrown while one command is read or executed. It goes into the error queue and nowhere else.
struct CommandFailure {
    ErrorNumber number;
};

} // namespace orb
