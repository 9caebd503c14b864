// SPDX-License-Identifier: GPL-3.0-or-later
#include "file_table.h"

#include "csv.h"

#include <algorithm>

namespace orb {

namespace {

using Row = FileTable::Row;

std::vector<std::size_t> widthsOf(const std::vector<Row>& rows)
{
    std::vector<std::size_t> widths;
    for (const Row& row : rows) {
        widths.resize(std::max(widths.size(), row.size()));
        for (std::size_t column = 0; column < row.size(); ++column)
            widths[column] = std::max(widths[column], row[column].size());
    }
    return widths;
}

/// `toTheRight`: the cells stand at the right of their columns, as numbers do.
std::string aligned(const std::vector<Row>& rows, bool toTheRight)
{
    const std::vector<std::size_t> widths = widthsOf(rows);
    std::string text;
    for (const Row& row : rows) {
        for (std::size_t column = 0; column < row.size(); ++column) {
            const std::string padding(widths[column] - row[column].size(), ' ');
            text += column > 0 ? "  " : "";
            text += toTheRight ? padding + row[column] : row[column] + padding;
        }
        text.erase(text.find_last_not_of(' ') + 1);
        text += '\n';
    }
    return text;
}

} // namespace

std::string csvOf(const FileTable& table)
{
    std::string text;
    for (const Row& setting : table.settings)
        text += csvLine(setting);
    text += csvLine(table.heading);
    for (const auto* rows : {&table.rows, &table.reserved}) {
        for (const Row& row : *rows)
            text += csvLine(row);
    }
    return text;
}

std::string alignedText(const FileTable& table)
{
    std::vector<Row> rows = table.rows;
    rows.insert(rows.begin(), table.heading);
    return aligned(table.settings, false) + '\n' + aligned(rows, true);
}

} // namespace orb
