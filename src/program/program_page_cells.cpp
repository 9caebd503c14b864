// SPDX-License-Identifier: GPL-3.0-or-later
#include "program_page.h"
#include "run_modes.h"
#include "values.h"

#include <QEvent>
#include <QLineEdit>

#include <algorithm>

namespace orb {

namespace {

constexpr int fieldCount = 13;
constexpr int filledFontSize = 12;
constexpr int pfTime = 2;
constexpr double endOfTimes = 60;
const QString firstTime = QStringLiteral("0.01");
const QString timeOff = QStringLiteral("Off");

} // namespace

void ProgramPage::txtMemSettingMouseDown(int index)
{
    MemoryCell& cell = element(txtMemSetting, index);
    const QString program = QString::number(index / stepCount + 1);
    const QString step = QString::number(index % stepCount + 1);
    frameMemorySetting.bringToFront();
    frameMemorySetting.moveTwips(memorySettingLeft, memorySettingTop);
    frameMemorySetting.setCaption(QStringLiteral("Program: [%1] Sequence:[%2]").arg(program, step));
    if (cell.text().isEmpty()) { // all other controls keep the values of the cell edited before
        cmbMemoryProg.setText(program);
        cmbMemorySequence.setText(step);
    }
    frameMemorySetting.setTag(QString::number(index));
    frameMemorySetting.setVisible(true);
    markEditedCell();
    ShowMemSetting(cell.tag());
    frameMemorySetting.bringToFront();
}

void ProgramPage::ShowMemSetting(const QString& text)
{
    const QStringList fields = text.split(QLatin1Char(','));
    if (fields.size() != fieldCount)
        return;
    try {
        applyFields(fields);
    } catch (const RuntimeFailure&) { // what was applied up to then stays
        dialogs_.message(QStringLiteral("Error Assign Valut into Memory Setting!"));
    }
}

void ProgramPage::applyFields(const QStringList& fields)
{
    cmbMemoryProg.setText(fields[0]);
    cmbMemorySequence.setText(fields[1]);
    for (std::size_t mode = 0; mode < runModes().size(); ++mode)
        if (runModes()[mode].text == fields[2])
            cmbMemRun.setListIndex(static_cast<int>(mode));
    txtMemCH.setText(fields[3]);
    txtMemCHKeyPress(enterKey);
    for (int i = 0; i < 4; ++i) { // the box first, since its click overwrites the text
        element(chkMemSet, i).setValue(toInteger(numericValue(fields[4 + 2 * i])));
        element(txtProgMem, i).setText(fields[5 + 2 * i]);
    }
    cmbMemory.setText(fields[12]);
}

/// The message about the value that the step lacks, empty if it has all. No range is tested here.
QString ProgramPage::missingValue() const
{
    if (cmbMemory.text().isEmpty())
        return QStringLiteral("Please Input Value of Memory!");
    if (cmbMemoryProg.text().isEmpty() || cmbMemorySequence.text().isEmpty())
        return QStringLiteral("Please Input Value of Program and Sequence!");
    if (cmbMemRun.text().isEmpty() || txtMemCH.text().isEmpty())
        return QStringLiteral("Please Input Value of Run Mode and Short Channel!");
    return {};
}

/// The 13 values of the controls. The times stay as they were typed.
QString ProgramPage::packedSetting() const
{
    QStringList fields{cmbMemoryProg.text(), cmbMemorySequence.text(), cmbMemRun.text(), txtMemCH.text()};
    for (std::size_t i = 0; i < txtProgMem.size(); ++i)
        fields << QString::number(chkMemSet[i].value()) << txtProgMem[i].text();
    fields << cmbMemory.text();
    return fields.join(QLatin1Char(','));
}

void ProgramPage::fillCell(MemoryCell& cell)
{
    cell.setToolTip(
        QStringLiteral("P%1 S%2 Run as %3").arg(cmbMemoryProg.text(), cmbMemorySequence.text(), cmbMemRun.text()));
    cell.setTag(packedSetting());
    cell.setText(cmbMemory.text());
    for (const RunMode& mode : runModes())
        if (mode.text == cmbMemRun.text())
            cell.setBackColor(mode.color);
    cell.setForeColor(Qt::white);
    cell.setFontSize(filledFontSize);
    cell.setAlignment(Qt::AlignCenter);
}

void ProgramPage::cmdMemSetOKClick()
{
    const QString missing = missingValue();
    if (!missing.isEmpty()) {
        dialogs_.message(missing, Icon::Critical);
        return;
    }
    fillCell(element(txtMemSetting, toInteger(numericValue(frameMemorySetting.tag()))));
    frameMemorySetting.setVisible(false);
}

void ProgramPage::cmdMemSetCancelClick()
{
    frameMemorySetting.setVisible(false);
}

/// A time that is switched on starts at 0.01 s and not at the lower limit that is shown.
void ProgramPage::chkMemSetClick(int index)
{
    const bool isOff = element(chkMemSet, index).value() == CheckBox::Unchecked;
    element(txtProgMem, index).setText(isOff ? timeOff : firstTime);
}

/// The P/F-Time is never tested, though its label names a limit. 60 itself is refused, and values between 0 and 0.1
/// pass, against the labels.
void ProgramPage::txtProgMemChange(int index)
{
    TextBox& box = element(txtProgMem, index);
    if (index == pfTime || element(chkMemSet, index).value() != CheckBox::Checked)
        return;
    if (!isNumeric(box.text()))
        return box.setText(firstTime);
    const double seconds = numericValue(box.text());
    if (seconds < 0 || seconds >= endOfTimes) {
        dialogs_.message(lblMemory.at(index).caption() + QStringLiteral(" Value should between ") +
                             element(lblMemoryLim, index).caption(),
                         Icon::Critical);
        box.setText(firstTime);
    }
    if (seconds == 0)
        element(chkMemSet, index).setValue(CheckBox::Unchecked);
}

void ProgramPage::txtMemCHKeyPress(int code)
{
    if (code != enterKey || txtMemCH.text().isEmpty())
        return;
    // A copy: each box that changes rewrites the text.
    std::int32_t rest = toLong(numericValue(txtMemCH.text()));
    int channel = 0;
    for (; rest >= 1; rest /= 2)
        element(chkShortCH, channel++).setValue(rest % 2);
    for (; channel < static_cast<int>(chkShortCH.size()); ++channel)
        element(chkShortCH, channel).setValue(CheckBox::Unchecked);
}

void ProgramPage::chkShortCHClick(int)
{
    int mask = 0;
    for (std::size_t channel = 0; channel < chkShortCH.size(); ++channel)
        if (chkShortCH[channel].value() != CheckBox::Unchecked)
            mask += 1 << channel;
    txtMemCH.setText(QString::number(mask));
}

/// The operator opened the cell: typing goes to the first box of the frame.
void ProgramPage::openByOperator(int cell)
{
    txtMemSettingMouseDown(cell);
    cmbMemory.setFocus();
    cmbMemory.lineEdit()->selectAll();
}

/// To the neighbor of a cell; at the border of the grid the focus stays.
void ProgramPage::moveFocus(int cell, int rows, int columns)
{
    const int program = std::clamp(cell / stepCount + rows, 0, programCount - 1);
    const int step = std::clamp(cell % stepCount + columns, 0, stepCount - 1);
    element(txtMemSetting, program * stepCount + step).setFocus();
}

/// After the frame was closed, so that the arrow keys go on from the cell that it edited.
void ProgramPage::focusEditedCell()
{
    if (!frameMemorySetting.visible())
        element(txtMemSetting, toInteger(numericValue(frameMemorySetting.tag()))).setFocus();
}

/// The cell whose step is in the frame, as long as the frame is shown.
void ProgramPage::markEditedCell()
{
    const QString edited = frameMemorySetting.visible() ? frameMemorySetting.tag() : QString();
    for (int index = 0; index < static_cast<int>(txtMemSetting.size()); ++index) {
        MemoryCell& cell = element(txtMemSetting, index);
        if (const bool isEdited = QString::number(index) == edited; isEdited != cell.isEdited())
            cell.setEdited(isEdited);
    }
}

/// The frame is hidden by several routines.
bool ProgramPage::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == &frameMemorySetting && event->type() == QEvent::HideToParent)
        markEditedCell();
    return Frame::eventFilter(watched, event);
}

} // namespace orb
