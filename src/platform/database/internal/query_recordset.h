// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "prepared_statement.h"

namespace orb {

/// The rows of a query, read from the file one at a time: memory is that of one row.
class QueryRecordset final : public Recordset {
public:
    /// `sql` is one query in SQLite's dialect. Throws 3075 for a statement that returns no rows or changes any.
    QueryRecordset(std::shared_ptr<Connection> connection, std::string_view sql);

    bool isEof() const override;
    void moveNext() override;
    int fieldCount() const override;
    QString fieldName(int column) const override;
    FieldValue value(int column) const override;

private:
    PreparedStatement query_;
    int fieldCount_;
    bool onRow_ = false;
};

} // namespace orb
