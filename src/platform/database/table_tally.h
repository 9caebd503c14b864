// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "sql_dialect.h"

#include <cstdint>
#include <map>
#include <optional>

namespace orb {

/// What is known of a table without looking at it.
struct TableState {
    /// How many rows it has, if that is known.
    std::optional<std::int64_t> rows;
    /// Differs from what it was before as soon as anything but new rows may have come to the table since.
    std::uint64_t disturbances = 0;
};

/// Keeps count of the rows of tables by what the statements do to them, so that no one has to count a long table after
/// each row that is added. Table names are in lower case.
class TableTally {
public:
    /// `statement` was run and has changed `rows` rows of its own table, and of no other.
    void note(const SqlStatement& statement, std::int64_t rows);
    /// Anything may have happened to any table.
    void forgetAll();
    /// The table has been counted.
    void learn(const std::string& table, std::int64_t rows) { tables_[table].rows = rows; }

    TableState state(const std::string& table) const;

private:
    std::map<std::string, TableState> tables_;
    std::uint64_t upheavals_ = 0;
};

} // namespace orb
