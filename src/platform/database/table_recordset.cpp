// SPDX-License-Identifier: GPL-3.0-or-later
#include "table_recordset.h"

#include "failure.h"
#include "table_picture.h"

namespace orb {

TableRecordset::TableRecordset(TablePicture& picture, std::function<void()> moved)
    : picture_(picture), moved_(std::move(moved))
{}

void TableRecordset::restart()
{
    closed_ = false;
    noMatch_ = false;
    position_ = 0;
}

void TableRecordset::demandOpen() const
{
    if (closed_ || !picture_.isOpen())
        throw RuntimeFailure(failure::ObjectClosed);
}

void TableRecordset::demandRow() const
{
    demandOpen();
    if (position_ < 0 || position_ >= picture_.rowCount())
        throw RuntimeFailure(failure::NoCurrentRecord);
}

void TableRecordset::moveTo(std::int64_t position)
{
    position_ = position;
    moved_();
}

bool TableRecordset::isEof() const
{
    demandOpen();
    return position_ >= picture_.rowCount();
}

bool TableRecordset::isBof() const
{
    demandOpen();
    return position_ < 0 || picture_.rowCount() == 0;
}

void TableRecordset::moveFirst()
{
    demandOpen();
    moveTo(0);
}

void TableRecordset::moveLast()
{
    demandOpen();
    moveTo(std::max<std::int64_t>(picture_.rowCount() - 1, 0));
}

void TableRecordset::moveNext()
{
    demandRow();
    moveTo(position_ + 1);
}

void TableRecordset::movePrevious()
{
    demandRow();
    moveTo(position_ - 1);
}

std::int64_t TableRecordset::recordCount()
{
    demandOpen();
    return picture_.rowCount();
}

void TableRecordset::close()
{
    closed_ = true;
}

std::int64_t TableRecordset::position() const
{
    demandOpen();
    return position_ < picture_.rowCount() ? position_ : -1;
}

void TableRecordset::setPosition(std::int64_t position)
{
    demandOpen();
    if (position < 0 || position >= picture_.rowCount())
        throw RuntimeFailure(failure::NoCurrentRecord);
    moveTo(position);
}

void TableRecordset::findFirst(const QString& criterion)
{
    demandOpen();
    const std::int64_t row = picture_.find(criterion);
    noMatch_ = row < 0;
    if (!noMatch_)
        moveTo(row);
}

int TableRecordset::fieldCount() const
{
    demandOpen();
    return picture_.columnCount();
}

QString TableRecordset::fieldName(int column) const
{
    demandOpen();
    demandColumn(column);
    return picture_.columns()[static_cast<std::size_t>(column)];
}

void TableRecordset::demandColumn(int column) const
{
    if (column < 0 || column >= picture_.columnCount())
        throw RuntimeFailure(failure::ItemNotFound);
}

FieldValue TableRecordset::value(int column) const
{
    const bool isThere = !closed_ && picture_.isOpen() && position_ >= 0 && position_ < picture_.rowCount();
    if (!isThere || column < 0 || column >= picture_.columnCount())
        explain(column);
    const RowPage& page = picture_.page(position_);
    const int row = TablePicture::rowInPage(position_);
    if (row >= page.rowCount()) // deleted since the refresh
        explain(column);
    return page.value(row, column);
}

/// Why there is no such value.
void TableRecordset::explain(int column) const
{
    demandRow();
    demandColumn(column);
    throw RuntimeFailure(failure::NoCurrentRecord);
}

} // namespace orb
