// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

namespace orb {

/// The content of an instrument file as text.
struct FileTable {
    using Row = std::vector<std::string>;

    /// Name and value of each setting.
    std::vector<Row> settings;
    /// The points or steps, and what their columns hold.
    Row heading;
    std::vector<Row> rows;
    /// The bytes without a meaning that are not 0: their place and their values.
    std::vector<Row> reserved;
};

/// The whole table as comma-separated values.
std::string csvOf(const FileTable& table);

/// The settings and the rows in columns, to be read in a terminal.
std::string alignedText(const FileTable& table);

} // namespace orb
