// SPDX-License-Identifier: GPL-3.0-or-later
#include "sequence_page.h"
#include "tool_bar.h"
#include "wrapping_delegate.h"

#include <QDir>
#include <QGridLayout>
#include <QHeaderView>

namespace orb {

namespace {

constexpr int pageWidthTwips = 9285;
constexpr int pageHeightTwips = 8400;
constexpr int headRows = 5;
constexpr int summaryWidth = 18; // letters

void bind(DataControl& data, const char* caption, const char* table, DBGrid& grid,
          const std::vector<GridColumn>& columns)
{
    data.setConnectText(QStringLiteral("Access 2000;"));
    data.setCaption(QLatin1String(caption));
    data.setRecordSource(QLatin1String(table));
    grid.setDataSource(data);
    std::vector<GridColumn> fitting = columns;
    for (GridColumn& column : fitting)
        column.fitsValues = true;
    grid.setColumns(fitting);
    grid.setWideAsColumns(true);
}

/// Makes the grid high enough for so many rows.
void setRows(DBGrid& grid, int rows)
{
    const int height =
        grid.horizontalHeader()->sizeHint().height() + rows * grid.verticalHeader()->defaultSectionSize();
    grid.setFixedHeight(height + 2 * grid.frameWidth());
}

} // namespace

void SequencePage::createLayout()
{
    resizeTwips(pageWidthTwips, pageHeightTwips);
    bindGrids();
    auto* page = new QVBoxLayout(this);
    page->setContentsMargins(8, 4, 8, 8);
    page->setSpacing(6);
    page->addWidget(toolBar());
    page->addWidget(tables(), 1);
}

void SequencePage::bindGrids()
{
    bind(datORBSeqSet, "Sequence Settings", "ORBSeqHead", DBGridHead,
         {{"Item", "", 2700}, {"The Current Settings", "", 2150}, {"Update", "", 1550, true, true}});
    bind(datORB, "Sequence 120 Points", "ORBSeqData", DBGridSequence,
         {{"Index", "", 700},
          {"DurTime", "", 1650, true, true},
          {"Current", "", 1150, true, true},
          {"SlewrateUp", "", 1400, true, true},
          {"SlewrateDown", "", 1400, true, true}});
}

QWidget* SequencePage::toolBar()
{
    seqOpen.setPicture(icon("\\ICON\\Open.png"));
    seqSave.setPicture(icon("\\ICON\\Save.png"));
    seqDelete.setPicture(icon("\\ICON\\Delete.png"));
    seqSend.setPicture(icon("\\ICON\\SEQINTO.JPG"));
    SeqLoad.setPicture(icon("\\ICON\\SEQOUT.JPG"));
    seqPlot.setPicture(icon("\\ICON\\SEQSimulateStop.JPG"));
    seqSave.setToolTip(QStringLiteral("Write the file as it was read to ") +
                       QDir::toNativeSeparators(realPath(paths_.toWrite(QStringLiteral("\\test.a")))));
    seqDelete.setToolTip(QStringLiteral("Empty the page; the file stays"));
    QWidget* bar = toolBarOf({&seqOpen, &seqSave, &seqDelete, &seqSend, &SeqLoad, &seqPlot});
    for (PictureButton* button : {&seqOpen, &seqSave, &seqDelete, &seqSend, &SeqLoad, &seqPlot})
        button->setOnTwoLines(true);
    seqPlot.setVisible(false);
    return bar;
}

/// The two tables, each under its data control, with the summary beside them. The graph comes up over all of it.
QWidget* SequencePage::tables()
{
    setRows(DBGridHead, headRows);
    lstSequence.setAccessibleName(QStringLiteral("Summary"));
    lstSequence.setMinimumWidth(summaryWidth * fontMetrics().averageCharWidth());
    lstSequence.setUniformItemSizes(false);
    lstSequence.setWordWrap(true);
    lstSequence.setItemDelegate(new WrappingDelegate(lstSequence));
    lstSequence.setResizeMode(QListView::Adjust);
    auto* area = new QWidget;
    auto* grid = new QGridLayout(area);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setVerticalSpacing(2);
    grid->setHorizontalSpacing(6);
    int row = 0;
    for (QWidget* widget : std::initializer_list<QWidget*>{&datORBSeqSet, &DBGridHead, &datORB, &DBGridSequence})
        grid->addWidget(widget, row++, 0);
    grid->addWidget(&lstSequence, 0, 1, row, 1);
    grid->addWidget(&graphSeq, 0, 0, row, 2);
    grid->setRowStretch(row - 1, 1);
    grid->setColumnStretch(0, 8);
    grid->setColumnStretch(1, 3);
    graphSeq.setVisible(false);
    graphSeq.setAccessibleName(QStringLiteral("Graph of the sequence"));
    return area;
}

} // namespace orb
