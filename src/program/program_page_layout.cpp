// SPDX-License-Identifier: GPL-3.0-or-later
#include "chain_area.h"
#include "program_page.h"
#include "run_modes.h"
#include "tool_bar.h"

#include <QBoxLayout>
#include <QGridLayout>

#include <algorithm>
#include <utility>

namespace orb {

namespace {

constexpr int pageWidthTwips = 9285;
constexpr int pageHeightTwips = 9900;
constexpr int settingWidthTwips = 7545;
constexpr int settingHeightTwips = 2850;
constexpr int progressTopTwips = 1200;
constexpr int progressHeightTwips = 735;
constexpr QSize orderSize(360, 330);
constexpr int boxWidth = 62;
constexpr int rowSpacing = 4;
constexpr int chainBoxWidth = 80;
constexpr int hintSpacing = 6;

void setColors(Label& label, const QColor& back, const QColor& fore)
{
    QPalette colors = label.palette();
    colors.setColor(QPalette::Window, back);
    colors.setColor(QPalette::WindowText, fore);
    label.setPalette(colors);
    label.setAutoFillBackground(true);
}

Label* heading(const QString& text)
{
    auto* label = new Label(text);
    label->setAlignment(Qt::AlignCenter);
    return label;
}

} // namespace

void ProgramPage::createLayout()
{
    constexpr std::pair<int, const char*> captions[] = {
        {0, "On-Timer:"}, {1, "Off-Time:"},  {2, "P/F-Time:"},  {3, "Short Time:"}, {4, "Program:"},
        {5, "Program:"},  {6, "Sequence:"},  {7, "AUTO"},       {8, "MANUAL"},      {9, "SKIP"},
        {10, "Memory:"},  {11, "Sequence:"}, {98, "Short CH:"}, {99, "Run:"}};
    for (const auto& [index, caption] : captions)
        lblMemory.try_emplace(index, QLatin1String(caption));
    resizeTwips(pageWidthTwips, pageHeightTwips);
    auto* page = new QVBoxLayout(this);
    page->setContentsMargins(8, 4, 8, 8);
    page->setSpacing(6);
    page->addWidget(toolBar());
    page->addWidget(chainArea());
    page->addLayout(legend());
    page->addLayout(grid(), 1);
    layoutMemorySetting();
    layoutProgramOrder();
    layoutProgress();
}

QWidget* ProgramPage::toolBar()
{
    struct Row {
        PictureButton& button;
        const char* picture;
        const char* toolTip;
    };
    for (const Row& row : {Row{progOpen, "\\ICON\\Open.png", "Open Program from File"},
                           Row{progLoad, "\\ICON\\SEQOUTSTOP.JPG", "Import Porgram from ORB"},
                           Row{progSend, "\\ICON\\SEQINTOSTOP.JPG", "Transfer Program to ORB"},
                           Row{progSave, "\\ICON\\Save.png", "Save Program File"},
                           Row{progOpenDB, "\\ICON\\History.png", "Open Program from Hisstory"},
                           Row{progDelete, "\\ICON\\Delete.png", "Delete Program File"},
                           Row{progReset, "\\ICON\\Clear.png", "Clear All of Program Setting"},
                           Row{progOrder, "\\ICON\\Chain.png", ""}}) {
        row.button.setPicture(icon(row.picture));
        row.button.setToolTip(QLatin1String(row.toolTip));
    }
    return toolBarOf({&progOpen, &progLoad, &progSend, &progSave, &progOpenDB, &progDelete, &progReset, &progOrder});
}

/// The start, and for each program the one that follows it. The frame of a step covers this area while it is open.
QWidget* ProgramPage::chainArea()
{
    chainArea_ = new ChainArea(lblHint_);
    auto* rows = new QVBoxLayout(chainArea_);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->addLayout(startRow());
    rows->addLayout(chainGrid());
    rows->addWidget(&lblHint_);
    rows->addStretch(1);
    lblHint_.setWordWrap(true);
    lblHint_.setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Ignored);
    lblHint_.setContentsMargins(0, hintSpacing, 0, 0);
    return chainArea_;
}

QLayout* ProgramPage::startRow()
{
    auto* start = new QHBoxLayout;
    lblProgram[2].setBuddy(&cmbProgChain.back());
    cmbProgChain.back().setAccessibleName(QStringLiteral("Start of the chain"));
    start->addWidget(&lblProgram[2]);
    cmbProgChain.back().setMinimumWidth(chainBoxWidth);
    start->addWidget(&cmbProgChain.back());
    start->addSpacing(12);
    start->addWidget(new Label(QStringLiteral("Each program is followed by:")));
    start->addStretch();
    return start;
}

/// The boxes keep the width of what they show, also in a wide window.
QLayout* ProgramPage::chainGrid()
{
    constexpr int columns = 4;
    constexpr int widest = 140;
    auto* grid = new QGridLayout;
    grid->setVerticalSpacing(rowSpacing);
    for (int program = 1; program <= programCount; ++program) {
        const int row = (program - 1) / columns;
        const int column = (program - 1) % columns;
        auto* name = new Label(QStringLiteral("P%1 \u2192").arg(program, 2, 10, QLatin1Char('0')));
        name->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        ComboBox& next = element(cmbProgChain, program - 1);
        next.setAccessibleName(QStringLiteral("Program after P%1").arg(program));
        next.setMaximumWidth(std::max(widest, next.sizeHint().width()));
        name->setBuddy(&next);
        grid->addWidget(name, row, 2 * column);
        grid->addWidget(&next, row, 2 * column + 1);
        grid->setColumnStretch(2 * column + 1, 1000);
    }
    grid->setColumnStretch(2 * columns, 1);
    return grid;
}

QLayout* ProgramPage::legend()
{
    auto* row = new QHBoxLayout;
    row->addWidget(new Label(QStringLiteral("Run:")));
    for (int index : {7, 8, 9}) {
        Label& label = lblMemory.at(index);
        for (const RunMode& mode : runModes())
            if (mode.text == label.caption()) {
                setColors(label, mode.color, Qt::white);
                row->addWidget(new Label(mode.mark()));
            }
        label.setAlignment(Qt::AlignCenter);
        label.setMinimumWidth(boxWidth + 10);
        row->addWidget(&label);
    }
    row->addStretch();
    return row;
}

/// A row for each program and a column for each step, with their headings.
QLayout* ProgramPage::grid()
{
    auto* grid = new QGridLayout;
    grid->setSpacing(2);
    grid->addWidget(&lblProgram[0], 0, 0);
    lblProgram[1].setAlignment(Qt::AlignCenter);
    grid->addWidget(&lblProgram[1], 0, 1, 1, stepCount);
    for (int step = 1; step <= stepCount; ++step)
        grid->addWidget(heading(QString::number(step)), 1, step);
    for (int program = 1; program <= programCount; ++program) {
        grid->addWidget(heading(QStringLiteral("P%1").arg(program, 2, 10, QLatin1Char('0'))), program + 1, 0);
        grid->setRowStretch(program + 1, 1);
        for (int step = 1; step <= stepCount; ++step) {
            MemoryCell& cell = element(txtMemSetting, numberOfCell(program, step));
            cell.setAccessibleName(QStringLiteral("Program %1 step %2").arg(program).arg(step));
            grid->addWidget(&cell, program + 1, step);
        }
    }
    txtMemSetting[0].setFocusPolicy(Qt::StrongFocus); // the tab key enters the grid here, the arrow keys move in it
    return grid;
}

void ProgramPage::layoutMemorySetting()
{
    frameMemorySetting.setParent(this);
    frameMemorySetting.setVisible(false);
    frameMemorySetting.moveTwips(memorySettingLeft, memorySettingTop);
    frameMemorySetting.resizeTwips(settingWidthTwips, settingHeightTwips);
    frameMemorySetting.installEventFilter(this);
    auto* frame = new QVBoxLayout(&frameMemorySetting);
    frame->setContentsMargins(8, 4, 8, 6);
    frame->setSpacing(rowSpacing);
    frame->addLayout(stepRows());
    frame->addLayout(timesGrid());
    frame->addLayout(channelRows());
}

/// Memory and run mode, and below them the step that they are for.
QLayout* ProgramPage::stepRows()
{
    auto* grid = new QGridLayout;
    grid->setVerticalSpacing(rowSpacing);
    const auto add = [grid](int row, int column, Label& label, ComboBox& combo) {
        combo.setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
        combo.setMinimumContentsLength(6);
        combo.setAccessibleName(label.caption());
        label.setBuddy(&combo);
        grid->addWidget(&label, row, column);
        grid->addWidget(&combo, row, column + 1);
        grid->setColumnStretch(column + 1, 1);
    };
    add(0, 0, lblMemory.at(10), cmbMemory);
    add(0, 2, lblMemory.at(99), cmbMemRun);
    add(1, 0, lblMemory.at(4), cmbMemoryProg);
    add(1, 2, lblMemory.at(11), cmbMemorySequence);
    return grid;
}

/// Two times in a row: the label, the box that switches the time on, the seconds and their limits.
QLayout* ProgramPage::timesGrid()
{
    auto* grid = new QGridLayout;
    grid->setVerticalSpacing(rowSpacing);
    grid->setHorizontalSpacing(rowSpacing);
    for (int time = 0; time < 4; ++time) {
        Label& label = lblMemory.at(time);
        CheckBox& box = element(chkMemSet, time);
        TextBox& seconds = element(txtProgMem, time);
        box.setValue(CheckBox::Checked);
        box.setAccessibleName(label.caption() + QStringLiteral(" on"));
        seconds.setText(QStringLiteral("0.1"));
        seconds.setFixedWidth(boxWidth);
        seconds.setAccessibleName(label.caption());
        label.setBuddy(&seconds);
        const int row = time / 2;
        const int column = time % 2 * 5;
        grid->addWidget(&label, row, column);
        grid->addWidget(&box, row, column + 1);
        grid->addWidget(&seconds, row, column + 2);
        grid->addWidget(&element(lblMemoryLim, time), row, column + 3);
        grid->setColumnStretch(column + 4, 1);
    }
    return grid;
}

/// The channels to short in two rows, with the buttons to the right of the second.
QLayout* ProgramPage::channelRows()
{
    auto* grid = new QGridLayout;
    grid->setVerticalSpacing(rowSpacing);
    grid->setHorizontalSpacing(rowSpacing);
    txtMemCH.setFixedWidth(boxWidth);
    txtMemCH.setToolTip(
        QStringLiteral("The sum of the channels: 1 for CH1, 2 for CH2, 4 for CH3. Enter sets the boxes"));
    txtMemCH.setAccessibleName(lblMemory.at(98).caption());
    lblMemory.at(98).setBuddy(&txtMemCH);
    grid->addWidget(&lblMemory.at(98), 0, 0);
    grid->addWidget(&txtMemCH, 0, 1);
    for (int channel = 0; channel < 8; ++channel)
        grid->addWidget(&element(chkShortCH, channel), channel / 4, 2 + channel % 4);
    grid->setColumnStretch(6, 1);
    int column = 7;
    for (PictureButton* button : {&cmdMemSetOK, &cmdMemSetCancel}) {
        button->setMinimumSize(62, 26);
        grid->addWidget(button, 1, column++);
    }
    return grid;
}

void ProgramPage::layoutProgramOrder()
{
    fraProgramOrder.setParent(this);
    fraProgramOrder.setVisible(false);
    fraProgramOrder.resize(orderSize);
    auto* grid = new QGridLayout(&fraProgramOrder);
    grid->addWidget(heading(QStringLiteral("Not in the chain")), 0, 0);
    grid->addWidget(heading(QStringLiteral("Chain, in its order")), 0, 2);
    lstProgramOrder[0].setAccessibleName(QStringLiteral("Programs outside of the chain"));
    lstProgramOrder[1].setAccessibleName(QStringLiteral("Programs of the chain"));
    grid->addWidget(&lstProgramOrder[0], 1, 0);
    grid->addLayout(orderButtons(), 1, 1);
    grid->addWidget(&lstProgramOrder[1], 1, 2);
    auto* loop = new QHBoxLayout;
    txtProgLoopStart.setReadOnly(true);
    txtProgLoopStart.setFixedWidth(boxWidth);
    txtProgLoopStart.setAccessibleName(QStringLiteral("Loop start"));
    loop->addStretch();
    loop->addWidget(&chkProgLoop);
    loop->addWidget(&txtProgLoopStart);
    grid->addLayout(loop, 2, 2);
    auto* ends = new QHBoxLayout;
    ends->addStretch();
    ends->addWidget(&cmdProgOrderExit);
    ends->addWidget(&cmdProgOrderCancel);
    grid->addLayout(ends, 3, 0, 1, 3);
    for (PictureButton* button : {&cmdProgOrderExit, &cmdProgOrderCancel})
        button->setMinimumSize(80, 26);
}

QLayout* ProgramPage::orderButtons()
{
    auto* column = new QVBoxLayout;
    column->addStretch();
    for (PictureButton* button : {&cmdProgAdd, &cmdProgRemove, &cmdProgUp, &cmdProgDown}) {
        button->setMinimumSize(QSize(80, 26).expandedTo(button->sizeHint()));
        column->addWidget(button);
    }
    column->addStretch();
    return column;
}

/// Above the frame of a step, which shows each step of a transfer.
void ProgramPage::layoutProgress()
{
    frameProgress.setParent(this);
    frameProgress.setVisible(false);
    frameProgress.moveTwips(memorySettingLeft, progressTopTwips);
    frameProgress.resizeTwips(settingWidthTwips, progressHeightTwips);
    auto* row = new QHBoxLayout(&frameProgress);
    row->setContentsMargins(8, 4, 8, 6);
    for (const auto& [index, bar] : {std::pair{5, &pbProg}, std::pair{6, &pbSeq}}) {
        Label& label = lblMemory.at(index);
        label.setMinimumWidth(90);
        row->addWidget(&label);
        row->addWidget(bar, 1);
    }
}

/// The frames get the sizes that the operator's font needs, and the grid begins below the frame of a step where the
/// window is high enough.
void ProgramPage::showEvent(QShowEvent* event)
{
    Frame::showEvent(event);
    fitFrames();
}

/// The frame of a step has its place, and the page has to reach as far as it does.
QSize ProgramPage::minimumSizeHint() const
{
    constexpr int margin = 8;
    const int right = pixels(memorySettingLeft) + frameMemorySetting.minimumSizeHint().width() + margin;
    return Frame::minimumSizeHint().expandedTo({right, 0});
}

void ProgramPage::fitFrames()
{
    for (FloatingFrame* frame : {&frameMemorySetting, &fraProgramOrder, &frameProgress})
        frame->resize(frame->size().expandedTo(frame->minimumSizeHint()));
    const int covered = pixels(memorySettingTop) + frameMemorySetting.height();
    layout()->activate();
    const int legendHeight = lblMemory.at(7).height() + layout()->spacing();
    chainArea_->setUsualHeight(covered - legendHeight - chainArea_->y());
    layout()->activate();
}

} // namespace orb
