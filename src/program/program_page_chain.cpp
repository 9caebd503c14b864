// SPDX-License-Identifier: GPL-3.0-or-later
#include "program_page.h"
#include "values.h"

#include <algorithm>

namespace orb {

namespace {

constexpr int frameLeft = 1650;
constexpr int frameTop = 1350;
constexpr int left = 0;
constexpr int right = 1;
const QString chainEnd = QStringLiteral("OFF");

/// P01 to P12.
QStringList programNames()
{
    QStringList names;
    for (int program = 1; program <= ProgramPage::programCount; ++program)
        names << QStringLiteral("P%1").arg(program, 2, 10, QLatin1Char('0'));
    return names;
}

/// The number of a program by its name; 0 for "OFF" and for no name.
int numberOf(const QString& name)
{
    return toInteger(numericValue(name.right(2)));
}

/// The item that takes its place is selected, or the last one; in an emptied list none.
void removeItem(ListBox& list, int index)
{
    list.removeItem(index);
    list.setListIndex(std::min(index, list.listCount() - 1));
}

} // namespace

/// The names without a leading zero are never seen: the list is filled anew when its frame is opened.
void ProgramPage::initChain()
{
    for (ListBox& list : lstProgramOrder)
        list.clear();
    for (int program = 1; program <= programCount; ++program)
        lstProgramOrder[left].addItem(QStringLiteral("P%1").arg(program));
    for (ComboBox& next : cmbProgChain) {
        next.clear();
        next.addItems(QStringList(chainEnd) + programNames());
        next.setListIndex(0);
    }
    cmbProgChain.back().removeItem(0);
    cmbProgChain.back().setListIndex(0);
}

void ProgramPage::progOrderClick()
{
    fraProgramOrder.bringToFront();
    fraProgramOrder.setVisible(true);
    fraProgramOrder.moveTwips(frameLeft, frameTop);
    for (ListBox& list : lstProgramOrder)
        list.clear();
    lstProgramOrder[left].addItems(programNames());
    const QString start = cmbProgChain.back().text();
    int program = numberOf(start) == 0 ? 1 : numberOf(start);
    selectInLeftList(start);
    cmdProgAddClick();
    // The count of 12 ends the walk along a chain that runs in a circle.
    for (int k = 1; k < programCount && element(cmbProgChain, program - 1).text() != chainEnd; ++k) {
        const QString next = element(cmbProgChain, program - 1).text();
        selectInLeftList(next);
        cmdProgAddClick();
        program = numberOf(next);
    }
}

/// A program that has moved to the right leaves the left list without a selection.
void ProgramPage::selectInLeftList(const QString& item)
{
    lstProgramOrder[left].setListIndex(static_cast<int>(lstProgramOrder[left].items().indexOf(item)));
}

void ProgramPage::cmdProgAddClick()
{
    ListBox& outside = lstProgramOrder[left];
    const int index = outside.listIndex();
    if (index < 0)
        return;
    lstProgramOrder[right].addItem(outside.selectedText());
    removeItem(outside, index);
}

void ProgramPage::cmdProgRemoveClick()
{
    ListBox& outside = lstProgramOrder[left];
    ListBox& chain = lstProgramOrder[right];
    const int index = chain.listIndex();
    if (index < 0)
        return;
    const auto valueOf = [](const QString& item) { return numericValue(item.mid(1)); };
    const QString moved = chain.selectedText();
    int place = 0;
    while (place < outside.listCount() && valueOf(outside.list(place)) <= valueOf(moved))
        ++place;
    outside.insertItem(moved, place);
    removeItem(chain, index);
    if (chain.listCount() == 0)
        chkProgLoop.setValue(CheckBox::Unchecked);
}

/// Moves an item of the right list, and selects it there.
void ProgramPage::moveInRightList(int from, int to)
{
    ListBox& chain = lstProgramOrder[right];
    const QString item = chain.list(from);
    chain.removeItem(from);
    chain.insertItem(item, to);
    chain.setListIndex(to);
}

void ProgramPage::cmdProgUpClick()
{
    const int index = lstProgramOrder[right].listIndex();
    if (index >= 1)
        moveInRightList(index, index - 1);
    else
        dialogs_.message(QStringLiteral("Please choose an item of right side or It is the Top one!"),
                         Icon::Information);
}

void ProgramPage::cmdProgDownClick()
{
    const int index = lstProgramOrder[right].listIndex();
    if (index >= 0 && index < lstProgramOrder[right].listCount() - 1)
        moveInRightList(index, index + 1);
    else
        dialogs_.message(QStringLiteral("Please choose an item of right side or It is the Last one!"),
                         Icon::Information);
}

void ProgramPage::chkProgLoopClick()
{
    if (chkProgLoop.value() != CheckBox::Unchecked)
        return copyLoopStart();
    txtProgLoopStart.setText({});
    txtProgLoopStart.setTag({});
}

void ProgramPage::copyLoopStart()
{
    const ListBox& chain = lstProgramOrder[right];
    if (chain.selectedText().isEmpty())
        return;
    txtProgLoopStart.setText(chain.selectedText());
    txtProgLoopStart.setTag(QString::number(chain.listIndex() + 1));
}

/// A click in the left list counts too: it copies the selection of the right one.
void ProgramPage::lstProgramOrderClick(int)
{
    if (chkProgLoop.value() != CheckBox::Unchecked)
        copyLoopStart();
}

/// Leaves the start alone, and the links of the programs in the left list. The loop is stored nowhere.
void ProgramPage::cmdProgOrderExitClick()
{
    const QStringList chain = lstProgramOrder[right].items();
    int program = numberOf(chain.value(0));
    for (qsizetype i = 1; i < chain.size(); ++i) {
        const int next = numberOf(chain[i]);
        element(cmbProgChain, program - 1).setListIndex(next);
        program = next;
    }
    element(cmbProgChain, program - 1).setText(chainEnd);
    fraProgramOrder.setVisible(false);
}

void ProgramPage::cmdProgOrderCancelClick()
{
    fraProgramOrder.setVisible(false);
}

} // namespace orb
