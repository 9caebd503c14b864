// SPDX-License-Identifier: GPL-3.0-or-later
#include "data_log_page.h"
#include "legend_line.h"
#include "tool_bar.h"

#include <QEvent>
#include <QGridLayout>

#include <algorithm>

namespace orb {

namespace {

constexpr int pageWidthTwips = 10590;
constexpr int pageHeightTwips = 9300;
constexpr int lowPage = 36; // lines of text
constexpr int lowTable = 6; // its header, at least three rows and the scroll bar

const std::array<GridColumn, 22> columns{
    {{"SeqNo", "SeqNo"},     {"RecTime", "RecTime"}, {"PVal1", "CH1 A"},       {"SVal1", "CH1 V"},
     {"PVal2", "CH2 A"},     {"SVal2", "CH2 V"},     {"PVal3", "CH3 A"},       {"SVal3", "CH3 V"},
     {"PVal4", "CH4 A"},     {"SVal4", "CV4 V"}, // this caption has its V in second place
     {"PVal5", "CH5 A"},     {"SVal5", "CH5 V"},     {"PVal6", "CH6 A"},       {"SVal6", "CH6 V"},
     {"PVal7", "CH7 A"},     {"SVal7", "CH7 V"},     {"PVal8", "CH8 A"},       {"SVal8", "CH8 V"},
     {"Reason3", "Reason3"}, {"Comment", "Comment"}, {"TimeTick", "TimeTick"}, {"DiffLastTime", "DiffLastTime"}}};

} // namespace

void DataLogPage::createLayout()
{
    resizeTwips(pageWidthTwips, pageHeightTwips);
    bindGrid();
    auto* page = new QVBoxLayout(this);
    page->setContentsMargins(8, 4, 8, 8);
    page->setSpacing(6);
    page->addWidget(toolBar());
    page->addLayout(graphRow(), 3);
    page->addLayout(graphControls());
    page->addLayout(gridRow(), 2);
    lstWave.setAccessibleName(QStringLiteral("Curves"));
    for (QWidget* hidden : std::initializer_list<QWidget*>{&DataLog, &lstWave, &FrameDataFileOperate}) {
        hidden->setParent(this);
        hidden->setVisible(false);
    }
}

void DataLogPage::bindGrid()
{
    DataLog.setConnectText(QStringLiteral("Access 2000;"));
    DataLog.setCaption(QStringLiteral("Sequence Settings"));
    DataLog.setRecordSource(QStringLiteral("DataMeasure"));
    DBGrid1.setDataSource(DataLog);
    std::vector<GridColumn> fitting(columns.begin(), columns.end());
    for (GridColumn& column : fitting) { // so that the table shows as many channels as it can
        column.widthTwips = 0;
        column.fitsValues = true;
    }
    DBGrid1.setColumns(fitting);
}

QWidget* DataLogPage::toolBar()
{
    logStart.setPicture(icon("\\ICON\\B1RUNSTOP.jpg"));
    logStop.setPicture(icon("\\ICON\\B4STOP.JPG"));
    logRefresh.setPicture(icon("\\ICON\\Refresh.png"));
    logSave.setPicture(icon("\\ICON\\Save.png"));
    logOpen.setPicture(icon("\\ICON\\Open.png"));
    logDelete.setPicture(icon("\\ICON\\Delete.png"));
    logPrint.setPicture(icon("\\ICON\\Print.png"));
    cmdExport.setPicture(icon("\\ICON\\Export.png"));
    logSave.setToolTip(QStringLiteral("Add the current log to the saved logs"));
    cmdExport.setToolTip(QStringLiteral("Write the current log to a CSV file"));
    return toolBarOf({&logStart, &logStop, &logRefresh, &logSave, &logOpen, &logDelete, &logPrint, &cmdExport});
}

/// The graph, with the boxes of the curves to its right.
QLayout* DataLogPage::graphRow()
{
    layoutChannels();
    auto* operations = new QVBoxLayout(&FrameGraphOperations);
    operations->setContentsMargins(6, 4, 6, 4);
    operations->addWidget(&GraphMode);
    GraphMode.setAccessibleName(FrameGraphOperations.caption());
    side_ = new QBoxLayout(QBoxLayout::TopToBottom);
    side_->addWidget(&FrameChannel, 0, Qt::AlignTop);
    side_->addWidget(&FrameGraphOperations, 0, Qt::AlignTop);
    side_->addStretch();
    graphLog.setAccessibleName(QStringLiteral("Graph of the log"));
    auto* row = new QHBoxLayout;
    row->addWidget(&graphLog, 1);
    row->addLayout(side_);
    return row;
}

/// In a low window the boxes stand side by side, so that graph and table keep their share of the height. The frame of the
/// cursor needs more of it than the table beside it.
void DataLogPage::placeBoxes()
{
    const int low = lowPage * fontMetrics().lineSpacing();
    const int stacked = minimumSizeHint().height() + heightOfSecondBox();
    const bool isLow = height() < (FrameCursor.visible() ? std::max(low, stacked) : low);
    side_->setDirection(isLow ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
}

int DataLogPage::heightOfSecondBox() const
{
    return FrameGraphOperations.minimumSizeHint().height() + side_->spacing();
}

/// The frame of the cursor comes and goes without a change of the page's size.
bool DataLogPage::event(QEvent* event)
{
    const bool isDone = Frame::event(event);
    if (event->type() == QEvent::Resize || event->type() == QEvent::LayoutRequest)
        placeBoxes();
    return isDone;
}

/// That of the page with the boxes side by side.
QSize DataLogPage::minimumSizeHint() const
{
    const bool isStacked = side_->direction() == QBoxLayout::TopToBottom;
    return Frame::minimumSizeHint() - QSize(0, isStacked ? heightOfSecondBox() : 0);
}

/// One row for each channel, with a piece of the plot's line before each box.
void DataLogPage::layoutChannels()
{
    auto* grid = new QGridLayout(&FrameChannel);
    grid->setContentsMargins(6, 4, 6, 4);
    grid->setVerticalSpacing(2);
    for (int plot = 1; plot <= 16; ++plot) {
        CheckBox& box = boxOf(plot);
        box.setValue(CheckBox::Checked);
        box.setEnabled(false);
        const int row = (plot - 1) / 2;
        const int column = (plot - 1) % 2 * 2;
        grid->addWidget(new LegendLine(graphLog, plot), row, column);
        grid->addWidget(&box, row, column + 1);
    }
}

/// The ranges of the axes and the modes of the mouse.
QLayout* DataLogPage::graphControls()
{
    auto* row = new QHBoxLayout;
    const auto add = [row](const QString& caption, ComboBox& combo) {
        auto* label = new Label(caption);
        label->setBuddy(&combo);
        row->addWidget(label);
        row->addWidget(&combo);
    };
    add(QStringLiteral("Time Len"), cmbXLength);
    add(QStringLiteral("Voltage"), cmbYVoltage);
    add(QStringLiteral("Current"), cmbYCurrent);
    row->addStretch();
    auto* modes = new QHBoxLayout(&Frame3);
    modes->setContentsMargins(6, 2, 6, 2);
    for (OptionButton& mode : optGraphMode)
        modes->addWidget(&mode);
    optGraphMode[0].setValue(true);
    graphLog.setTrackMode(Graph::TrackZoom);
    row->addWidget(&Frame3);
    return row;
}

QLayout* DataLogPage::gridRow()
{
    layoutCursorFrame();
    auto* row = new QHBoxLayout;
    DBGrid1.setMinimumHeight(lowTable * fontMetrics().lineSpacing());
    row->addWidget(&DBGrid1, 1);
    row->addWidget(&FrameCursor);
    return row;
}

void DataLogPage::layoutCursorFrame()
{
    auto* grid = new QGridLayout(&FrameCursor);
    grid->setContentsMargins(6, 4, 6, 4);
    grid->setSpacing(3);
    int row = 0;
    const auto add = [&](const QString& caption, TextBox& box) {
        box.setReadOnly(true);
        box.setFixedWidth(90);
        auto* label = new Label(caption);
        label->setBuddy(&box);
        grid->addWidget(label, row, 0);
        grid->addWidget(&box, row++, 1);
    };
    add(QStringLiteral("X Position:"), XPosition);
    grid->addWidget(&lblYUnit, row, 2);
    lblYUnit.setMinimumWidth(lblYUnit.fontMetrics().horizontalAdvance(u'A'));
    add(QStringLiteral("Y Position:"), YPosition);
    grid->addWidget(new Label(QStringLiteral("Measurements")), row++, 0, 1, 2);
    add(QStringLiteral("Amplitude:"), AmplitudeVal);
    add(QStringLiteral("Period:"), PeriodVal);
    lstChannel.setMinimumHeight(24);
    lstChannel.setAccessibleName(QStringLiteral("Channels"));
    grid->addWidget(&lstChannel, row, 0, 1, 2);
    FrameCursor.setVisible(false);
}

} // namespace orb
