// SPDX-License-Identifier: GPL-3.0-or-later
#include "number_format.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <optional>

namespace orb {

namespace {

constexpr std::string_view rawWord = "raw ";
constexpr std::int64_t millionths = 1'000'000;

/// The whole text as a number; nothing where it is none.
template <class Number, class... Base> std::optional<Number> numberIn(std::string_view text, Base... base)
{
    Number number{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number, base...);
    if (error != std::errc{} || end != text.data() + text.size())
        return std::nullopt;
    return number;
}

/// A number of millionths as a decimal number without zeros at its end.
std::string decimalOf(std::int64_t number)
{
    std::string text = std::to_string(number / millionths);
    std::string decimals = std::to_string(number % millionths + millionths).substr(1);
    decimals.erase(decimals.find_last_not_of('0') + 1);
    return decimals.empty() ? text : text + '.' + decimals;
}

std::string_view afterRaw(const CsvCell& cell)
{
    return std::string_view(cell.text).substr(rawWord.size());
}

std::int64_t readRaw(const CsvCell& cell, WholeRange field)
{
    const auto number = numberIn<std::int64_t>(afterRaw(cell));
    if (!number || !field.holds(*number))
        cell.fail(cell.text + " is no number from raw " + std::to_string(field.lowest) + " to raw " +
                  std::to_string(field.highest));
    return *number;
}

bool isPlain(char c)
{
    constexpr std::string_view quotes = "'\",";
    return c >= ' ' && c <= '~' && quotes.find(c) == std::string_view::npos;
}

std::string joined(const std::vector<std::string>& words)
{
    std::string list;
    for (const std::string& word : words)
        list += (list.empty() ? "" : ", ") + word;
    return list;
}

} // namespace

NumberFormat NumberFormat::words(std::vector<std::string> words, int first, std::string examples)
{
    NumberFormat format;
    format.range_ = {first, first + static_cast<std::int64_t>(words.size()) - 1};
    format.message_ = examples.empty() ? "none of " + joined(words) : std::move(examples);
    format.words_ = std::move(words);
    return format;
}

NumberFormat NumberFormat::whole(WholeRange range, int offset)
{
    NumberFormat format;
    format.range_ = range;
    format.offset_ = offset;
    format.message_ = "no whole number from " + format.text(range.lowest) + " to " + format.text(range.highest);
    return format;
}

NumberFormat NumberFormat::steps(WholeRange range, double step)
{
    NumberFormat format;
    format.range_ = range;
    format.step_ = static_cast<double>(std::llround(step * millionths)) / millionths;
    format.message_ = "no number from " + format.text(range.lowest) + " to " + format.text(range.highest);
    return format;
}

NumberFormat NumberFormat::rawOnly(std::string reason)
{
    NumberFormat format;
    format.message_ = "not raw: " + std::move(reason);
    return format;
}

std::string NumberFormat::text(std::int64_t number) const
{
    if (!range_.holds(number))
        return rawText(number);
    if (!words_.empty())
        return words_[static_cast<std::size_t>(number - range_.lowest)];
    if (step_ > 0)
        return decimalOf(number * std::llround(step_ * millionths));
    return std::to_string(number + offset_);
}

std::int64_t NumberFormat::read(const CsvCell& cell, WholeRange field) const
{
    if (isRaw(cell))
        return readRaw(cell, field);
    return words_.empty() ? readNumber(cell) : readWord(cell);
}

std::int64_t NumberFormat::readWord(const CsvCell& cell) const
{
    const auto word = std::ranges::find_if(words_, [&](const std::string& each) { return sameWord(each, cell.text); });
    if (word == words_.end())
        cell.fail('"' + cell.text + "\" is " + message_);
    return range_.lowest + (word - words_.begin());
}

std::int64_t NumberFormat::readNumber(const CsvCell& cell) const
{
    const auto value = numberIn<double>(cell.text);
    const double inSteps = step_ > 0 ? std::round(value.value_or(0) / step_) : value.value_or(0) - offset_;
    const bool isInRange =
        inSteps >= static_cast<double>(range_.lowest) && inSteps <= static_cast<double>(range_.highest);
    if (!value || !isInRange || inSteps != std::round(inSteps))
        cell.fail('"' + cell.text + "\" is " + message_);
    return static_cast<std::int64_t>(inSteps);
}

std::string rawText(std::int64_t number)
{
    return std::string(rawWord) + std::to_string(number);
}

std::string rawText(std::string_view bytes)
{
    constexpr std::string_view digits = "0123456789abcdef";
    std::string text(rawWord);
    for (const char each : bytes) {
        const auto byte = static_cast<unsigned char>(each);
        text += digits[byte / 16];
        text += digits[byte % 16];
        text += ' ';
    }
    text.pop_back();
    return text;
}

bool isRaw(const CsvCell& cell)
{
    return sameWord(std::string_view(cell.text).substr(0, rawWord.size()), rawWord);
}

std::string readRawBytes(const CsvCell& cell)
{
    std::string bytes;
    std::string_view rest = isRaw(cell) ? afterRaw(cell) : "";
    do {
        const std::size_t end = std::min(rest.find(' '), rest.size());
        const auto byte = end == 2 ? numberIn<unsigned char>(rest.substr(0, end), 16) : std::nullopt;
        if (!byte)
            cell.fail('"' + cell.text + "\" is not the word raw and bytes of two hexadecimal digits");
        bytes += static_cast<char>(*byte);
        rest.remove_prefix(std::min(end + 1, rest.size()));
    } while (!rest.empty());
    return bytes;
}

std::string charactersText(std::string_view characters)
{
    return std::ranges::all_of(characters, isPlain) ? '\'' + std::string(characters) + '\'' : rawText(characters);
}

std::string readCharacters(const CsvCell& cell, std::size_t count)
{
    std::string characters = isRaw(cell) ? readRawBytes(cell) : cell.text;
    const bool isQuoted = characters.size() > 1 && characters.front() == '\'' && characters.back() == '\'';
    if (!isRaw(cell) && isQuoted)
        characters = characters.substr(1, characters.size() - 2);
    if (characters.size() != count)
        cell.fail('"' + cell.text + "\" is not " + std::to_string(count) + " characters");
    return characters;
}

} // namespace orb
