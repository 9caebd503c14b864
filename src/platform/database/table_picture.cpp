// SPDX-License-Identifier: GPL-3.0-or-later
#include "table_picture.h"

#include "failure.h"
#include "sql_dialect.h"

#include <algorithm>
#include <limits>

namespace orb {

TablePicture::View::View(std::shared_ptr<Connection> open, const QString& tableName)
    : connection(std::move(open)),
      table(tableName),
      quoted(quotedName(tableName.toStdString())),
      bounds(*connection, "SELECT (SELECT min(rowid) FROM " + quoted + "), (SELECT max(rowid) FROM " + quoted + ")"),
      ids(*connection, "SELECT rowid FROM " + quoted + " WHERE rowid > ? ORDER BY rowid"),
      rows(*connection, "SELECT rowid, * FROM " + quoted + " WHERE rowid > ? AND rowid <= ? ORDER BY rowid")
{
    for (int column = 1; column < rows.columnCount(); ++column)
        columns.push_back(rows.columnName(column));
}

void TablePicture::take(std::shared_ptr<Connection> connection, const QString& table)
{
    const TableState state = connection->stateOf(table);
    const bool isSame = view_ && view_->connection == connection && view_->table == table;
    if (isSame && view_->disturbances == state.disturbances) {
        grow(*view_);
    } else {
        auto view = std::make_unique<View>(std::move(connection), table);
        view->disturbances = state.disturbances;
        grow(*view);
        view_ = std::move(view);
        cache_.clear();
    }
}

/// How many rows the table has now. They are counted where no one knows.
std::int64_t TablePicture::rowsOf(View& view)
{
    Connection& connection = *view.connection;
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
        cache_.clear();
    } catch (...) {
        view.index.cutBack(before, lastId);
        throw;
    }
    view.connection->learnRows(view.table, view.index.count());
}

void TablePicture::walk(View& view, RowIndex& index, std::int64_t from)
{
    view.ids.reset();
    view.ids.bind(1, from);
    for (; view.ids.step(); ++rowsRead_)
        index.append(view.ids.integer(0));
}

const RowPage& TablePicture::findPage(std::int64_t row)
{
    const std::int64_t block = row / RowIndex::blockRows;
    const RowPage* known = cache_.find(block);
    return known && known->upTo() >= view_->index.lastIdOf(block) ? *known : readPage(block);
}

/// A page that was the last one of an earlier picture is read on from where it ended.
const RowPage& TablePicture::readPage(std::int64_t block)
{
    RowPage* page = cache_.find(block);
    if (!page) {
        page = &cache_.oldest();
        page->begin(block);
    }
    const int before = page->rowCount();
    const std::int64_t upTo = view_->index.lastIdOf(block);
    view_->rows.reset();
    view_->rows.bind(1, std::max(page->upTo(), view_->index.firstIdOf(block) - 1));
    view_->rows.bind(2, upTo);
    page->extend(view_->rows, upTo);
    rowsRead_ += page->rowCount() - before;
    return *page;
}

std::int64_t TablePicture::find(const QString& criterion)
{
    const std::string condition = translateSql(criterion.toStdString()).sql;
    const std::string limit = std::to_string(view_->index.lastId());
    PreparedStatement query(*view_->connection, "SELECT rowid FROM " + view_->quoted + " WHERE rowid <= " + limit +
                                                    " AND (" + condition + ") ORDER BY rowid LIMIT 1");
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
    const RowPage& rows = page(row);
    const int inPage = rowInPage(row);
    const std::string bytes = text.toStdString();
    const FieldValue value{bytes.empty() ? FieldType::Null : FieldType::Text, 0, 0, bytes};
    const std::string name = quotedName(columns()[static_cast<std::size_t>(column)].toStdString());
    PreparedStatement update(*view_->connection, "UPDATE " + view_->quoted + " SET " + name +
                                                     " = ?1 WHERE rowid = ?2 AND " + name + " IS ?3");
    std::int64_t changed = 0;
    if (inPage < rows.rowCount()) {
        update.bind(1, value);
        update.bind(2, rows.idOf(inPage));
        update.bind(3, rows.value(inPage, column));
        changed = view_->connection->run(update, {{}, RowEffect::Keeps, view_->table.toLower().toStdString()});
    }
    cache_.clear();
    if (changed == 0)
        throw RuntimeFailure(failure::NoCurrentRecord, QStringLiteral("The row was changed or deleted meanwhile"));
}

} // namespace orb
