// SPDX-License-Identifier: GPL-3.0-or-later
#include "command_test.h"

#include <QCoreApplication>
#include <QDir>
#include <QMouseEvent>

using namespace orb;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

const Shown topOne{"Please choose an item of right side or It is the Top one!", Icon::Information, Buttons::Ok};
const Shown lastOne{"Please choose an item of right side or It is the Last one!", Icon::Information, Buttons::Ok};
const Shown emptyList{"Please Select ORB Commands from Left Comannd Listfirst!", Icon::Information, Buttons::Ok};
const Shown saveCancelled{"ORB Commands saved Failed as User Cancel Opeation!", Icon::None, Buttons::Ok};

class CommandListTest : public CommandPageTest {
protected:
    CommandListTest() { catalogue(":VOLT\n:MEAS?\n:CURR\n"); }

    QString scp() const { return contentOf(application.filePath("list.scp")); }
};

TEST_F(CommandListTest, WithoutAValueACommandBecomesItsQueryAndAQueryStays)
{
    pick(page.lstCommand, ":VOLT");
    press(page.cmdInsert);
    pick(page.lstCommand, ":MEAS?");
    press(page.cmdInsert);
    EXPECT_THAT(page.lstCmdPool.items(), ElementsAre(":VOLT?", ":MEAS?"));
}

TEST_F(CommandListTest, AValueIsTrimmedAndStandsBehindOneBlank)
{
    pick(page.lstCommand, ":CURR");
    press(page.chkSend);
    page.txtValue.setText("  1.5 ");
    press(page.cmdInsert);
    EXPECT_THAT(page.lstCmdPool.items(), ElementsAre(":CURR 1.5"));
}

TEST_F(CommandListTest, WithNothingSelectedALineOfAQuestionMarkIsAdded)
{
    press(page.cmdInsert);
    EXPECT_THAT(page.lstCmdPool.items(), ElementsAre("?"));
}

TEST_F(CommandListTest, AValueThatIsMissingAddsNothing)
{
    pick(page.lstCommand, ":CURR");
    press(page.chkSend);
    press(page.cmdInsert);
    EXPECT_THAT(page.lstCmdPool.items(), IsEmpty());
    EXPECT_THAT(dialogs.shown, IsEmpty());
}

TEST_F(CommandListTest, AValueForAQueryIsRefused)
{
    pick(page.lstCommand, ":MEAS?");
    press(page.chkSend);
    page.txtValue.setText("1");
    press(page.cmdInsert);
    EXPECT_THAT(dialogs.shown, ElementsAre(Shown{"This is Query Command!", information, Buttons::Ok}));
    EXPECT_THAT(page.lstCmdPool.items(), IsEmpty());
}

TEST_F(CommandListTest, ADoubleClickOnTheCatalogueInserts)
{
    pick(page.lstCommand, ":VOLT");
    const QPointF at = page.lstCommand.visualItemRect(page.lstCommand.item(0)).center();
    QMouseEvent twice(QEvent::MouseButtonDblClick, at, at, Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(page.lstCommand.viewport(), &twice);
    EXPECT_THAT(page.lstCmdPool.items(), ElementsAre(":VOLT?"));
}

TEST_F(CommandListTest, TheFirstLineUpAndTheLastLineDownAreToldAndTheListStays)
{
    page.lstCmdPool.addItems({"1", "2"});
    press(page.cmdUp);
    press(page.cmdDown);
    pick(page.lstCmdPool, "1");
    press(page.cmdUp);
    pick(page.lstCmdPool, "2");
    press(page.cmdDown);

    EXPECT_THAT(dialogs.shown, ElementsAre(topOne, lastOne, topOne, lastOne));
    EXPECT_THAT(page.lstCmdPool.items(), ElementsAre("1", "2"));
}

TEST_F(CommandListTest, AMovedLineLeavesTheListWithoutASelection)
{
    page.lstCmdPool.addItems({"1", "2", "3"});
    pick(page.lstCmdPool, "2");
    press(page.cmdUp);
    EXPECT_THAT(page.lstCmdPool.items(), ElementsAre("2", "1", "3"));
    EXPECT_EQ(page.lstCmdPool.listIndex(), -1);

    pick(page.lstCmdPool, "1");
    press(page.cmdDown);
    EXPECT_THAT(page.lstCmdPool.items(), ElementsAre("2", "3", "1"));
    EXPECT_EQ(page.lstCmdPool.listIndex(), -1);
}

TEST_F(CommandListTest, DeleteTakesTheSelectedLineAndDoesNothingWithoutOne)
{
    page.lstCmdPool.addItems({"1", "2"});
    press(page.cmdDelete);
    EXPECT_EQ(page.lstCmdPool.listCount(), 2);
    pick(page.lstCmdPool, "1");
    press(page.cmdDelete);
    EXPECT_THAT(page.lstCmdPool.items(), ElementsAre("2"));
    EXPECT_THAT(dialogs.shown, IsEmpty());
}

TEST_F(CommandListTest, TheValueIsSelectedWholeWhenItGetsTheFocus)
{
    page.txtValue.setText("12");
    run.enter([&] { page.txtValueGotFocus(); });
    EXPECT_EQ(page.txtValue.selectedText(), "12");
}

TEST_F(CommandListTest, AListGoesToItsFileAndComesBackWithItsEmptyLines)
{
    page.lstCmdPool.addItems({"*RST", "", ":CHAN 1"});
    dialogs.files = {application.filePath("list.scp"), application.filePath("list.scp")};

    press(page.cmdSaveSCPI);
    EXPECT_EQ(scp(), "*RST\r\n\r\n:CHAN 1\r\n");
    EXPECT_THAT(dialogs.shown,
                ElementsAre(Shown{"ORB Commands saved OK (FileName:" + application.filePath("list.scp") + ")!",
                                  information, Buttons::Ok}));
    page.lstCmdPool.clear();
    page.lstCmdPool.addItem("other");
    press(page.cmdOpenSCPI);

    EXPECT_THAT(page.lstCmdPool.items(), ElementsAre("*RST", "", ":CHAN 1"));
}

TEST_F(CommandListTest, AnEmptyLineOfAFileIsSentAsAnEmptyCommand)
{
    write("list.scp", "\r\n");
    dialogs.files = {application.filePath("list.scp")};
    press(page.cmdOpenSCPI);
    run.enter([&] { page.RefreshCommandPage(); });
    press(page.cmdStart);
    EXPECT_THAT(instrument.sent, ElementsAre(""));
    EXPECT_EQ(page.txtExecLog.text(), "\r\n");
}

TEST_F(CommandListTest, ACancelKeepsTheListThoughTheDialogHoldsAName)
{
    write("list.scp", "A\r\n");
    page.lstCmdPool.addItem("mine");
    dialogs.CommonDialog1.fileName = application.filePath("list.scp");
    dialogs.files = {std::nullopt, std::nullopt};

    press(page.cmdOpenSCPI);
    EXPECT_THAT(page.lstCmdPool.items(), ElementsAre("mine"));
    EXPECT_THAT(dialogs.shown, IsEmpty());
    press(page.cmdSaveSCPI);
    EXPECT_THAT(dialogs.shown, ElementsAre(saveCancelled));
    EXPECT_EQ(scp(), "A\r\n");
}

TEST_F(CommandListTest, AnEmptyListIsNotSaved)
{
    press(page.cmdSaveSCPI);
    EXPECT_THAT(dialogs.shown, ElementsAre(emptyList));
    EXPECT_THAT(dialogs.fileDialogs, IsEmpty());
}

TEST_F(CommandListTest, TheFileDialogsAskInTheApplicationsFolder)
{
    press(page.cmdOpenSCPI);
    ASSERT_EQ(dialogs.fileDialogs.size(), 1);
    EXPECT_EQ(dialogs.fileDialogs[0].mode, "open");
    EXPECT_EQ(dialogs.fileDialogs[0].dialog.initialDirectory, application.path() + "\\");
    EXPECT_EQ(dialogs.fileDialogs[0].dialog.filter, QStringLiteral("ORB Command Log文件(*.scp)|*.scp"));
}

TEST_F(CommandListTest, AFileOfAHundredThousandLinesIsRead)
{
    QByteArray content;
    for (int i = 0; i < 100'000; ++i)
        content += ":CURR " + QByteArray::number(i) + "\r\n";
    write("list.scp", content);
    dialogs.files = {application.filePath("list.scp")};

    press(page.cmdOpenSCPI);

    EXPECT_EQ(page.lstCmdPool.listCount(), 100'000);
    EXPECT_EQ(page.lstCmdPool.list(99'999), ":CURR 99999");
}

TEST_F(CommandListTest, AFolderInThePlaceOfAListIsReportedAndNothingOnDiskIsLost)
{
    QDir(application.path()).mkdir("list.scp");
    dialogs.files = {application.filePath("list.scp")};
    press(page.cmdOpenSCPI);
    EXPECT_THAT(processExit.reports, ElementsAre("Run-time error '75':\n\nPath/File access error"));
    EXPECT_TRUE(QDir(application.filePath("list.scp")).exists());
}

TEST_F(CommandListTest, ASaveOntoAFolderIsReportedAndTheListAndTheFolderStay)
{
    QDir(application.path()).mkdir("list.scp");
    write("list.scp/inside", "kept");
    page.lstCmdPool.addItem("*RST");
    dialogs.files = {application.filePath("list.scp")};
    press(page.cmdSaveSCPI);
    EXPECT_THAT(processExit.reports, ElementsAre("Run-time error '75':\n\nPath/File access error"));
    EXPECT_EQ(contentOf(application.filePath("list.scp/inside")), "kept");
    EXPECT_THAT(page.lstCmdPool.items(), ElementsAre("*RST"));
}

TEST_F(CommandListTest, AListWithDamagedBytesIsOpenedWithNothingLeftOut)
{
    write("list.scp", QByteArray("A\0B\r\n\xC4\r\n", 8) + QByteArray(1 << 20, 'x') + "\nlast");
    dialogs.files = {application.filePath("list.scp")};
    press(page.cmdOpenSCPI);
    ASSERT_EQ(page.lstCmdPool.listCount(), 4);
    EXPECT_EQ(page.lstCmdPool.list(0), QString::fromLatin1("A\0B", 3));
    EXPECT_EQ(page.lstCmdPool.list(1), QString::fromLatin1("\xC4"));
    EXPECT_TRUE(page.lstCmdPool.list(2) == QString(1 << 20, QLatin1Char('x')));
    EXPECT_EQ(page.lstCmdPool.list(3), "last");
}

TEST_F(CommandListTest, ThePanelsChangePlacesUnderACaptionThatNamesTheOneOnView)
{
    EXPECT_EQ(page.cmdShowPages.caption(), "Show Log");
    press(page.cmdShowPages);
    EXPECT_TRUE(page.txtExecLog.visible());
    EXPECT_FALSE(page.lstCmdPool.visible());
    EXPECT_EQ(page.cmdShowPages.caption(), "Show Log");
    press(page.cmdShowPages);
    EXPECT_FALSE(page.txtExecLog.visible());
    EXPECT_TRUE(page.lstCmdPool.visible());
    EXPECT_EQ(page.cmdShowPages.caption(), "Show CMD");
}

TEST_F(CommandListTest, RefreshEmptiesTheLogAndShowsTheList)
{
    page.txtExecLog.setText("old\r\n");
    press(page.cmdShowPages);
    press(page.cmdRefresh);
    EXPECT_EQ(page.txtExecLog.text(), "");
    EXPECT_TRUE(page.lstCmdPool.visible());
    EXPECT_EQ(page.cmdShowPages.caption(), "Show CMD");
}

TEST_F(CommandListTest, TheShowLogBoxShowsTheLogAndLeavesListAndCaptionAlone)
{
    press(page.chkShowLog);
    EXPECT_TRUE(page.txtExecLog.visible());
    EXPECT_TRUE(page.lstCmdPool.visible());
    press(page.chkShowLog);
    EXPECT_FALSE(page.txtExecLog.visible());
    EXPECT_EQ(page.cmdShowPages.caption(), "Show Log");
}

TEST_F(CommandListTest, TheLogIsSavedAsRichTextWithItsTimeInFrontAndIsThenGone)
{
    page.txtExecLog.setText("*IDN? => A\r\n");
    dialogs.files = {application.filePath("run.cmd")};

    run.enter([&] { page.cmdSaveClick(); });

    const QString saved = contentOf(application.filePath("run.cmd"));
    EXPECT_TRUE(saved.startsWith("{\\rtf1")) << saved.toStdString();
    EXPECT_TRUE(saved.contains("Time:2024/01/31 10:15:00\\par\r\n*IDN? => A\\par\r\n")) << saved.toStdString();
    EXPECT_EQ(page.txtExecLog.text(), "");
    ASSERT_EQ(dialogs.fileDialogs.size(), 1);
    EXPECT_EQ(dialogs.fileDialogs[0].mode, "open");
    EXPECT_EQ(dialogs.fileDialogs[0].dialog.initialDirectory, "");
    EXPECT_EQ(dialogs.CommonDialog1.initialDirectory, application.path());
    EXPECT_EQ(dialogs.CommonDialog1.filter, QStringLiteral("命令檔 (*.cmd)|*.cmd"));
}

TEST_F(CommandListTest, TheLogIsNotSavedWhenItIsEmptyOrTheDisplayPageChoseOtherwiseOrTheOperatorCancels)
{
    run.enter([&] { page.cmdSaveClick(); });
    page.txtExecLog.setText("log");
    optDispDev.setValue(false);
    run.enter([&] { page.cmdSaveClick(); });
    EXPECT_THAT(dialogs.fileDialogs, IsEmpty());
    optDispDev.setValue(true);
    run.enter([&] { page.cmdSaveClick(); });

    EXPECT_EQ(page.txtExecLog.text(), "log");
    EXPECT_THAT(dialogs.shown, IsEmpty());
}

TEST_F(CommandListTest, TheTabKeyGoesFromTheButtonsOverTheCatalogueToTheList)
{
    const std::vector<const QWidget*> wanted{
        &page.cmdStart,      &page.cmdStop,     &page.cmdOpenSCPI, &page.cmdSaveSCPI, &page.cmdRefresh,
        &page.cmdSaveResult, &page.lstCommand,  &page.chkSend,     &page.txtValue,    &page.cmdInsert,
        &page.cmdUp,         &page.cmdDown,     &page.cmdDelete,   &page.lstCmdPool,  &page.chkRepeat,
        &page.chkShowLog,    &page.cmdShowPages};
    std::vector<const QWidget*> seen;
    const QWidget* widget = &page.cmdStart;
    do {
        if (std::ranges::find(wanted, widget) != wanted.end())
            seen.push_back(widget);
        widget = widget->nextInFocusChain();
    } while (widget != &page.cmdStart);
    EXPECT_EQ(seen, wanted);
}

TEST_F(CommandListTest, TheControlsThatNothingShowsAreHidden)
{
    EXPECT_FALSE(page.cmdDeleteSCPI.visible());
    EXPECT_FALSE(page.cmdSave.visible());
    EXPECT_FALSE(page.cmdGo.visible());
    EXPECT_FALSE(page.txtExecLog.visible());
}

} // namespace
