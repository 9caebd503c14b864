// SPDX-License-Identifier: GPL-3.0-or-later
#include "number_reader.h"

#include "ascii.h"
#include "instrument_error.h"

#include <QByteArray>

namespace orb {

namespace {

constexpr std::size_t maxDigits = 255;
constexpr std::size_t maxSuffix = 12;
constexpr int maxExponent = 32000;
constexpr std::size_t maxNonDecimalDigits = 32;

[[noreturn]] void fail(ErrorNumber number)
{
    throw CommandFailure{number};
}

std::size_t skipSign(std::string_view text, std::size_t at)
{
    return at < text.size() && (text[at] == '+' || text[at] == '-') ? at + 1 : at;
}

std::size_t skipDigits(std::string_view text, std::size_t at)
{
    while (at < text.size() && ascii::isDigit(text[at]))
        ++at;
    return at;
}

std::size_t endOfMantissa(std::string_view text)
{
    const std::size_t begin = skipSign(text, 0);
    const std::size_t point = skipDigits(text, begin);
    std::size_t end = point;
    std::size_t digits = point - begin;
    if (end < text.size() && text[end] == '.') {
        end = skipDigits(text, point + 1);
        digits += end - point - 1;
    }
    if (digits == 0)
        fail(ErrorNumber::NumericDataError);
    if (digits > maxDigits)
        fail(ErrorNumber::TooManyDigits);
    return end;
}

/// The place behind the exponent that begins at `at`, or `at` where none begins.
std::size_t endOfExponent(std::string_view text, std::size_t at)
{
    if (at == text.size() || ascii::upper(text[at]) != 'E')
        return at;
    const std::size_t digits = skipSign(text, at + 1);
    const std::size_t end = skipDigits(text, digits);
    if (end == digits)
        return at;
    int exponent = 0;
    for (std::size_t i = digits; i < end; ++i) {
        exponent = exponent * 10 + (text[i] - '0');
        if (exponent > maxExponent)
            fail(ErrorNumber::ExponentTooLarge);
    }
    return end;
}

void checkSuffix(std::string_view suffix)
{
    if (suffix.empty())
        return;
    if (!ascii::isLetter(suffix.front()))
        fail(ErrorNumber::InvalidCharacterInNumber);
    const bool isUnit = std::ranges::all_of(suffix, [](char c) { return ascii::isLetter(c) || c == '/'; });
    if (!isUnit || suffix.size() > maxSuffix)
        fail(ErrorNumber::InvalidSuffix);
}

/// The value of a digit in any base up to sixteen, 16 where it is none.
int digitValue(char c)
{
    if (ascii::isDigit(c))
        return c - '0';
    const char letter = ascii::upper(c);
    return letter >= 'A' && letter <= 'F' ? letter - 'A' + 10 : 16;
}

int baseOf(char letter)
{
    switch (ascii::upper(letter)) {
    case 'H':
        return 16;
    case 'Q':
        return 8;
    case 'B':
        return 2;
    default:
        fail(ErrorNumber::InvalidBlockData);
    }
}

} // namespace

DecimalNumber readDecimal(std::string_view text)
{
    const std::size_t end = endOfExponent(text, endOfMantissa(text));
    DecimalNumber number;
    number.suffix = ascii::trimmed(text.substr(end));
    checkSuffix(number.suffix);
    // Qt reads a number in the same way whatever the locale is.
    const std::string_view digits = text.substr(0, end);
    bool held = false;
    number.value = QByteArray::fromRawData(digits.data(), static_cast<qsizetype>(end)).toDouble(&held);
    // What no double holds is 0 where the exponent makes it small, and larger than any limit where it does not.
    if (!held && digits.find('-', 1) == std::string_view::npos)
        fail(ErrorNumber::DataOutOfRange);
    return number;
}

double readNonDecimal(std::string_view text)
{
    if (text.size() < 3)
        fail(ErrorNumber::NumericDataError);
    const int base = baseOf(text[1]);
    const std::string_view digits = text.substr(2);
    if (digits.size() > maxNonDecimalDigits)
        fail(ErrorNumber::TooManyDigits);
    double value = 0;
    for (const char c : digits) {
        if (digitValue(c) >= base)
            fail(ErrorNumber::InvalidCharacterInNumber);
        value = value * base + digitValue(c);
    }
    return value;
}

} // namespace orb
