// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "recordset.h"

#include <functional>

namespace orb {

class TablePicture;

/// The rows of a data control, with a place that can be moved at will: a place costs the same wherever it is.
class TableRecordset final : public Recordset {
public:
    /// `picture` must outlive it. `moved` is called after every move.
    TableRecordset(TablePicture& picture, std::function<void()> moved);

    bool isEof() const override;
    bool isBof() const;
    void moveFirst() override;
    void moveLast() override;
    void moveNext() override;
    /// To the row before, or in front of the first one. Throws 3021 where there is no current row.
    void movePrevious();
    std::int64_t recordCount() override;
    /// Leaves no row to move to until the data control's next refresh.
    void close() override;

    /// The current row, counted from 0; -1 where there is none.
    std::int64_t position() const;
    /// Throws 3021 outside of 0 ... `recordCount` - 1.
    void setPosition(std::int64_t position);

    /// To the first row that meets `criterion`, the text of a condition such as "SeqNo=70" in the dialect of the
    /// statements. Where no row does, the current row stays and `noMatch` tells it.
    void findFirst(const QString& criterion);
    bool noMatch() const { return noMatch_; }

    int fieldCount() const override;
    QString fieldName(int column) const override;
    FieldValue value(int column) const override;

    /// Called by the data control after a refresh: the current row is the first one.
    void restart();

private:
    void demandOpen() const;
    void demandRow() const;
    void demandColumn(int column) const;
    [[noreturn]] void explain(int column) const;
    void moveTo(std::int64_t position);

    TablePicture& picture_;
    std::function<void()> moved_;
    std::int64_t position_ = 0;
    bool noMatch_ = false;
    bool closed_ = false;
};

} // namespace orb
