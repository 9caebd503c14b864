// SPDX-License-Identifier: GPL-3.0-or-later
#include "table_snapshot.h"

#include "failure.h"
#include "sql_dialect.h"

#include <limits>

namespace orb {

namespace {

constexpr std::int64_t pageRows = 64;
constexpr std::int64_t beforeAllIds = std::numeric_limits<std::int64_t>::min();

FieldValue number(std::int64_t value)
{
    return {FieldType::Integer, value};
}

std::int64_t onlyNumber(PreparedStatement& query)
{
    query.reset();
    query.step();
    const std::int64_t result = query.value(0).integer;
    query.reset();
    return result;
}

bool hasUniqueIndex(const std::shared_ptr<Connection>& connection, const QString& table)
{
    PreparedStatement query(connection, "SELECT 1 FROM pragma_index_list(?) WHERE \"unique\"");
    const std::string name = table.toStdString();
    query.bind(1, {FieldType::Text, 0, 0, name});
    return query.step();
}

} // namespace

TableSnapshot::View::View(const std::shared_ptr<Connection>& open, const QString& tableName)
    : connection(open),
      table(tableName),
      quoted(quotedName(tableName.toStdString())),
      version(open, "PRAGMA data_version"),
      lastId(open, "SELECT max(rowid) FROM " + quoted),
      ids(open, "SELECT rowid FROM " + quoted + " WHERE rowid > ? ORDER BY rowid"),
      rows(open, "SELECT rowid, * FROM " + quoted + " WHERE rowid BETWEEN ? AND ? ORDER BY rowid"),
      hasKey(hasUniqueIndex(open, tableName))
{
    for (int column = 1; column < rows.columnCount(); ++column)
        columns.push_back(rows.columnName(column));
}

const std::vector<QString>& TableSnapshot::columns() const
{
    static const std::vector<QString> none;
    return view_ ? view_->columns : none;
}

void TableSnapshot::take(const std::shared_ptr<Connection>& connection, const QString& table)
{
    if (view_ && view_->connection == connection && view_->table == table) {
        update(*view_);
        return;
    }
    auto view = std::make_unique<View>(connection, table);
    update(*view);
    view_ = std::move(view);
}

/// Compares SQLite's counters with what they were: the version counts the commits of other programs, the changes count
/// the rows that this program has inserted, updated and deleted in any table.
void TableSnapshot::update(View& view)
{
    const std::int64_t version = onlyNumber(view.version);
    const std::int64_t changes = sqlite3_total_changes64(view.connection->handle());
    const bool isOwnWork = version == view.versionSeen;
    if (isOwnWork && changes == view.changesSeen)
        return;
    RowIndex index = view.index;
    if (!isOwnWork || !appendNewIds(view, index, changes - view.changesSeen))
        index = readAllIds(view);
    pages_ = {};
    view.index = std::move(index);
    view.versionSeen = version;
    view.changesSeen = changes;
}

/// Appends the ids after the last known one. False where they are not as many as the changes were, so that something
/// else was changed too. A table with a key is never sure: SQLite does not count the rows that REPLACE removes.
bool TableSnapshot::appendNewIds(View& view, RowIndex& index, std::int64_t changes)
{
    if (view.hasKey || index.count() == 0)
        return false;
    const std::int64_t before = index.count();
    const std::int64_t last = index.idOf(before - 1);
    if (onlyNumber(view.lastId) - last < changes)
        return false;
    walkIds(view, index, last);
    return index.count() - before == changes;
}

/// Where the ids follow one another, as in a log, the count is all that has to be read.
RowIndex TableSnapshot::readAllIds(View& view)
{
    PreparedStatement extent(view.connection, "SELECT (SELECT count(*) FROM " + view.quoted +
                                                  "), (SELECT min(rowid) FROM " + view.quoted +
                                                  "), (SELECT max(rowid) FROM " + view.quoted + ")");
    extent.step();
    const std::int64_t count = extent.value(0).integer;
    const std::int64_t first = extent.value(1).integer;
    const std::int64_t last = extent.value(2).integer;
    extent.reset();
    rowsRead_ += count;
    RowIndex index;
    if (count > 0 && last - first == count - 1)
        index.append(first, count);
    else
        walkIds(view, index, beforeAllIds);
    return index;
}

void TableSnapshot::walkIds(View& view, RowIndex& index, std::int64_t after)
{
    view.ids.reset();
    view.ids.bind(1, number(after));
    for (; view.ids.step(); ++rowsRead_)
        index.append(view.ids.value(0).integer);
}

const FieldValue* TableSnapshot::cells(std::int64_t row)
{
    const std::int64_t block = row / pageRows;
    const auto place = static_cast<std::size_t>(row % pageRows);
    Page& page = pages_[static_cast<std::size_t>(block) % pages_.size()];
    if (page.block != block)
        readPage(page, block);
    return page.isThere[place] ? &page.cells[place * columns().size()] : nullptr;
}

void TableSnapshot::readPage(Page& page, std::int64_t block)
{
    const std::int64_t first = block * pageRows;
    const std::int64_t count = std::min(pageRows, rowCount() - first);
    page = {};
    page.cells.resize(static_cast<std::size_t>(count) * columns().size());
    page.isThere.resize(static_cast<std::size_t>(count));
    PreparedStatement& rows = view_->rows;
    rows.reset();
    rows.bind(1, number(view_->index.idOf(first)));
    rows.bind(2, number(view_->index.idOf(first + count - 1)));
    for (; rows.step(); ++rowsRead_) {
        const std::int64_t row = view_->index.rowOf(rows.value(0).integer);
        if (row < 0) // inserted between the others since
            continue;
        const auto place = static_cast<std::size_t>(row - first);
        page.isThere[place] = true;
        for (std::size_t column = 0; column < columns().size(); ++column) {
            FieldValue value = rows.value(static_cast<int>(column) + 1);
            value.text = page.texts.emplace_back(value.text);
            page.cells[place * columns().size() + column] = value;
        }
    }
    page.block = block; // not before it is whole
}

std::int64_t TableSnapshot::find(const QString& criterion)
{
    const std::string condition = translateSql(criterion.toStdString());
    PreparedStatement query(view_->connection,
                            "SELECT rowid FROM " + view_->quoted + " WHERE (" + condition + ") ORDER BY rowid LIMIT 1");
    query.requireNoParameters();
    const bool found = query.step();
    rowsRead_ += query.rowsScanned();
    return found ? view_->index.rowOf(query.value(0).integer) : -1;
}

void TableSnapshot::change(std::int64_t row, int column, const QString& text)
{
    const std::string bytes = text.toStdString();
    const std::string name = quotedName(columns()[static_cast<std::size_t>(column)].toStdString());
    PreparedStatement update(view_->connection, "UPDATE " + view_->quoted + " SET " + name +
                                                    " = ?1 WHERE rowid = ?2 AND " + name + " IS ?3");
    std::int64_t changed = 0;
    if (const FieldValue* before = cells(row)) {
        update.bind(1, {bytes.empty() ? FieldType::Null : FieldType::Text, 0, 0, bytes});
        update.bind(2, number(view_->index.idOf(row)));
        update.bind(3, before[column]);
        update.step();
        changed = sqlite3_changes64(view_->connection->handle());
    }
    view_->changesSeen += changed;
    pages_ = {};
    if (changed == 0)
        throw RuntimeFailure(failure::NoCurrentRecord, QStringLiteral("The row was changed or deleted meanwhile"));
}

} // namespace orb
