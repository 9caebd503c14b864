// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "csv.h"
#include "file_table.h"
#include "number_format.h"

#include <functional>
#include <optional>

namespace orb {

/// One setting of a file record: its name, and how its value is written into a cell and read from one.
template <class Record> struct Setting {
    std::string name;
    std::function<std::string(const Record&)> text;
    /// Throws `CsvError` for a cell that is no value.
    std::function<void(Record&, const CsvCell&)> read;
};

/// A setting that is the member `Member` of the record, a number of the type `Field`.
template <class Record, class Field, auto Member> Setting<Record> numberSetting(std::string name, NumberFormat format)
{
    return {std::move(name), [format](const Record& record) { return format.text(Field{record.*Member}); },
            [format](Record& record, const CsvCell& cell) {
                record.*Member = static_cast<Field>(format.read(cell, rangeOf<Field>()));
            }};
}

/// The lines of a table as comma-separated values, sorted by what they are.
struct TableLines {
    /// The value of each setting, by the index of its name; none where it is not given.
    std::vector<std::optional<CsvCell>> settings;
    std::vector<CsvLine> rows;
    std::vector<CsvLine> reserved;
    /// The line after the last one.
    int end = 1;
};

/// Sorts the lines of a text: settings with these names, a line with the heading, then the rows. The last column of the
/// heading may be missing if it is optional. Throws `CsvError` for an unknown or repeated setting, another heading or
/// none, and a line with too many cells.
TableLines readTable(std::string_view csv, const std::vector<std::string>& names, const FileTable::Row& heading,
                     bool lastColumnIsOptional);

template <class Record> std::vector<std::string> namesOf(const std::vector<Setting<Record>>& settings)
{
    std::vector<std::string> names;
    for (const Setting<Record>& setting : settings)
        names.push_back(setting.name);
    return names;
}

template <class Record>
std::vector<FileTable::Row> settingRows(const std::vector<Setting<Record>>& settings, const Record& record)
{
    std::vector<FileTable::Row> rows;
    for (const Setting<Record>& setting : settings)
        rows.push_back({setting.name, setting.text(record)});
    return rows;
}

/// Reads the given settings into the record.
template <class Record>
void readSettings(const std::vector<Setting<Record>>& settings, const TableLines& lines, Record& record)
{
    for (std::size_t index = 0; index < settings.size(); ++index) {
        if (lines.settings[index])
            settings[index].read(record, *lines.settings[index]);
    }
}

} // namespace orb
