// SPDX-License-Identifier: GPL-3.0-or-later
#include "grid_model.h"

#include "values.h"

#include <algorithm>
#include <limits>

namespace orb {

namespace {

QVariant boldFont()
{
    QFont font; // the view's own, but for the weight
    font.setBold(true);
    return font;
}

/// What SQLite says of a constraint that has a sentence for a name.
QString sentenceOf(const RuntimeFailure& failure)
{
    const QString prefix = QStringLiteral("CHECK constraint failed: ");
    return failure.description().startsWith(prefix) ? failure.description().mid(prefix.size()) : failure.description();
}

} // namespace

void GridModel::setColumns(std::vector<GridColumn> columns)
{
    beginResetModel();
    columns_ = std::move(columns);
    fields_.assign(columns_.size(), -1);
    tableColumns_.clear();
    bindColumns();
    endResetModel();
}

void GridModel::update()
{
    setRowCount(
        static_cast<int>(std::min<std::int64_t>(source_ ? source_->rowCount() : 0, std::numeric_limits<int>::max())));
    if (rows_ > 0 && !columns_.empty())
        Q_EMIT dataChanged(index(0, 0), index(rows_ - 1, columnCount() - 1));
}

void GridModel::bindColumns()
{
    const std::vector<QString> columns = source_ ? source_->columns() : std::vector<QString>();
    if (columns == tableColumns_)
        return;
    tableColumns_ = columns;
    for (std::size_t i = 0; i < columns_.size(); ++i)
        fields_[i] = source_ ? source_->columnOf(columns_[i].field) : -1;
}

/// Rows come and go at the end, whichever they are: what the others hold is read anew.
void GridModel::setRowCount(int rows)
{
    if (rows > rows_) {
        beginInsertRows({}, rows_, rows - 1);
        rows_ = rows;
        endInsertRows();
    } else if (rows < rows_) {
        beginRemoveRows({}, rows, rows_ - 1);
        rows_ = rows;
        endRemoveRows();
    }
}

int GridModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : rows_;
}

int GridModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(columns_.size());
}

QString GridModel::text(std::int64_t row, int column) const
{
    const bool isThere = source_ && row >= 0 && row < source_->rowCount() && column >= 0 && column < columnCount();
    const int field = isThere ? fields_[static_cast<std::size_t>(column)] : -1;
    return field < 0 ? QString() : textOf(source_->valueAt(row, field));
}

/// No failure leaves through Qt's frames.
QString GridModel::shownText(const QModelIndex& index) const
{
    try {
        return text(index.row(), index.column());
    } catch (const RuntimeFailure& failure) {
        return failure.number() == failure::ObjectClosed ? QString() : failure.description();
    }
}

std::optional<QString> GridModel::textBeforeEdit(const QModelIndex& index) const
{
    const int field = fields_[static_cast<std::size_t>(index.column())];
    return source_ && field >= 0 ? source_->textBeforeEdit(index.row(), field) : std::nullopt;
}

QVariant GridModel::data(const QModelIndex& index, int role) const
{
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
        return shownText(index);
    case Qt::TextAlignmentRole:
        return QVariant::fromValue<int>(Qt::AlignVCenter |
                                        (isNumeric(shownText(index)) ? Qt::AlignRight : Qt::AlignLeft));
    case EditedRole:
        return textBeforeEdit(index).has_value();
    case Qt::FontRole:
        return textBeforeEdit(index) ? boldFont() : QVariant();
    case Qt::ToolTipRole:
    case Qt::AccessibleDescriptionRole:
        if (const auto before = textBeforeEdit(index))
            return QStringLiteral("Edited. It was %1.").arg(before->isEmpty() ? QStringLiteral("empty") : *before);
        return {};
    default:
        return {};
    }
}

QVariant GridModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    const GridColumn& column = columns_[static_cast<std::size_t>(section)];
    return column.caption.isEmpty() ? column.field : column.caption;
}

Qt::ItemFlags GridModel::flags(const QModelIndex& index) const
{
    const auto column = static_cast<std::size_t>(index.column());
    const bool isEditable = index.isValid() && columns_[column].editable && fields_[column] >= 0;
    return QAbstractTableModel::flags(index) | (isEditable ? Qt::ItemIsEditable : Qt::NoItemFlags);
}

bool GridModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (!source_ || role != Qt::EditRole)
        return false;
    const auto column = static_cast<std::size_t>(index.column());
    const QString entered = value.toString();
    if (columns_[column].isNumber && !isNumeric(entered)) {
        refusal_ = QStringLiteral("\"%1\" is not a number. Numbers are entered like 12.5 or -0.02.").arg(entered);
        return false;
    }
    try {
        source_->setValueAt(index.row(), fields_[column], entered);
        return true;
    } catch (const RuntimeFailure& failure) {
        refusal_ = sentenceOf(failure);
        return false;
    }
}

} // namespace orb
