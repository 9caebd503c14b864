// SPDX-License-Identifier: GPL-3.0-or-later
#include "table_recordset.h"

#include "database.h"
#include "failure.h"
#include "table_snapshot.h"

namespace orb {

TableRecordset::TableRecordset(std::function<void()> moved)
    : snapshot_(std::make_unique<TableSnapshot>()), moved_(std::move(moved))
{}

TableRecordset::~TableRecordset() = default;

void TableRecordset::refresh(const Database& database, const QString& table)
{
    snapshot_->take(database.connection(), table);
    position_ = 0;
}

bool TableRecordset::isOpen() const
{
    return snapshot_->isOpen();
}

const std::vector<QString>& TableRecordset::columns() const
{
    return snapshot_->columns();
}

void TableRecordset::requireOpen() const
{
    if (!isOpen())
        throw RuntimeFailure(failure::ObjectClosed);
}

void TableRecordset::requireCell(std::int64_t row, int column) const
{
    requireOpen();
    if (row < 0 || row >= snapshot_->rowCount())
        throw RuntimeFailure(failure::NoCurrentRecord);
    if (column < 0 || column >= fieldCount())
        throw RuntimeFailure(failure::ItemNotFound);
}

void TableRecordset::moveTo(std::int64_t position)
{
    position_ = position;
    moved_();
}

bool TableRecordset::isEof() const
{
    return position() < 0;
}

void TableRecordset::moveFirst()
{
    requireOpen();
    moveTo(0);
}

void TableRecordset::moveLast()
{
    moveTo(std::max<std::int64_t>(recordCount() - 1, 0));
}

void TableRecordset::moveNext()
{
    if (isEof())
        throw RuntimeFailure(failure::NoCurrentRecord);
    moveTo(position_ + 1);
}

std::int64_t TableRecordset::recordCount() const
{
    requireOpen();
    return snapshot_->rowCount();
}

std::int64_t TableRecordset::position() const
{
    return position_ < recordCount() ? position_ : -1;
}

void TableRecordset::setPosition(std::int64_t position)
{
    if (position < 0 || position >= recordCount())
        throw RuntimeFailure(failure::NoCurrentRecord);
    moveTo(position);
}

void TableRecordset::findFirst(const QString& criterion)
{
    requireOpen();
    const std::int64_t row = snapshot_->find(criterion);
    if (row >= 0)
        moveTo(row);
}

int TableRecordset::fieldCount() const
{
    requireOpen();
    return static_cast<int>(columns().size());
}

QString TableRecordset::fieldName(int column) const
{
    return columns()[static_cast<std::size_t>(column)];
}

FieldValue TableRecordset::value(int column) const
{
    requireCell(position_, column);
    const FieldValue* cells = snapshot_->cells(position_);
    if (!cells) // deleted since the refresh
        throw RuntimeFailure(failure::NoCurrentRecord);
    return cells[column];
}

FieldValue TableRecordset::valueAt(std::int64_t row, int column) const
{
    requireCell(row, column);
    const FieldValue* cells = snapshot_->cells(row);
    return cells ? cells[column] : FieldValue{};
}

void TableRecordset::setValueAt(std::int64_t row, int column, const QString& text)
{
    requireCell(row, column);
    snapshot_->change(row, column, text);
}

std::int64_t TableRecordset::rowId(std::int64_t row) const
{
    requireCell(row, 0);
    return snapshot_->idOf(row);
}

std::int64_t TableRecordset::rowsRead() const
{
    return snapshot_->rowsRead();
}

} // namespace orb
