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

std::size_t skipSpace(std::string_view text, std::size_t at)
{
    while (at < text.size() && ascii::isSpace(text[at]))
        ++at;
    return at;
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

/// The place after the exponent that follows the mantissa, which ends at `at`; `at` where there is no exponent.
std::size_t endOfExponent(std::string_view text, std::size_t at)
{
    const std::size_t letter = skipSpace(text, at);
    if (letter == text.size() || ascii::upper(text[letter]) != 'E')
        return at;
    const std::size_t digits = skipSign(text, skipSpace(text, letter + 1));
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

/// The value of a hexadecimal digit, 16 for any other character.
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
    std::string digits(text.substr(0, end));
    std::erase_if(digits, ascii::isSpace);
    // Qt reads a number in the same way in every locale.
    bool fits = false;
    number.value = QByteArray::fromStdString(digits).toDouble(&fits);
    // A number that no double holds reads as 0 where the exponent makes it small. Else it is above every limit.
    if (!fits && digits.find('-', 1) == std::string::npos)
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
