// SPDX-License-Identifier: GPL-3.0-or-later
#include "table_picture.h"

#include "connection.h"
#include "failure.h"
#include "sql_dialect.h"

#include <limits>

namespace orb {

TablePicture::View::View(std::unique_ptr<Database> openDatabase, const QString& tableName)
    : database(std::move(openDatabase)),
      table(tableName),
      quoted(quotedName(tableName.toStdString())),
      bounds(*database->connection(),
             "SELECT (SELECT min(rowid) FROM " + quoted + "), (SELECT max(rowid) FROM " + quoted + ")"),
      ids(*database->connection(), "SELECT rowid FROM " + quoted + " WHERE rowid > ? ORDER BY rowid"),
      rows(*database->connection(), "SELECT rowid, * FROM " + quoted + " WHERE rowid BETWEEN ? AND ? ORDER BY rowid")
{
    for (int column = 1; column < rows.columnCount(); ++column)
        columns.push_back(rows.columnName(column));
}

bool TablePicture::View::isOf(const Database& other, const QString& tableName) const
{
    return database->isOpen() && database->connection() == other.connection() &&
           table.compare(tableName, Qt::CaseInsensitive) == 0;
}

void TablePicture::take(std::unique_ptr<Database> database, const QString& table)
{
    const TableState state = database->connection()->stateOf(table);
    if (view_ && view_->isOf(*database, table) && view_->disturbances == state.disturbances) {
        grow(*view_);
    } else {
        auto view = std::make_unique<View>(std::move(database), table);
        view->disturbances = state.disturbances;
        grow(*view);
        view_ = std::move(view);
    }
    cache_.clear();
}

/// How many rows the table has now. They are counted where no one knows.
std::int64_t TablePicture::rowsOf(View& view)
{
    Connection& connection = *view.database->connection();
    if (const auto known = connection.stateOf(view.table).rows)
        return *known;
    PreparedStatement count(connection, "SELECT count(*) FROM " + view.quoted);
    count.step();
    const std::int64_t rows = count.integer(0);
    rowsRead_ += rows;
    connection.learnRows(view.table, rows);
    return rows;
}

/// True where the ids of all the rows follow one another, which needs no look at the rows.
bool TablePicture::isRun(View& view, std::int64_t rows)
{
    view.bounds.step();
    const std::int64_t first = view.bounds.integer(0);
    const std::int64_t last = view.bounds.integer(1);
    view.bounds.reset();
    if (rows > 0 && last - first == rows - 1) {
        view.index.appendRun(rows, last);
        return true;
    }
    return false;
}

/// Takes in what came behind the rows that the view has. Where that is not all that was added, new rows stand between
/// the old ones, and each is looked at.
void TablePicture::grow(View& view)
{
    const std::int64_t rows = rowsOf(view);
    const std::int64_t before = view.index.count();
    if (before == 0 && isRun(view, rows))
        return;
    const std::int64_t lastId = before > 0 ? view.index.lastId() : std::numeric_limits<std::int64_t>::min();
    try {
        walk(view, view.index, lastId);
        if (view.index.count() == rows)
            return;
        RowIndex all;
        walk(view, all, std::numeric_limits<std::int64_t>::min());
        view.index = std::move(all);
    } catch (...) {
        view.index.cutBack(before, lastId);
        throw;
    }
    view.database->connection()->learnRows(view.table, view.index.count());
}

void TablePicture::walk(View& view, RowIndex& index, std::int64_t from)
{
    view.ids.reset();
    view.ids.bind(1, from);
    for (; view.ids.step(); ++rowsRead_)
        index.append(view.ids.integer(0));
}

RowPage& TablePicture::page(std::int64_t row)
{
    const std::int64_t block = row / RowIndex::blockRows;
    if (RowPage* known = cache_.find(block))
        return *known;
    RowPage& page = cache_.oldest();
    view_->rows.reset();
    view_->rows.bind(1, view_->index.firstIdOf(block));
    view_->rows.bind(2, view_->index.lastIdOf(block));
    page.read(block, view_->rows);
    rowsRead_ += page.rowCount();
    return page;
}

FieldValue TablePicture::value(std::int64_t row, int column)
{
    const RowPage& rows = page(row);
    const auto inPage = static_cast<int>(row % RowIndex::blockRows);
    return inPage < rows.rowCount() ? rows.value(inPage, column) : FieldValue{};
}

std::int64_t TablePicture::find(const QString& criterion)
{
    const std::string condition = translateSql(criterion.toStdString()).sql;
    const std::string limit = std::to_string(view_->index.lastId());
    PreparedStatement query(*view_->database->connection(), "SELECT rowid FROM " + view_->quoted +
                                                                " WHERE rowid <= " + limit + " AND (" + condition +
                                                                ") ORDER BY rowid LIMIT 1");
    query.refuseParameters();
    const bool found = query.step() && rowCount() > 0;
    rowsRead_ += query.rowsScanned();
    if (!found)
        return -1;
    const std::int64_t id = query.integer(0);
    const std::int64_t firstRow = view_->index.blockOfId(id) * RowIndex::blockRows;
    const int inPage = firstRow < 0 ? -1 : page(firstRow).rowOfId(id);
    return inPage < 0 ? -1 : firstRow + inPage;
}

void TablePicture::change(std::int64_t row, int column, const QString& text)
{
    Connection& connection = *view_->database->connection();
    if (!has(row))
        throw RuntimeFailure(failure::NoCurrentRecord);
    const std::int64_t id = page(row).idOf(static_cast<int>(row % RowIndex::blockRows));
    const std::string name = quotedName(columns()[static_cast<std::size_t>(column)].toStdString());
    PreparedStatement update(connection, "UPDATE " + view_->quoted + " SET " + name + " = ? WHERE rowid = ?");
    const std::string bytes = text.toStdString();
    text.isEmpty() ? update.bindNull(1) : update.bind(1, bytes);
    update.bind(2, id);
    const std::int64_t changed = connection.run(update, {{}, RowEffect::Keeps, view_->table.toLower().toStdString()});
    cache_.clear();
    if (changed == 0)
        throw RuntimeFailure(failure::NoCurrentRecord);
}

} // namespace orb
