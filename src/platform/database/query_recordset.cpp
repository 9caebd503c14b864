// SPDX-License-Identifier: GPL-3.0-or-later
#include "query_recordset.h"

#include "connection.h"
#include "failure.h"

namespace orb {

QueryRecordset::QueryRecordset(Connection& connection, const std::string& sql)
    : sql_(sql), query_(std::make_unique<PreparedStatement>(connection, sql)), fieldCount_(query_->columnCount())
{
    if (fieldCount_ == 0 || !query_->isReadOnly())
        throw RuntimeFailure(failure::StatementFailed, QStringLiteral("The statement is no query"));
    query_->refuseParameters();
    onRow_ = query_->step();
}

PreparedStatement& QueryRecordset::query() const
{
    if (!query_ || !query_->isOpen())
        throw RuntimeFailure(failure::ObjectClosed);
    return *query_;
}

bool QueryRecordset::isEof() const
{
    query();
    return !onRow_;
}

void QueryRecordset::moveFirst()
{
    query().reset();
    onRow_ = false;
    onRow_ = query_->step();
}

void QueryRecordset::moveNext()
{
    if (isEof())
        throw RuntimeFailure(failure::NoCurrentRecord);
    onRow_ = false;
    onRow_ = query_->step();
}

void QueryRecordset::moveLast()
{
    const std::int64_t count = recordCount();
    moveFirst();
    for (std::int64_t row = 1; row < count && onRow_; ++row)
        moveNext();
}

std::int64_t QueryRecordset::recordCount()
{
    PreparedStatement counting(query().connection(), sql_);
    std::int64_t count = 0;
    while (counting.step())
        ++count;
    return count;
}

void QueryRecordset::close()
{
    query_.reset();
}

int QueryRecordset::fieldCount() const
{
    query();
    return fieldCount_;
}

void QueryRecordset::demandColumn(int column) const
{
    if (column < 0 || column >= fieldCount_)
        throw RuntimeFailure(failure::ItemNotFound);
}

QString QueryRecordset::fieldName(int column) const
{
    demandColumn(column);
    return query().columnName(column);
}

FieldValue QueryRecordset::value(int column) const
{
    if (!onRow_ || !query_ || !query_->isOpen() || column < 0 || column >= fieldCount_)
        explain(column);
    return query_->value(column);
}

/// Why there is no such value.
void QueryRecordset::explain(int column) const
{
    demandColumn(column);
    query();
    throw RuntimeFailure(failure::NoCurrentRecord);
}

} // namespace orb
