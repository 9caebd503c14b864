// SPDX-License-Identifier: GPL-3.0-or-later
#include "db_grid.h"

#include "cell_editor.h"
#include "values.h"

#include <QEvent>
#include <QHeaderView>
#include <QPainter>
#include <QScrollBar>
#include <QStandardItemModel>

#include <algorithm>
#include <limits>

namespace orb {

namespace {

constexpr int cellMargin = 4;

QString shownText(const FieldValue& value)
{
    switch (value.type) {
    case FieldType::Integer:
        return text(value.integer);
    case FieldType::Real:
        return text(value.real);
    case FieldType::Text:
        return QString::fromUtf8(value.text.data(), static_cast<qsizetype>(value.text.size()));
    case FieldType::Null:
        break;
    }
    return {};
}

} // namespace

DBGrid::DBGrid(QWidget* parent)
    : Control<QAbstractScrollArea>(parent),
      captions_(new QStandardItemModel(this)),
      header_(new QHeaderView(Qt::Horizontal, this)),
      editor_(new CellEditor(viewport()))
{
    header_->setModel(captions_);
    header_->setMinimumSectionSize(8);
    header_->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    header_->setFocusPolicy(Qt::NoFocus);
    QObject::connect(header_, &QHeaderView::sectionResized, this, [this](int section, int, int size) {
        columns_[static_cast<std::size_t>(section)].widthTwips = twips(size);
        createLayout();
    });
    editor_->onCancel = [this] {
        editor_->close();
        setFocus();
        syncLater();
    };
    editor_->onCommit = [this](int key) { enter([this, key] { leaveEditor(key); }); };
    setFocusPolicy(Qt::StrongFocus);
    viewport()->setBackgroundRole(QPalette::Base);
}

DBGrid::~DBGrid()
{
    editor_->close();
    if (data_)
        data_->removeObserver(*this);
}

void DBGrid::setDataSource(DataControl& source)
{
    if (data_)
        data_->removeObserver(*this);
    data_ = &source;
    source.addObserver(*this);
    if (accessibleName().isEmpty())
        setAccessibleName(source.caption());
    dataChanged();
}

void DBGrid::dataGone()
{
    data_ = nullptr;
    editor_->close();
    syncLater();
}

// Columns

void DBGrid::setColumns(std::vector<GridColumn> columns)
{
    columns_ = std::move(columns);
    designed_ = true;
    showColumns();
    bindColumns();
}

std::size_t DBGrid::demandColumn(int column) const
{
    if (column < 0 || column >= columnCount())
        throw RuntimeFailure(failure::SubscriptOutOfRange);
    return static_cast<std::size_t>(column);
}

const GridColumn& DBGrid::column(int column) const
{
    return columns_[demandColumn(column)];
}

void DBGrid::setCaption(int column, const QString& caption)
{
    columns_[demandColumn(column)].caption = caption;
    captions_->setHeaderData(column, Qt::Horizontal, caption);
}

void DBGrid::setWidthTwips(int column, int width)
{
    columns_[demandColumn(column)].widthTwips = width;
    const QSignalBlocker quiet(header_); // a width in pixels has lost the odd twips
    header_->resizeSection(column, pixels(width));
    createLayout();
}

void DBGrid::setEditable(int column, bool editable)
{
    columns_[demandColumn(column)].editable = editable;
}

void DBGrid::showColumns()
{
    const QSignalBlocker quiet(header_); // the widths are the columns' own already
    captions_->setColumnCount(columnCount());
    for (int i = 0; i < columnCount(); ++i) {
        const GridColumn& column = columns_[static_cast<std::size_t>(i)];
        captions_->setHeaderData(i, Qt::Horizontal, column.caption.isEmpty() ? column.field : column.caption);
        header_->resizeSection(i, pixels(column.widthTwips));
    }
    currentColumn_ = std::clamp(currentColumn_, 0, std::max(columnCount() - 1, 0));
    createLayout();
}

/// Finds the table's columns behind those of the grid.
void DBGrid::bindColumns()
{
    if (!designed_ && data_) {
        const std::vector<QString> names = data_->columns();
        const auto isSame = [](const GridColumn& column, const QString& name) { return column.field == name; };
        if (!std::equal(columns_.begin(), columns_.end(), names.begin(), names.end(), isSame)) {
            columns_.clear();
            for (const QString& name : names)
                columns_.push_back({name, {}});
            showColumns();
        }
    }
    fields_.clear();
    for (const GridColumn& column : columns_)
        fields_.push_back(data_ ? data_->columnOf(column.field) : -1);
}

// Following the data control

void DBGrid::dataChanged()
{
    bindColumns();
    if (editor_->isOpen() && cellText(editor_->row(), editor_->column()) != editor_->before())
        editor_->close();
    syncLater();
}

void DBGrid::currentRowMoved()
{
    syncLater();
}

/// Once for all the moves of a handler: a walk over a million rows costs no more than one move.
void DBGrid::syncLater()
{
    if (syncPending_)
        return;
    syncPending_ = true;
    QMetaObject::invokeMethod(
        this,
        [this] {
            if (syncPending_)
                sync();
        },
        Qt::QueuedConnection);
}

/// An open editor holds the view where it is.
void DBGrid::sync()
{
    syncPending_ = false;
    updateScrollBars();
    if (!editor_->isOpen() && currentRow() >= 0)
        bringIntoView(currentRow());
    viewport()->update();
}

void DBGrid::refresh()
{
    bindColumns();
    sync();
}

std::int64_t DBGrid::currentRow() const
{
    try {
        return data_ && data_->hasRecordset() ? data_->recordset().position() : -1;
    } catch (const RuntimeFailure&) { // closed
        return -1;
    }
}

QString DBGrid::cellText(std::int64_t row, int column) const
{
    const bool isThere = row >= 0 && row < rowCount() && column >= 0 && column < columnCount();
    const int field = isThere ? fields_[static_cast<std::size_t>(column)] : -1;
    return field < 0 ? QString() : shownText(data_->valueAt(row, field));
}

// Geometry

int DBGrid::rowHeight() const
{
    return fontMetrics().height() + cellMargin;
}

int DBGrid::headerHeight() const
{
    return header_->sizeHint().height();
}

int DBGrid::visibleRows() const
{
    return std::max(viewport()->height() / rowHeight(), 1);
}

std::int64_t DBGrid::firstVisibleRow()
{
    if (syncPending_)
        sync();
    return verticalScrollBar()->value();
}

std::int64_t DBGrid::rowAt(int y) const
{
    return verticalScrollBar()->value() + y / rowHeight();
}

QRect DBGrid::cellRect(std::int64_t row, int column) const
{
    const int y = static_cast<int>(row - verticalScrollBar()->value()) * rowHeight();
    return {header_->sectionViewportPosition(column), y, header_->sectionSize(column), rowHeight()};
}

/// Asks for sizes of texts, so a grid that no one sees yet is spared it.
void DBGrid::createLayout()
{
    if (!isVisible())
        return;
    if (viewportMargins().top() != headerHeight())
        setViewportMargins(0, headerHeight(), 0, 0);
    const QRect view = viewport()->geometry();
    header_->setGeometry(view.left(), view.top() - headerHeight(), view.width(), headerHeight());
    updateScrollBars();
    if (editor_->isOpen())
        editor_->setGeometry(cellRect(editor_->row(), editor_->column()));
    viewport()->update();
}

void DBGrid::updateScrollBars()
{
    const std::int64_t rows = std::min<std::int64_t>(rowCount(), std::numeric_limits<int>::max());
    verticalScrollBar()->setPageStep(visibleRows());
    verticalScrollBar()->setRange(0, static_cast<int>(std::max<std::int64_t>(rows - visibleRows(), 0)));
    horizontalScrollBar()->setPageStep(viewport()->width());
    horizontalScrollBar()->setSingleStep(fontMetrics().averageCharWidth() * 4);
    horizontalScrollBar()->setRange(0, std::max(header_->length() - viewport()->width(), 0));
}

void DBGrid::bringIntoView(std::int64_t row)
{
    const std::int64_t top = verticalScrollBar()->value();
    if (row < top)
        verticalScrollBar()->setValue(static_cast<int>(row));
    else if (row >= top + visibleRows())
        verticalScrollBar()->setValue(static_cast<int>(row - visibleRows() + 1));
}

void DBGrid::bringColumnIntoView()
{
    const int left = header_->sectionPosition(currentColumn_);
    const int right = left + header_->sectionSize(currentColumn_);
    const int offset = horizontalScrollBar()->value();
    if (left < offset)
        horizontalScrollBar()->setValue(left);
    else if (right > offset + viewport()->width())
        horizontalScrollBar()->setValue(std::min(left, right - viewport()->width()));
}

void DBGrid::showEvent(QShowEvent* event)
{
    Control<QAbstractScrollArea>::showEvent(event);
    createLayout();
}

void DBGrid::resizeEvent(QResizeEvent*)
{
    createLayout();
    syncLater(); // a current row at the lower edge stays in view
}

void DBGrid::scrollContentsBy(int, int)
{
    header_->setOffset(horizontalScrollBar()->value());
    createLayout();
}

void DBGrid::changeEvent(QEvent* event)
{
    Control<QAbstractScrollArea>::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        createLayout();
}

// Painting

void DBGrid::paintEvent(QPaintEvent*)
{
    QPainter painter(viewport());
    try {
        paintRows(painter);
    } catch (const RuntimeFailure& failure) { // nothing may leave through Qt's frames
        if (failure.number() != failure::ObjectClosed)
            painter.drawText(viewport()->rect(), Qt::AlignCenter | Qt::TextWordWrap, failure.description());
    }
}

void DBGrid::paintRows(QPainter& painter) const
{
    const std::int64_t top = verticalScrollBar()->value();
    const std::int64_t behind = std::min<std::int64_t>(top + visibleRows() + 1, rowCount());
    for (std::int64_t row = top; row < behind; ++row)
        for (int column = 0; column < columnCount(); ++column)
            if (cellRect(row, column).intersects(viewport()->rect()))
                paintCell(painter, row, column);
}

void DBGrid::paintCell(QPainter& painter, std::int64_t row, int column) const
{
    const QRect cell = cellRect(row, column);
    const bool isCurrent = row == currentRow();
    const QPalette::ColorRole back = row % 2 ? QPalette::AlternateBase : QPalette::Base;
    painter.fillRect(cell, palette().brush(isCurrent ? QPalette::Highlight : back));
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawLine(cell.topRight(), cell.bottomRight());
    painter.setPen(palette().color(isCurrent ? QPalette::HighlightedText : QPalette::Text));
    const QString shown = cellText(row, column);
    const QRect inner = cell.adjusted(cellMargin, 0, -cellMargin, 0);
    const Qt::Alignment side = isNumeric(shown) ? Qt::AlignRight : Qt::AlignLeft;
    painter.drawText(inner, static_cast<int>(side | Qt::AlignVCenter) | Qt::TextSingleLine,
                     fontMetrics().elidedText(shown, Qt::ElideRight, inner.width()));
    if (isCurrent && column == currentColumn_ && hasFocus())
        painter.drawRect(cell.adjusted(0, 0, -1, -1));
}

} // namespace orb
