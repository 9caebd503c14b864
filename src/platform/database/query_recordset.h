// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "prepared_statement.h"

#include <string>

namespace orb {

/// The rows of a query, read from the file one at a time as the recordset moves: memory is that of one row. Going back
/// to the first row runs the query again, and a count runs it once more beside.
class QueryRecordset final : public Recordset {
public:
    /// `sql` is one query in SQLite's words. Throws 3075 for a statement that gives no rows or changes any.
    QueryRecordset(Connection& connection, const std::string& sql);

    bool isEof() const override;
    void moveFirst() override;
    void moveLast() override;
    void moveNext() override;
    std::int64_t recordCount() override;
    void close() override;

    int fieldCount() const override;
    QString fieldName(int column) const override;
    FieldValue value(int column) const override;

private:
    PreparedStatement& query() const;
    void demandColumn(int column) const;
    [[noreturn]] void explain(int column) const;

    std::string sql_;
    std::unique_ptr<PreparedStatement> query_;
    int fieldCount_ = 0;
    bool onRow_ = false;
};

} // namespace orb
