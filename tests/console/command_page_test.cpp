// SPDX-License-Identifier: GPL-3.0-or-later
#include "command_page_test.h"
#include "text_bytes.h"

#include <QDir>

using namespace orb;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

TEST_F(CommandPageTest, ALineOfOneFieldIsACommandOneOfThreeAFullEntryAndOneOfTwoMalformed)
{
    catalogue("A\r\nB^b^x\r\nC^c\r\n");

    EXPECT_THAT(page.lstCommand.items(), ElementsAre("A", "B", "C^c"));
    pick(page.lstCommand, "B");
    EXPECT_EQ(labels(), "Command:B | Description:b | Format:x");
    pick(page.lstCommand, "C^c");
    EXPECT_EQ(labels(), "Command: | Description: | Format:");
    pick(page.lstCommand, "A");
    EXPECT_EQ(labels(), "Command:A | Description: | Format:");
}

TEST_F(CommandPageTest, ALineWithoutACommandIsSkippedLikeAnEmptyOne)
{
    catalogue("^b^x\r\n\r\nA\r\n");

    EXPECT_THAT(page.lstCommand.items(), ElementsAre("A"));
    EXPECT_THAT(dialogs.shown, IsEmpty());
}

TEST_F(CommandPageTest, ADuplicateInAnotherLetterCaseStopsTheLoadingAtItsLine)
{
    catalogue("A\r\nB\r\na\r\nC\r\n");

    EXPECT_THAT(journal.lines(), ElementsAre("message \"Error Number:457:Key already associated\" critical Ok"));
    EXPECT_THAT(page.lstCommand.items(), ElementsAre("A", "B"));
    EXPECT_EQ(page.colCommands.count(), 2);
}

TEST_F(CommandPageTest, ADescriptionWithAFurtherCaretMakesTheWholeLineTheEntry)
{
    catalogue(":VOLT^volts ^ amperes^<n>\r\n");
    EXPECT_THAT(page.lstCommand.items(), ElementsAre(":VOLT^volts ^ amperes^<n>"));
}

TEST_F(CommandPageTest, AMissingCatalogueIsShownAndIsNoFailureOfTheProgram)
{
    QFile::remove(file("orbCommands.dat"));
    run.enter([&] { page.InitListCommand(); });

    EXPECT_THAT(journal.lines(), ElementsAre("message \"Error Number:53:File not found\" critical Ok"));
}

TEST_F(CommandPageTest, AFolderInPlaceOfTheCatalogueIsShown)
{
    QFile::remove(file("orbCommands.dat"));
    QDir(application.path()).mkdir("orbCommands.dat");
    run.enter([&] { page.InitListCommand(); });

    EXPECT_THAT(journal.lines(), ElementsAre("message \"Error Number:75:Path/File access error\" critical Ok"));
}

TEST_F(CommandPageTest, ASecondLoadingReplacesTheFirst)
{
    catalogue("A\nB\n");
    catalogue("C\n");
    EXPECT_THAT(page.lstCommand.items(), ElementsAre("C"));
    EXPECT_EQ(page.colCommands.count(), 1);
}

TEST_F(CommandPageTest, AFailedLoadingKeepsTheFirstOne)
{
    catalogue("A\nB\n");
    QFile::remove(file("orbCommands.dat"));
    run.enter([&] { page.InitListCommand(); });
    EXPECT_THAT(page.lstCommand.items(), ElementsAre("A", "B"));
    EXPECT_EQ(page.colCommands.count(), 2);
}

TEST_F(CommandPageTest, AClickClearsTheSendBoxForEveryEntryAndLeavesTheFocusAlone)
{
    catalogue(":VOLT\n:MEAS?\n");
    for (const char* entry : {":VOLT", ":MEAS?"}) {
        page.chkSend.setValue(CheckBox::Checked);
        page.cmdUp.setFocus();
        pick(page.lstCommand, entry);
        EXPECT_EQ(page.chkSend.value(), CheckBox::Unchecked) << entry;
        EXPECT_NE(form.focusWidget(), &page.txtValue) << entry;
    }
}

TEST_F(CommandPageTest, AnEntryWithoutARowClearsTheSendBoxAndKeepsTheLabels)
{
    catalogue("A^b^x\n");
    pick(page.lstCommand, "A");
    page.lstCommand.addItem("stray");
    page.chkSend.setValue(CheckBox::Checked);

    pick(page.lstCommand, "stray");

    EXPECT_EQ(page.chkSend.value(), CheckBox::Unchecked);
    EXPECT_EQ(labels(), "Command:A | Description:b | Format:x");
    EXPECT_THAT(processExit.reports, IsEmpty());
}

TEST_F(CommandPageTest, ALastLineWithoutALineEndCounts)
{
    catalogue("A\r\nB");
    EXPECT_THAT(page.lstCommand.items(), ElementsAre("A", "B"));
}

TEST_F(CommandPageTest, LinesMayHoldNulsOrAMegabyteOrAnotherEncoding)
{
    const QByteArray nul("A\0B", 3);
    const QByteArray megabyte(1 << 20, 'x');
    const QByteArray latin1 = "\xC4quivalent";
    catalogue(nul + "\n" + megabyte + "\n" + latin1 + "\n" + "Z\n");

    EXPECT_THAT(dialogs.shown, IsEmpty());
    EXPECT_THAT(page.lstCommand.items(),
                ElementsAre(QString::fromLatin1(nul), QString::fromLatin1(megabyte), textOf(latin1), "Z"));
}

TEST_F(CommandPageTest, TheStartButtonFollowsTheLinkInItsPictureAndThenInItsState)
{
    journal.watch(page.cmdStart, "cmdStart");
    instrument.connected = false;
    run.enter([&] { page.RefreshCommandPage(); });
    instrument.connected = true;
    run.enter([&] { page.RefreshCommandPage(); });

    EXPECT_THAT(journal.lines(),
                ElementsAre("read IsConnected False", "picture cmdStart APP\\ICON\\B1RUNSTOP.jpg",
                            "read IsConnected False", "disable cmdStart", "read IsConnected True",
                            "picture cmdStart APP\\ICON\\B1RUNSTART.JPG", "read IsConnected True", "enable cmdStart"));
}

/// Every message box and file dialog of the page, each from the situation that shows it.
TEST_F(CommandPageTest, EveryMessageAndEveryFileDialogHasItsText)
{
    const auto click = [this](void (CommandPage::*handler)()) { run.enter([this, handler] { (page.*handler)(); }); };
    dialogs.CommonDialog1.title = "Title of another page";
    catalogue(":MEAS?\n:MEAS?\n");

    page.lstCommand.setListIndex(0);
    page.chkSend.setValue(CheckBox::Checked);
    page.txtValue.setText("1");
    click(&CommandPage::cmdInsertClick);
    click(&CommandPage::cmdUpClick);
    click(&CommandPage::cmdDownClick);
    click(&CommandPage::cmdSaveSCPIClick);
    click(&CommandPage::cmdSaveResultClick);
    click(&CommandPage::cmdStartClick);
    click(&CommandPage::cmdGoClick);
    instrument.connected = false;
    click(&CommandPage::cmdStartClick);
    click(&CommandPage::cmdGoClick);
    addLines({"*RST"});
    page.txtExecLog.setText("log");
    dialogs.files = {std::nullopt, std::nullopt, std::nullopt, std::nullopt, file("a.scp"), file("a.log")};
    click(&CommandPage::cmdSaveClick);
    click(&CommandPage::cmdOpenSCPIClick);
    click(&CommandPage::cmdSaveSCPIClick);
    click(&CommandPage::cmdSaveResultClick);
    click(&CommandPage::cmdSaveSCPIClick);
    click(&CommandPage::cmdSaveResultClick);

    const QStringList expected{
        "message \"Error Number:457:Key already associated\" critical Ok",
        "message \"This is Query Command!\" information Ok",
        "message \"Please choose an item of right side or It is the Top one!\" information Ok",
        "message \"Please choose an item of right side or It is the Last one!\" information Ok",
        "message \"Please Select ORB Commands from Left Comannd Listfirst!\" information Ok",
        "message \"Please Run Commandsfirst!\" information Ok",
        "message \"Please choose an item of Left side and put it into Right side! \" information Ok",
        "message \"Please choose an item of right side \" information Ok",
        "message \"Please Connect Device first, and then try again!\" critical Ok",
        "message \"Please Connect Device first, and then try again!\" critical Ok",
        QStringLiteral("open directory \"\" filter \"命令檔 (*.cmd)|*.cmd\" title \"Title of another page\" name \"\""),
        QStringLiteral("open directory \"APP\\\" filter \"ORB Command Log文件(*.scp)|*.scp\" title \"Title of another "
                       "page\" name \"\""),
        QStringLiteral("save directory \"APP\\\" filter \"ORB Command Log文件(*.scp)|*.scp\" title \"Title of another "
                       "page\" name \"\""),
        "message \"ORB Commands saved Failed as User Cancel Opeation!\" none Ok",
        QStringLiteral("save directory \"APP\\\" filter \"ORB Command Log文件(*.log)|*.log\" title \"Title of another "
                       "page\" name \"\""),
        "message \"ORB Command Log saved Failed as User Cancel Opeation!\" none Ok",
        QStringLiteral("save directory \"APP\\\" filter \"ORB Command Log文件(*.scp)|*.scp\" title \"Title of another "
                       "page\" name \"\""),
        "message \"ORB Commands saved OK (FileName:APP/a.scp)!\" information Ok",
        QStringLiteral("save directory \"APP\\\" filter \"ORB Command Log文件(*.log)|*.log\" title \"Title of another "
                       "page\" name \"APP/a.scp\""),
        "message \"ORB Command Log saved OK (FileName:APP/a.log)!\" information Ok",
    };
    EXPECT_EQ(journal.linesOf({"message", "open", "save", "report"}), expected);
}

} // namespace
