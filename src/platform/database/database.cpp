// SPDX-License-Identifier: GPL-3.0-or-later
#include "database.h"

#include "connection.h"
#include "failure.h"
#include "prepared_statement.h"
#include "query_recordset.h"
#include "sql_dialect.h"

namespace orb {

void Database::execute(const QString& sql) const
{
    PreparedStatement statement(connection(), translateSql(sql.toStdString()));
    statement.requireNoParameters();
    if (statement.columnCount() > 0)
        throw RuntimeFailure(failure::StatementFailed, QStringLiteral("The statement returns rows"));
    statement.step();
}

std::unique_ptr<Recordset> Database::openRecordset(const QString& sql) const
{
    return std::make_unique<QueryRecordset>(connection(), translateSql(sql.toStdString()));
}

void Database::close()
{
    connection_.reset();
}

bool Database::isOpen() const
{
    return connection_ && connection_->isOpen();
}

const std::shared_ptr<Connection>& Database::connection() const
{
    if (!isOpen())
        throw RuntimeFailure(failure::ObjectClosed);
    return connection_;
}

} // namespace orb
