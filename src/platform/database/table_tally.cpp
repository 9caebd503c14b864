// SPDX-License-Identifier: GPL-3.0-or-later
#include "table_tally.h"

namespace orb {

void TableTally::note(const SqlStatement& statement, std::int64_t rows)
{
    if (statement.effect == RowEffect::Unknown) {
        forgetAll();
        return;
    }
    if (statement.effect == RowEffect::Keeps)
        return;
    TableState& table = tables_[statement.table];
    if (statement.effect == RowEffect::Adds) {
        if (table.rows)
            *table.rows += rows;
        return;
    }
    ++table.disturbances;
    if (statement.effect == RowEffect::RemovesAll)
        table.rows = 0;
    else if (table.rows)
        *table.rows -= rows;
}

void TableTally::forgetAll()
{
    ++upheavals_;
    for (auto& [name, table] : tables_)
        table.rows.reset();
}

TableState TableTally::state(const std::string& table) const
{
    const auto known = tables_.find(table);
    TableState state = known == tables_.end() ? TableState{} : known->second;
    state.disturbances += upheavals_;
    return state;
}

} // namespace orb
