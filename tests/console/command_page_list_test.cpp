// SPDX-License-Identifier: GPL-3.0-or-later
#include "command_page_test.h"
#include "text_bytes.h"

#include <QCoreApplication>
#include <QDir>
#include <QMouseEvent>

using namespace orb;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

const QString topOne = "message \"Please choose an item of right side or It is the Top one!\" information Ok";
const QString lastOne = "message \"Please choose an item of right side or It is the Last one!\" information Ok";

void mouse(QWidget& widget, QEvent::Type type, QPointF at, Qt::MouseButton button)
{
    const Qt::MouseButtons held = type == QEvent::MouseButtonRelease ? Qt::MouseButtons() : button;
    QMouseEvent event(type, at, widget.mapToGlobal(at), button, held, Qt::NoModifier);
    QCoreApplication::sendEvent(&widget, &event);
}

class CommandPageListTest : public CommandPageTest {
protected:
    CommandPageListTest() { catalogue(":VOLT\n:MEAS?\n:CURR^amperes^<A>\n"); }

    QPointF centerOf(int row) { return page.lstCommand.visualItemRect(page.lstCommand.item(row)).center(); }

    /// The panel on view and the state of what switches it.
    QString panels() const
    {
        return QStringList{page.lstCmdPool.visible() ? "list" : "", page.txtExecLog.visible() ? "log" : "",
                           page.cmdShowPages.caption(), "\"" + log() + "\""}
            .join(' ')
            .simplified();
    }
};

TEST_F(CommandPageListTest, WithoutAValueACommandBecomesItsQueryAndAQueryStays)
{
    pick(page.lstCommand, ":VOLT");
    press(page.cmdInsert);
    pick(page.lstCommand, ":MEAS?");
    press(page.cmdInsert);
    EXPECT_THAT(page.lstCmdPool.items(), ElementsAre(":VOLT?", ":MEAS?"));
}

TEST_F(CommandPageListTest, AValueIsTrimmedAndFollowsOneBlank)
{
    pick(page.lstCommand, ":CURR");
    press(page.chkSend);
    page.txtValue.setText("  1.5 ");
    press(page.cmdInsert);
    EXPECT_THAT(page.lstCmdPool.items(), ElementsAre(":CURR 1.5"));
}

TEST_F(CommandPageListTest, WithNothingSelectedALineOfAQuestionMarkIsAdded)
{
    press(page.cmdInsert);
    EXPECT_THAT(page.lstCmdPool.items(), ElementsAre("?"));
}

TEST_F(CommandPageListTest, AMissingValueIsAskedForByTheFocusAndAddsNothing)
{
    pick(page.lstCommand, ":CURR");
    press(page.chkSend);
    page.cmdInsert.setFocus();

    press(page.cmdInsert);

    EXPECT_EQ(form.focusWidget(), &page.txtValue);
    EXPECT_THAT(page.lstCmdPool.items(), IsEmpty());
    EXPECT_THAT(dialogs.shown, IsEmpty());
}

TEST_F(CommandPageListTest, AQueryTakesNoValue)
{
    pick(page.lstCommand, ":MEAS?");
    press(page.chkSend);
    page.txtValue.setText("1");

    press(page.cmdInsert);

    EXPECT_THAT(journal.lines(), ElementsAre("message \"This is Query Command!\" information Ok"));
    EXPECT_THAT(page.lstCmdPool.items(), IsEmpty());
}

TEST_F(CommandPageListTest, ADoubleClickOfTheLeftButtonInserts)
{
    pick(page.lstCommand, ":VOLT");
    for (const Qt::MouseButton button : {Qt::RightButton, Qt::MiddleButton, Qt::LeftButton})
        mouse(*page.lstCommand.viewport(), QEvent::MouseButtonDblClick, centerOf(0), button);
    EXPECT_THAT(page.lstCmdPool.items(), ElementsAre(":VOLT?"));
}

TEST_F(CommandPageListTest, AnEntryPressedAndReleasedElsewhereHasItsLabelsBeforeItIsInserted)
{
    form.show();
    pick(page.lstCommand, ":VOLT");
    QWidget& rows = *page.lstCommand.viewport();
    mouse(rows, QEvent::MouseButtonPress, centerOf(2), Qt::LeftButton);
    mouse(rows, QEvent::MouseMove, QPointF(-40, -40), Qt::LeftButton);
    mouse(rows, QEvent::MouseButtonRelease, QPointF(-40, -40), Qt::LeftButton);

    press(page.cmdInsert);

    EXPECT_EQ(labels(), "Command::CURR | Description:amperes | Format:<A>");
    EXPECT_THAT(page.lstCmdPool.items(), ElementsAre(":CURR?"));
}

TEST_F(CommandPageListTest, TheFirstLineUpAndTheLastLineDownShowTheirMessagesAndTheListStays)
{
    addLines({"1", "2"});
    press(page.cmdUp);
    press(page.cmdDown);
    pick(page.lstCmdPool, "1");
    press(page.cmdUp);
    pick(page.lstCmdPool, "2");
    press(page.cmdDown);

    EXPECT_THAT(journal.lines(), ElementsAre(topOne, lastOne, topOne, lastOne));
    EXPECT_THAT(page.lstCmdPool.items(), ElementsAre("1", "2"));
}

TEST_F(CommandPageListTest, AMovedLineLeavesTheListWithoutASelection)
{
    addLines({"1", "2", "3"});
    pick(page.lstCmdPool, "2");
    press(page.cmdUp);
    EXPECT_THAT(page.lstCmdPool.items(), ElementsAre("2", "1", "3"));
    EXPECT_EQ(page.lstCmdPool.listIndex(), -1);

    pick(page.lstCmdPool, "1");
    press(page.cmdDown);
    EXPECT_THAT(page.lstCmdPool.items(), ElementsAre("2", "3", "1"));
    EXPECT_EQ(page.lstCmdPool.listIndex(), -1);
}

TEST_F(CommandPageListTest, TheFirstLineMovesDownAndTheLastOneUp)
{
    addLines({"1", "2", "3"});
    pick(page.lstCmdPool, "1");
    press(page.cmdDown);
    EXPECT_THAT(page.lstCmdPool.items(), ElementsAre("2", "1", "3"));
    pick(page.lstCmdPool, "3");
    press(page.cmdUp);
    EXPECT_THAT(page.lstCmdPool.items(), ElementsAre("2", "3", "1"));
    EXPECT_THAT(journal.lines(), IsEmpty());
}

TEST_F(CommandPageListTest, DeleteRemovesTheSelectedLineAndDoesNothingWithoutOne)
{
    addLines({"1", "2"});
    press(page.cmdDelete);
    EXPECT_THAT(page.lstCmdPool.items(), ElementsAre("1", "2"));
    pick(page.lstCmdPool, "1");
    press(page.cmdDelete);
    EXPECT_THAT(page.lstCmdPool.items(), ElementsAre("2"));
    EXPECT_THAT(dialogs.shown, IsEmpty());
}

TEST_F(CommandPageListTest, TheValueIsSelectedWholeWhenItGetsTheFocusByKeyOrMouse)
{
    form.show();
    form.activateWindow();
    QCoreApplication::processEvents(); // the window is active now
    page.txtValue.setText("1234");
    page.chkSend.setFocus();
    page.txtValue.setFocus(Qt::OtherFocusReason); // for which Qt selects nothing by itself
    EXPECT_EQ(page.txtValue.selectedText(), "1234") << "by key";

    page.txtValue.deselect();
    page.chkSend.setFocus();
    page.txtValue.setFocus(Qt::MouseFocusReason);
    mouse(page.txtValue, QEvent::MouseButtonPress, QPointF(8, 8), Qt::LeftButton);
    mouse(page.txtValue, QEvent::MouseButtonRelease, QPointF(8, 8), Qt::LeftButton);
    EXPECT_EQ(page.txtValue.selectedText(), "1234") << "by mouse";
}

TEST_F(CommandPageListTest, AListIsSavedAndOpenedWithItsEmptyLines)
{
    addLines({"*RST", "", ":CHAN 1"});
    dialogs.files = {file("list.scp"), file("list.scp")};

    press(page.cmdSaveSCPI);
    EXPECT_EQ(contentOf(file("list.scp")), "*RST\r\n\r\n:CHAN 1\r\n");
    page.lstCmdPool.clear();
    addLines({"other"});
    press(page.cmdOpenSCPI);

    EXPECT_THAT(page.lstCmdPool.items(), ElementsAre("*RST", "", ":CHAN 1"));
}

TEST_F(CommandPageListTest, TheSavedMessageComesOnlyWhenTheFileIsComplete)
{
    addLines({"*RST"});
    dialogs.files = {file("list.scp")};
    dialogs.onMessage = [&](const Shown&) { EXPECT_EQ(contentOf(file("list.scp")), "*RST\r\n"); };
    press(page.cmdSaveSCPI);
    EXPECT_EQ(dialogs.shown.size(), 1);
}

TEST_F(CommandPageListTest, AnEmptyLineOfAFileIsSentAsAnEmptyCommand)
{
    write("list.scp", "\r\n");
    dialogs.files = {file("list.scp")};
    press(page.cmdOpenSCPI);
    press(page.cmdStart);
    EXPECT_THAT(instrument.sent, ElementsAre(""));
    EXPECT_EQ(log(), "\r\n");
}

TEST_F(CommandPageListTest, ACancelKeepsTheListAndTheFileThoughTheDialogHoldsAName)
{
    write("list.scp", "A\r\n");
    addLines({"mine"});
    dialogs.CommonDialog1.fileName = file("list.scp");

    press(page.cmdOpenSCPI);
    EXPECT_THAT(page.lstCmdPool.items(), ElementsAre("mine"));
    EXPECT_THAT(dialogs.shown, IsEmpty());
    press(page.cmdSaveSCPI);
    EXPECT_EQ(contentOf(file("list.scp")), "A\r\n");
    EXPECT_THAT(journal.linesOf({"message"}),
                ElementsAre("message \"ORB Commands saved Failed as User Cancel Opeation!\" none Ok"));
}

TEST_F(CommandPageListTest, AFileOfAHundredThousandLinesIsRead)
{
    QByteArray content;
    for (int i = 0; i < 100'000; ++i)
        content += ":CURR " + QByteArray::number(i) + "\r\n";
    write("list.scp", content);
    dialogs.files = {file("list.scp")};

    press(page.cmdOpenSCPI);

    EXPECT_EQ(page.lstCmdPool.listCount(), 100'000);
    EXPECT_EQ(page.lstCmdPool.list(99'999), ":CURR 99999");
}

TEST_F(CommandPageListTest, AFolderInPlaceOfAListIsAFailureAfterTheListWasCleared)
{
    addLines({"mine"});
    QDir(application.path()).mkdir("list.scp");
    dialogs.files = {file("list.scp")};

    press(page.cmdOpenSCPI);

    EXPECT_THAT(processExit.reports, ElementsAre("Run-time error '75':\n\nPath/File access error"));
    EXPECT_THAT(page.lstCmdPool.items(), IsEmpty());
    EXPECT_TRUE(QDir(file("list.scp")).exists());
}

TEST_F(CommandPageListTest, ASaveOntoAFolderIsAFailureAndTheListAndTheFolderStay)
{
    QDir(application.path()).mkdir("list.scp");
    write("list.scp/inside", "kept");
    addLines({"*RST"});
    dialogs.files = {file("list.scp")};

    press(page.cmdSaveSCPI);

    EXPECT_THAT(processExit.reports, ElementsAre("Run-time error '75':\n\nPath/File access error"));
    EXPECT_THAT(dialogs.shown, IsEmpty());
    EXPECT_EQ(contentOf(file("list.scp/inside")), "kept");
    EXPECT_THAT(page.lstCmdPool.items(), ElementsAre("*RST"));
}

TEST_F(CommandPageListTest, AListWithDamagedBytesIsOpenedWithNothingLeftOut)
{
    write("list.scp", QByteArray("A\0B\r\n\xC4\r\n", 8) + QByteArray(1 << 20, 'x') + "\nlast");
    dialogs.files = {file("list.scp")};

    press(page.cmdOpenSCPI);

    EXPECT_TRUE((page.lstCmdPool.items() == QStringList{QString::fromLatin1("A\0B", 3), textOf("\xC4"),
                                                        QString(1 << 20, QLatin1Char('x')), "last"}));
}

TEST_F(CommandPageListTest, TheBytesOfALineThatIsNoUTF8AreSavedAsTheyCame)
{
    write("list.scp", "caf\xE9?\r\ncaf\xC3\xA9?\r\n");
    dialogs.files = {file("list.scp"), file("saved.scp")};

    press(page.cmdOpenSCPI);
    press(page.cmdSaveSCPI);

    EXPECT_EQ(contentOf(file("saved.scp")), "caf\xE9?\r\ncaf\xC3\xA9?\r\n");
}

TEST_F(CommandPageListTest, ThePanelsTakeTurnsUnderACaptionThatNamesTheShownOne)
{
    page.txtExecLog.setText("A");
    EXPECT_EQ(panels(), "list Show Log \"A\"");
    press(page.cmdShowPages);
    EXPECT_EQ(panels(), "log Show Log \"A\"");
    press(page.cmdShowPages);
    EXPECT_EQ(panels(), "list Show CMD \"A\"");
    press(page.cmdShowPages);
    EXPECT_EQ(panels(), "log Show Log \"A\"");
}

TEST_F(CommandPageListTest, RefreshEmptiesTheLogAndShowsTheList)
{
    page.txtExecLog.setText("A");
    press(page.cmdShowPages);
    press(page.cmdRefresh);
    EXPECT_EQ(panels(), "list Show CMD \"\"");
}

TEST_F(CommandPageListTest, TheShowLogBoxShowsTheLogInFrontAndLeavesListAndCaptionAlone)
{
    page.lstCmdPool.raise();
    journal.watch(page.txtExecLog, "txtExecLog");
    press(page.chkShowLog);
    EXPECT_EQ(panels(), "list log Show Log \"\"");
    EXPECT_THAT(journal.linesOf({"show", "raise"}), ElementsAre("show txtExecLog", "raise txtExecLog"));

    press(page.chkShowLog);
    EXPECT_EQ(panels(), "list Show Log \"\"");
}

TEST_F(CommandPageListTest, TheLogIsSavedAsRichTextAfterItsTimeAndIsThenCleared)
{
    page.txtExecLog.setText("*IDN? => A\r\n");
    dialogs.files = {file("run.cmd")};

    run.enter([&] { page.cmdSaveClick(); });

    const QString saved = contentOf(file("run.cmd"));
    EXPECT_TRUE(saved.startsWith("{\\rtf1")) << saved.toStdString();
    EXPECT_TRUE(saved.contains("Time:2024/01/31 10:15:00\\par\r\n*IDN? => A\\par\r\n")) << saved.toStdString();
    EXPECT_EQ(log(), "");
    EXPECT_EQ(dialogs.fileDialogs.at(0).dialog.initialDirectory, "");
    EXPECT_EQ(dialogs.CommonDialog1.initialDirectory, application.path()) << "for the next dialog";
}

TEST_F(CommandPageListTest, TheLogIsNotSavedWhenItIsEmptyOrTheDisplayPageChoseOtherwiseOrTheOperatorCancels)
{
    dialogs.CommonDialog1.fileName = file("run.cmd");
    run.enter([&] { page.cmdSaveClick(); });
    page.txtExecLog.setText("log");
    optDispDev.setValue(false);
    run.enter([&] { page.cmdSaveClick(); });
    EXPECT_THAT(dialogs.fileDialogs, IsEmpty());
    optDispDev.setValue(true);
    run.enter([&] { page.cmdSaveClick(); });

    EXPECT_EQ(log(), "log");
    EXPECT_THAT(dialogs.shown, IsEmpty());
    EXPECT_EQ(contentOf(file("run.cmd")), "no such file");
}

} // namespace
