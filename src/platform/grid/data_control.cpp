// SPDX-License-Identifier: GPL-3.0-or-later
#include "data_control.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QToolButton>

#include <algorithm>

namespace orb {

DataControl::DataControl(Workspace& workspace, QWidget* parent)
    : Control<QWidget>(parent), workspace_(workspace), label_(new QLabel), recordset_(picture_, [this] { tellMoved(); })
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
    const auto observers = observers_;
    for (DataObserver* observer : observers)
        observer->dataGone();
}

/// `target` gives the row that a press goes to; one beyond an end goes to that end.
QToolButton* DataControl::makeButton(const QString& name, Qt::ArrowType arrow, std::function<std::int64_t()> target)
{
    auto* button = new QToolButton(this);
    button->setArrowType(arrow);
    button->setAutoRaise(true);
    button->setToolTip(name);
    button->setAccessibleName(name);
    button->setObjectName(name);
    QObject::connect(button, &QToolButton::clicked, this, [this, target] {
        enter([&] {
            if (rowCount() > 0)
                reposition(std::clamp<std::int64_t>(target(), 0, rowCount() - 1));
        });
    });
    return button;
}

/// The current row, or the one behind the last.
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
    picture_.take(workspace_.openDatabase(databaseName_).connection(), recordSource_);
    recordset_.restart();
    tellChanged();
}

TableRecordset& DataControl::recordset()
{
    if (!hasRecordset())
        throw RuntimeFailure(failure::ObjectVariableNotSet);
    return recordset_;
}

int DataControl::columnOf(const QString& field) const
{
    if (!hasRecordset())
        return -1;
    const auto& columns = picture_.columns();
    const auto found = std::find_if(columns.begin(), columns.end(), [&field](const QString& column) {
        return column.compare(field, Qt::CaseInsensitive) == 0;
    });
    return found == columns.end() ? -1 : static_cast<int>(found - columns.begin());
}

void DataControl::demandCell(std::int64_t row, int column) const
{
    if (!picture_.isOpen())
        throw RuntimeFailure(failure::ObjectClosed);
    if (row < 0 || row >= rowCount())
        throw RuntimeFailure(failure::NoCurrentRecord);
    if (column < 0 || column >= static_cast<int>(picture_.columns().size()))
        throw RuntimeFailure(failure::ItemNotFound);
}

FieldValue DataControl::valueAt(std::int64_t row, int column)
{
    demandCell(row, column);
    const RowPage& page = picture_.page(row);
    const int inPage = TablePicture::rowInPage(row);
    return inPage < page.rowCount() ? page.value(inPage, column) : FieldValue{};
}

void DataControl::setValueAt(std::int64_t row, int column, const QString& text)
{
    demandCell(row, column);
    picture_.change(row, column, text);
    tellChanged();
}

void DataControl::reposition(std::int64_t row)
{
    recordset().setPosition(row);
    if (onReposition)
        onReposition();
}

void DataControl::addObserver(DataObserver& observer)
{
    observers_.push_back(&observer);
}

void DataControl::removeObserver(DataObserver& observer)
{
    std::erase(observers_, &observer);
}

void DataControl::tellMoved()
{
    for (DataObserver* observer : observers_)
        observer->currentRowMoved();
}

void DataControl::tellChanged()
{
    for (DataObserver* observer : observers_)
        observer->dataChanged();
}

} // namespace orb
