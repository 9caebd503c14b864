// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "csv.h"

#include <cstdint>
#include <limits>

namespace orb {

/// From the lowest to the highest whole number, both included; none where the highest is lower.
struct WholeRange {
    std::int64_t lowest = 0;
    std::int64_t highest = -1;

    bool holds(std::int64_t number) const { return number >= lowest && number <= highest; }
};

/// All numbers of a type.
template <class T> constexpr WholeRange rangeOf()
{
    return {std::numeric_limits<T>::min(), std::numeric_limits<T>::max()};
}

/// How a number of an instrument file is written in a cell: as a word, a whole number, or a decimal number. Every number
/// has one text, and its text is read back as the same number. A number that is outside of what the format is for is
/// written as it stands in the file, after the word "raw".
class NumberFormat {
public:
    /// The word of index i for the number `first` + i. `examples` is what an error message names; all words if empty.
    static NumberFormat words(std::vector<std::string> words, int first = 0, std::string examples = {});
    /// A number of the range, plus `offset`.
    static NumberFormat whole(WholeRange range, int offset = 0);
    /// A number of the range, times `step`, a multiple of 0.000001. What is read is rounded to the nearest step.
    static NumberFormat steps(WholeRange range, double step);
    /// No number has another text than "raw"; `reason` says why in an error message.
    static NumberFormat rawOnly(std::string reason);

    std::string text(std::int64_t number) const;
    /// Throws `CsvError` for a cell that is no such text, and for a number outside of `field`.
    std::int64_t read(const CsvCell& cell, WholeRange field) const;

private:
    std::int64_t readWord(const CsvCell& cell) const;
    std::int64_t readNumber(const CsvCell& cell) const;

    WholeRange range_;
    std::vector<std::string> words_;
    std::string message_;
    int offset_ = 0;
    double step_ = 0; // 0 where the format is none of steps
};

/// A number as it stands in the file.
std::string rawText(std::int64_t number);
/// The same for bytes, in hexadecimal: "raw 0a ff".
std::string rawText(std::string_view bytes);
bool isRaw(const CsvCell& cell);

/// Characters between apostrophes, so that a spreadsheet does not take them for a number; "raw" where one of them is
/// not printable or would need quotation marks.
std::string charactersText(std::string_view characters);
/// Reads what `charactersText` writes; the apostrophes may be missing. Throws `CsvError` where these are not `count`
/// characters.
std::string readCharacters(const CsvCell& cell, std::size_t count);
/// Reads the bytes that `rawText` writes. Throws `CsvError` for any other text.
std::string readRawBytes(const CsvCell& cell);

} // namespace orb
