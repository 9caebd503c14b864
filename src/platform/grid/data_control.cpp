// SPDX-License-Identifier: GPL-3.0-or-later
#include "data_control.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QToolButton>

#include <algorithm>

namespace orb {

DataControl::DataControl(Workspace& workspace, QWidget* parent)
    : Control<QWidget>(parent),
      workspace_(workspace),
      label_(new QLabel),
      recordset_([this] { notify(&DataObserver::sourceMoved); })
{
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    label_->setAlignment(Qt::AlignCenter);
    layout->addWidget(makeButton(QStringLiteral("First record"), Qt::UpArrow, [] { return 0; }));
    layout->addWidget(makeButton(QStringLiteral("Previous record"), Qt::LeftArrow, [this] { return place() - 1; }));
    layout->addWidget(label_, 1);
    layout->addWidget(makeButton(QStringLiteral("Next record"), Qt::RightArrow, [this] { return place() + 1; }));
    layout->addWidget(makeButton(QStringLiteral("Last record"), Qt::DownArrow, [this] { return rowCount() - 1; }));
}

DataControl::~DataControl()
{
    notify(&DataObserver::sourceDestroyed);
}

/// `target` gives the row that a press goes to; one beyond an end goes to that end.
QToolButton* DataControl::makeButton(const QString& name, Qt::ArrowType arrow, std::function<std::int64_t()> target)
{
    auto* button = new QToolButton(this);
    button->setArrowType(arrow);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::NoFocus); // the keys of the grid do the same
    button->setToolTip(name);
    button->setAccessibleName(name);
    button->setObjectName(name);
    QObject::connect(button, &QToolButton::clicked, this, [this, target] {
        enter([&] {
            if (rowCount() > 0)
                recordset_.setPosition(std::clamp<std::int64_t>(target(), 0, rowCount() - 1));
        });
    });
    return button;
}

/// The current row, or the one after the last.
std::int64_t DataControl::place() const
{
    return recordset_.isEof() ? rowCount() : recordset_.position();
}

QString DataControl::caption() const
{
    return label_->text();
}

void DataControl::setCaption(const QString& caption)
{
    label_->setText(caption);
}

void DataControl::refresh()
{
    if (databaseName_.isEmpty())
        throw RuntimeFailure(failure::DatabaseNotFound, QStringLiteral("The data control names no database"));
    if (recordSource_.isEmpty())
        throw RuntimeFailure(failure::StatementFailed, QStringLiteral("The data control names no record source"));
    recordset_.refresh(workspace_.openDatabase(databaseName_), recordSource_);
    if (rowCount() == 0 || editedTable_ != databaseName_ + recordSource_)
        edits_.clear();
    editedTable_ = databaseName_ + recordSource_;
    notify(&DataObserver::sourceChanged);
}

TableRecordset& DataControl::recordset()
{
    if (!hasRecordset())
        throw RuntimeFailure(failure::ObjectVariableNotSet);
    return recordset_;
}

std::int64_t DataControl::rowCount() const
{
    return recordset_.isOpen() ? recordset_.recordCount() : 0;
}

int DataControl::columnOf(const QString& field) const
{
    const auto found = std::find_if(columns().begin(), columns().end(), [&field](const QString& column) {
        return column.compare(field, Qt::CaseInsensitive) == 0;
    });
    return found == columns().end() ? -1 : static_cast<int>(found - columns().begin());
}

void DataControl::setValueAt(std::int64_t row, int column, const QString& text)
{
    const QString before = textOf(valueAt(row, column));
    recordset_.setValueAt(row, column, text);
    const auto edit = edits_.try_emplace({recordset_.rowId(row), column}, before).first;
    if (edit->second == textOf(valueAt(row, column)))
        edits_.erase(edit);
    notify(&DataObserver::sourceChanged);
}

std::optional<QString> DataControl::textBeforeEdit(std::int64_t row, int column) const
{
    if (edits_.empty() || row < 0 || row >= rowCount())
        return std::nullopt;
    const auto edit = edits_.find({recordset_.rowId(row), column});
    return edit == edits_.end() ? std::nullopt : std::optional(edit->second);
}

void DataControl::addObserver(DataObserver& observer)
{
    observers_.push_back(&observer);
}

void DataControl::removeObserver(DataObserver& observer)
{
    std::erase(observers_, &observer);
}

void DataControl::notify(void (DataObserver::*notification)())
{
    for (DataObserver* observer : observers_)
        (observer->*notification)();
}

} // namespace orb
