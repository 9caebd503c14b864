// SPDX-License-Identifier: GPL-3.0-or-later
#include "table_lines.h"

#include "reserved_bytes.h"

#include <algorithm>

namespace orb {

namespace {

void requireCellsUpTo(const CsvLine& line, std::size_t count)
{
    if (line.cells.size() > count)
        line.cells[count].fail('"' + line.cells[count].text + "\" is one cell too many");
}

void readSetting(const CsvLine& line, const std::vector<std::string>& names, TableLines& lines)
{
    const CsvCell& name = line.first();
    const auto found = std::ranges::find_if(names, [&](const std::string& each) { return sameWord(each, name.text); });
    if (found == names.end())
        name.fail("no setting is called \"" + name.text + '"');
    requireCellsUpTo(line, 2);
    std::optional<CsvCell>& value = lines.settings[static_cast<std::size_t>(found - names.begin())];
    if (value)
        name.fail("\"" + *found + "\" has been set in line " + std::to_string(value->line));
    value = line.at(1);
}

void requireHeading(const CsvLine& line, const FileTable::Row& heading, bool lastColumnIsOptional)
{
    requireCellsUpTo(line, heading.size());
    const std::size_t required = heading.size() - (lastColumnIsOptional ? 1 : 0);
    for (std::size_t column = 0; column < std::max(required, line.cells.size()); ++column) {
        const CsvCell cell = line.at(column);
        if (!sameWord(cell.text, heading[column]))
            cell.fail("this column is \"" + heading[column] + "\", not \"" + cell.text + '"');
    }
}

} // namespace

TableLines readTable(std::string_view csv, const std::vector<std::string>& names, const FileTable::Row& heading,
                     bool lastColumnIsOptional)
{
    TableLines lines;
    lines.settings.resize(names.size());
    bool inTable = false;
    for (const CsvLine& line : readCsv(csv)) {
        lines.end = line.first().line + 1;
        if (isReservedLine(line)) {
            requireCellsUpTo(line, 2);
            lines.reserved.push_back(line);
        } else if (inTable) {
            requireCellsUpTo(line, heading.size());
            lines.rows.push_back(line);
        } else if (sameWord(line.first().text, heading.front())) {
            requireHeading(line, heading, lastColumnIsOptional);
            inTable = true;
        } else {
            readSetting(line, names, lines);
        }
    }
    if (!inTable)
        throw CsvError(lines.end, 1, "there is no line that begins with " + heading.front());
    return lines;
}

} // namespace orb
