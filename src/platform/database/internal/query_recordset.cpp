// SPDX-License-Identifier: GPL-3.0-or-later
#include "query_recordset.h"

#include "failure.h"

namespace orb {

QueryRecordset::QueryRecordset(std::shared_ptr<Connection> connection, std::string_view sql)
    : query_(std::move(connection), sql), fieldCount_(query_.columnCount())
{
    if (fieldCount_ == 0 || !query_.isReadOnly())
        throw RuntimeFailure(failure::StatementFailed, QStringLiteral("The statement is no query"));
    query_.requireNoParameters();
    onRow_ = query_.step();
}

bool QueryRecordset::isEof() const
{
    query_.columnCount(); // throws once closed
    return !onRow_;
}

void QueryRecordset::moveNext()
{
    if (isEof())
        throw RuntimeFailure(failure::NoCurrentRecord);
    onRow_ = false; // where the step fails
    onRow_ = query_.step();
}

int QueryRecordset::fieldCount() const
{
    return query_.columnCount();
}

QString QueryRecordset::fieldName(int column) const
{
    return query_.columnName(column);
}

FieldValue QueryRecordset::value(int column) const
{
    if (column < 0 || column >= fieldCount_)
        throw RuntimeFailure(failure::ItemNotFound);
    if (!onRow_)
        throw RuntimeFailure(failure::NoCurrentRecord);
    return query_.value(column);
}

} // namespace orb
