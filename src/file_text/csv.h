// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace orb {

/// What is wrong in a text file: "line 3, column 2: 12x is no number". Lines, and the cells of a line, count from 1.
class CsvError : public std::runtime_error {
public:
    CsvError(int line, int column, const std::string& reason);
};

/// One cell of a file of comma-separated values, without quotation marks and without blanks around it.
struct CsvCell {
    std::string text;
    int line = 0;
    int column = 0;

    /// Throws `CsvError` for this place.
    [[noreturn]] void fail(const std::string& reason) const;
};

/// One line that is not empty; it has at least one cell.
struct CsvLine {
    std::vector<CsvCell> cells;

    const CsvCell& first() const { return cells.front(); }
    /// The cell of that index; an empty one where the line has no such cell.
    CsvCell at(std::size_t index) const;
};

/// Reads comma-separated values. Lines end in LF, CR or both; a cell may stand between quotation marks, and a quotation
/// mark in it is doubled then. Empty lines and empty cells at the end of a line are left out. A byte order mark is
/// skipped. Throws `CsvError` for a quotation mark that is not closed or is followed by text.
std::vector<CsvLine> readCsv(std::string_view text);

/// One line of comma-separated values with a line feed, with quotation marks where a cell needs them.
std::string csvLine(const std::vector<std::string>& cells);

/// Equal without regard to the case of letters.
bool sameWord(std::string_view a, std::string_view b);

} // namespace orb
