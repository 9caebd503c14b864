// SPDX-License-Identifier: GPL-3.0-or-later
#include "db_grid.h"

#include "cell_delegate.h"
#include "focus_ring.h"
#include "grid_model.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QScopedValueRollback>
#include <QScrollBar>

namespace orb {

DBGrid::DBGrid(QWidget* parent) : Control<QTableView>(parent), model_(new GridModel(this))
{
    setModel(model_);
    setItemDelegate(new CellDelegate(this));
    setSelectionBehavior(SelectRows);
    setSelectionMode(SingleSelection);
    setEditTriggers(DoubleClicked | EditKeyPressed | AnyKeyPressed);
    setTabKeyNavigation(false);
    setAlternatingRowColors(true);
    setWordWrap(false);
    setHorizontalScrollMode(ScrollPerPixel);
    horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setMinimumSectionSize(8);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed); // or a million rows would each be measured
    setRowHeight();
    QObject::connect(horizontalHeader(), &QHeaderView::sectionResized, this, [this](int column) {
        if (!fitting_)
            keptColumns_.insert(column);
    });
}

DBGrid::~DBGrid()
{
    model_->setSource(nullptr); // an open editor writes nothing any more
    if (data_)
        data_->removeObserver(*this);
}

void DBGrid::setDataSource(DataControl& source)
{
    if (data_)
        data_->removeObserver(*this);
    data_ = &source;
    source.addObserver(*this);
    model_->setSource(&source);
    if (accessibleName().isEmpty())
        setAccessibleName(source.caption());
    sourceChanged();
}

void DBGrid::sourceDestroyed()
{
    data_ = nullptr;
    model_->setSource(nullptr);
    model_->bindColumns();
    sync();
}

void DBGrid::setRowHeight()
{
    constexpr int margin = 4;
    const int height = fontMetrics().height() + margin;
    verticalHeader()->setMinimumSectionSize(height);
    verticalHeader()->setDefaultSectionSize(height);
}

void DBGrid::changeEvent(QEvent* event)
{
    Control<QTableView>::changeEvent(event);
    if (event->type() != QEvent::FontChange && event->type() != QEvent::StyleChange)
        return;
    setRowHeight();
    fitColumns();
}

void DBGrid::paintEvent(QPaintEvent* event)
{
    Control<QTableView>::paintEvent(event);
    drawFocusRing(*this);
}

void DBGrid::scrollContentsBy(int dx, int dy)
{
    Control<QTableView>::scrollContentsBy(dx, dy);
    viewport()->update();
}

// Columns

void DBGrid::setColumns(const std::vector<GridColumn>& columns)
{
    model_->setColumns(columns);
    for (int i = 0; i < columnCount(); ++i)
        setWidthTwips(i, column(i).widthTwips);
    syncLater();
}

void DBGrid::fitColumns()
{
    const QScopedValueRollback<bool> fitting(fitting_, true);
    for (int i = 0; i < columnCount(); ++i)
        if (column(i).fitsValues && !keptColumns_.contains(i))
            fitColumn(i);
}

/// Only the rows in view are measured, so that the cost does not depend on how many there are.
void DBGrid::fitColumn(int column)
{
    constexpr int margin = 10;
    int widest = horizontalHeader()->fontMetrics().horizontalAdvance(
        model_->headerData(column, Qt::Horizontal, Qt::DisplayRole).toString());
    const int first = std::max(rowAt(0), 0);
    const int last = first + viewport()->height() / verticalHeader()->defaultSectionSize();
    for (int row = first; row < std::min(last + 1, model_->rowCount()); ++row)
        widest = std::max(widest, fontMetrics().horizontalAdvance(cellText(row, column)));
    if (widest + margin <= columnWidth(column))
        return;
    setColumnWidth(column, widest + margin);
    updateGeometry();
}

QSize DBGrid::minimumSizeHint() const
{
    const int edges = 2 * frameWidth() + verticalScrollBar()->sizeHint().width();
    const QSize least = Control<QTableView>::minimumSizeHint();
    return isWideAsColumns_ ? least.expandedTo({horizontalHeader()->length() + edges, 0}) : least;
}

int DBGrid::columnCount() const
{
    return model_->columnCount();
}

GridColumn& DBGrid::columnOrFail(int column) const
{
    if (column < 0 || column >= columnCount())
        throw RuntimeFailure(failure::SubscriptOutOfRange);
    return model_->columns()[static_cast<std::size_t>(column)];
}

const GridColumn& DBGrid::column(int column) const
{
    return columnOrFail(column);
}

void DBGrid::setCaption(int column, const QString& caption)
{
    columnOrFail(column).caption = caption;
    Q_EMIT model_->headerDataChanged(Qt::Horizontal, column, column);
}

void DBGrid::setWidthTwips(int column, int width)
{
    const QScopedValueRollback<bool> fitting(fitting_, true);
    columnOrFail(column).widthTwips = width;
    setColumnWidth(column, pixels(width));
    if (columnOrFail(column).fitsValues)
        fitColumn(column);
}

// Following the data control

void DBGrid::sourceChanged()
{
    model_->bindColumns();
    syncLater();
}

/// Once for all the moves of a handler: a refresh and a move to the last row leave the view where it is, and a walk over
/// a million rows costs no more than one move.
void DBGrid::syncLater()
{
    if (syncPending_)
        return;
    syncPending_ = true;
    QMetaObject::invokeMethod(
        this, [this] { sync(); }, Qt::QueuedConnection);
}

void DBGrid::sync()
{
    syncPending_ = false;
    const QScopedValueRollback<bool> syncing(syncing_, true); // the view does not move the data control now
    closeOutdatedEditor();
    model_->update();
    if (!isEditing()) // an open editor holds the view
        showCurrentRow();
    fitColumns();
}

/// An edit ends where its cell has another value by now.
void DBGrid::closeOutdatedEditor()
{
    auto* editor = static_cast<CellEditor*>(indexWidget(currentIndex()));
    if (editor && cellText(currentIndex().row(), currentIndex().column()) != editor->before)
        closeEditor(editor, QAbstractItemDelegate::RevertModelCache);
}

void DBGrid::showCurrentRow()
{
    const std::int64_t row = currentRow();
    if (row < 0 || row >= model_->rowCount()) {
        selectionModel()->clear();
        return;
    }
    const int offset = horizontalScrollBar()->value();
    setCurrentIndex(model_->index(static_cast<int>(row), std::max(currentIndex().column(), 0)));
    scrollTo(currentIndex());
    horizontalScrollBar()->setValue(offset); // only the operator scrolls sideways
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
    return model_->text(row, column);
}

// User input

/// A row that the operator goes to becomes the data control's current one.
void DBGrid::currentChanged(const QModelIndex& current, const QModelIndex& previous)
{
    Control<QTableView>::currentChanged(current, previous);
    if (syncing_ || !current.isValid())
        return;
    enter([this, row = current.row()] {
        if (data_ && data_->rowCount() > 0)
            data_->recordset().setPosition(std::min<std::int64_t>(row, data_->rowCount() - 1));
    });
}

void DBGrid::keyPressEvent(QKeyEvent* event)
{
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (event->matches(QKeySequence::Copy))
        copyCurrentRow();
    else if (isEnter && currentIndex().flags().testFlag(Qt::ItemIsEditable))
        edit(currentIndex());
    else
        Control<QTableView>::keyPressEvent(event);
}

void DBGrid::copyCurrentRow() const
{
    QStringList cells;
    for (int column = 0; column < columnCount(); ++column)
        cells << model_->index(currentIndex().row(), column).data().toString();
    if (currentIndex().isValid())
        QGuiApplication::clipboard()->setText(cells.join(QLatin1Char('\t')));
}

bool DBGrid::isEditing() const
{
    return indexWidget(currentIndex()) != nullptr;
}

void DBGrid::closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint)
{
    Control<QTableView>::closeEditor(editor, hint);
    syncLater();
}

} // namespace orb
