// SPDX-License-Identifier: GPL-3.0-or-later
#include "program_page_test.h"

using namespace orb;
using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

const Shown stored{"Store Program Setting(ID:20240131-101500) Successfully!", Icon::Information};
const QString identifier = "20240131-101500";
const Shown memoryMissing{"Please Input Value of Memory!", Icon::Critical};

class ProgramPageHistoryTest : public ProgramPageTest {
protected:
    ProgramPageHistoryTest()
    {
        clock.setNow(QDateTime({2024, 1, 31}, {10, 15, 0}));
        dialog.cmdOKDataLogFile.onClick = [this] {
            page.ApplyProgramHistory();
            dialog.setVisible(false);
        };
    }

    /// A page whose every cell holds another step.
    void fillAll()
    {
        for (int n = 0; n < 120; ++n)
            cell(n).setTag(QStringLiteral("%1,%2,%3,%4,1,0.01,0,Off,1,abc,1,%5,%6")
                               .arg(n / 10 + 1)
                               .arg(n % 10 + 1)
                               .arg(n % 2 ? "AUTO" : "SKIP")
                               .arg(n)
                               .arg(n % 59 + 1)
                               .arg(n + 1));
    }

    void pickCase(const QString& name = identifier)
    {
        pick(dialog.lstProgFile, name);
        press(dialog.cmdOKDataLogFile);
    }

    void openStored(const QString& name = identifier)
    {
        press(page.progOpenDB);
        pickCase(name);
    }

    void insertRow(const QString& name, int cellNumber, const QString& data)
    {
        alterDatabase(
            QStringLiteral("insert into ProgramMemory values('%1',%2,%3)").arg(name).arg(cellNumber).arg(data));
    }

    /// What the dialog shows and holds.
    QString dialogState() const
    {
        return QStringLiteral("%1 %2 %3 %4 %5 \"%6\" [%7]")
            .arg(dialog.visible() ? "shown" : "hidden", dialog.lstProgFile.visible() ? "list" : "no list",
                 dialog.lstProgFile.tag(), dialog.lstProgFile.backColor().name(), dialog.cmdOKDataLogFile.tag(),
                 dialog.lblLogTitle.caption(), dialog.lstProgFile.items().join(' '));
    }
};

TEST_F(ProgramPageHistoryTest, AStoreWritesARowForEachCellAndEachChainBox)
{
    fill(0, "17");
    chain(0).setText("P03");
    chain(12).setText("P05");

    press(page.progSave);

    EXPECT_THAT(dialogs.shown, ElementsAre(stored));
    EXPECT_EQ(table("select * from ProgramMemory where MemNo<2 order by rowid"),
              identifier + "|0|1,1,AUTO,0,1,0.1,1,0.1,1,0.1,1,0.1,17\n" + identifier + "|1|\n");
    EXPECT_EQ(table("select count(*),min(MemNo),max(MemNo),count(MemData) from ProgramMemory"), "120|0|119|120\n");
    EXPECT_EQ(table("select group_concat(ProgNo||':'||ProgData,' ') from ProgramChain"),
              "0:3 1:0 2:0 3:0 4:0 5:0 6:0 7:0 8:0 9:0 10:0 11:0 12:4\n");
    EXPECT_EQ(table("select distinct MemCase from ProgramChain"), identifier + "\n");
}

TEST_F(ProgramPageHistoryTest, AnEmptyPageIsStoredAsEmptyTextsAndZeros)
{
    press(page.progSave);
    EXPECT_EQ(table("select count(*) from ProgramMemory where MemData=''"), "120\n");
    EXPECT_EQ(table("select count(*) from ProgramChain where ProgData='0'"), "13\n");
}

TEST_F(ProgramPageHistoryTest, ABoxWithoutASelectionIsStoredAsMinusOneAndComesBackSo)
{
    fillAll();
    chain(5).setText("any");
    press(page.progSave);
    chain(5).setText("P02");
    openStored();
    EXPECT_EQ(links(), "0 0 0 0 0 -1 0 0 0 0 0 0 0");
}

TEST_F(ProgramPageHistoryTest, AnApostropheInATimeBreaksTheStatementAndTheRowsSoFarStay)
{
    fillAll();
    cell(5).setTag("1,6,AUTO,0,1,0.1,1,0.1,1,it's,1,0.1,17");

    press(page.progSave);

    ASSERT_EQ(dialogs.shown.size(), 1);
    EXPECT_TRUE(dialogs.shown[0].text.startsWith("Store Program Setting Failed, caused by: "));
    EXPECT_GT(dialogs.shown[0].text.size(), 45) << dialogs.shown[0].text.toStdString();
    EXPECT_EQ(dialogs.shown[0].icon, Icon::Critical);
    EXPECT_EQ(table("select count(*) from ProgramMemory"), "5\n");
    EXPECT_EQ(table("select count(*) from ProgramChain"), "0\n");
    EXPECT_THAT(processExit.reports, IsEmpty());
}

TEST_F(ProgramPageHistoryTest, APercentSignInATimeIsStoredAsItIs)
{
    cell(0).setTag("%1,%2,%3");
    press(page.progSave);
    EXPECT_EQ(table("select MemData from ProgramMemory where MemNo=0"), "%1,%2,%3\n");
}

TEST_F(ProgramPageHistoryTest, TheListOfAnOpeningIsLightRedAndOffersEachCaseOnce)
{
    press(page.progSave);
    clock.setNow(QDateTime({2023, 5, 1}, {1, 2, 3}));
    press(page.progSave);
    dialog.lstProgFile.addItem("left from before");

    press(page.progOpenDB);

    EXPECT_EQ(dialogState(), "shown list OPEN #ffc0c0 PROCROGRAM \"Please Select a Program File and Open this File\" "
                             "[20230501-010203 20240131-101500]");
    EXPECT_EQ(dialog.parentWidget(), &page);
    EXPECT_EQ(page.children().last(), &dialog) << "in front";
}

TEST_F(ProgramPageHistoryTest, TheListOfADeletionIsLightCyan)
{
    press(page.progSave);
    press(page.progDelete);
    EXPECT_EQ(dialogState(), "shown list DELETE #c0ffff PROCROGRAM \"Please Select a Program File and Ready to Delete "
                             "this File\" [20240131-101500]");
}

TEST_F(ProgramPageHistoryTest, TheDialogComesUpInThisOrder)
{
    journal.watch(dialog, "dialog");
    journal.watch(dialog.lstProgFile, "list");
    journal.watchText(&page,
                      [this] { return "has " + dialog.lstProgFile.tag() + '/' + dialog.cmdOKDataLogFile.tag(); });
    journal.clear();
    press(page.progOpenDB);
    EXPECT_THAT(journal.linesOf({"show", "has"}),
                ElementsAre("show list", "has OPEN/", "show dialog", "has OPEN/PROCROGRAM"));
}

TEST_F(ProgramPageHistoryTest, ASecondClickClosesTheListAndLeavesTheDialog)
{
    press(page.progSave);
    press(page.progOpenDB);
    press(page.progOpenDB);
    EXPECT_FALSE(dialog.lstProgFile.visible());
    EXPECT_TRUE(dialog.visible());
}

TEST_F(ProgramPageHistoryTest, ADeleteClickWhileTheListIsOpenForOpeningJustClosesIt)
{
    press(page.progSave);
    press(page.progOpenDB);
    press(page.progDelete);
    EXPECT_EQ(dialogState(),
              "shown no list OPEN #ffc0c0 PROCROGRAM \"Please Select a Program File and Open this File\" "
              "[20240131-101500]");
}

TEST_F(ProgramPageHistoryTest, WithoutACaseTheListIsEmptyAndOkHidesItWithNothingDone)
{
    press(page.progOpenDB);
    EXPECT_THAT(dialog.lstProgFile.items(), IsEmpty());
    press(dialog.cmdOKDataLogFile);
    EXPECT_FALSE(dialog.lstProgFile.visible());
    EXPECT_FALSE(dialog.visible());
    EXPECT_THAT(dialogs.shown, IsEmpty());
    EXPECT_THAT(tags(), Each(QString()));
}

TEST_F(ProgramPageHistoryTest, OkWithNothingSelectedDoesNothing)
{
    fillAll();
    press(page.progSave);
    dialogs.shown.clear();
    press(page.progDelete);
    press(dialog.cmdOKDataLogFile);
    EXPECT_THAT(dialogs.shown, IsEmpty());
    EXPECT_FALSE(dialog.lstProgFile.visible());
    EXPECT_EQ(table("select count(*) from ProgramMemory"), "120\n");
}

TEST_F(ProgramPageHistoryTest, AStoredPageComesBackAsItWasWithItsTimesAsTheyWereTyped)
{
    fillAll();
    chain(3).setText("P12");
    chain(12).setText("P05");
    const QStringList before = tags();
    press(page.progSave);
    press(page.progReset);
    dialogs.shown.clear();
    journal.clear();

    openStored();

    EXPECT_EQ(tags(), before);
    EXPECT_EQ(cellState(35), "36|4,6,AUTO,35,1,0.01,0,Off,1,abc,1,36,36|P4 S6 Run as AUTO|#000080|#ffffff|12|centered");
    EXPECT_EQ(links(), "0 0 0 12 0 0 0 0 0 0 0 0 4");
    EXPECT_EQ(chain(12).text(), "P05");
    EXPECT_THAT(dialogs.shown, IsEmpty());
    EXPECT_FALSE(page.frameMemorySetting.visible());
    EXPECT_FALSE(dialog.visible());
    EXPECT_TRUE(page.progSend.enabled());
    EXPECT_EQ(page.progSend.picture(), paths.inApplication("\\ICON\\SEQINTO.JPG"));
    EXPECT_THAT(journal.linesOf({"read"}), ElementsAre("read IsConnected True"));
}

TEST_F(ProgramPageHistoryTest, WithoutALinkAnOpeningDisablesTheTransferAndLeavesItsPicture)
{
    fillAll();
    press(page.progSave);
    page.progSend.setEnabled(true);
    instrument.connected = false;
    openStored();
    EXPECT_FALSE(page.progSend.enabled());
    EXPECT_EQ(page.progSend.picture(), paths.inApplication("\\ICON\\SEQINTOSTOP.JPG"));
}

TEST_F(ProgramPageHistoryTest, AnOpeningHidesTheListBeforeItFillsTheCells)
{
    fillAll();
    press(page.progSave);
    press(page.progOpenDB);
    pick(dialog.lstProgFile, identifier);
    watchCellsAndControls();
    journal.watch(dialog.lstProgFile, "list");
    journal.watch(page.frameMemorySetting, "frame");
    journal.clear();

    press(dialog.cmdOKDataLogFile);

    EXPECT_EQ(journal.linesOf({"hide", "show", "raise"}).mid(0, 3),
              (QStringList{"hide list", "show frame", "raise frame"}));
}

TEST_F(ProgramPageHistoryTest, TheRowsOfACaseOverwriteTheirCellsAndLeaveTheOthers)
{
    fill(7, "99");
    insertRow("few", 0, "'1,1,AUTO,5,1,2.5,0,Off,1,0.01,1,1.0,17'");
    openStored("few");
    EXPECT_EQ(cell(0).text(), "17");
    EXPECT_EQ(cell(7).text(), "99");
}

TEST_F(ProgramPageHistoryTest, AnEmptyRowGetsTheValuesOfTheRowBefore)
{
    insertRow("few", 0, "'1,1,AUTO,5,1,2.5,0,Off,1,0.01,1,1.0,17'");
    insertRow("few", 1, "''");
    insertRow("few", 2, "null");
    openStored("few");
    EXPECT_EQ(cell(1).tag(), "1,1,AUTO,5,1,2.5,0,Off,1,0.01,1,1.0,17");
    EXPECT_EQ(cell(2).tag(), "1,1,AUTO,5,1,2.5,0,Off,1,0.01,1,1.0,17") << "a null counts as empty";
}

TEST_F(ProgramPageHistoryTest, EmptyRowsOverEmptyControlsShowTheMessageOnceEachAndTheFrameRemains)
{
    press(page.progSave);
    dialogs.shown.clear();
    press(page.progReset);
    openStored();

    EXPECT_EQ(dialogs.shown.size(), 120);
    EXPECT_THAT(dialogs.shown, Each(memoryMissing));
    EXPECT_THAT(tags(), Each(QString()));
    EXPECT_TRUE(page.frameMemorySetting.visible());
    EXPECT_FALSE(dialog.visible());
}

TEST_F(ProgramPageHistoryTest, TheFrameCountsTheRowsWhileTheTagIsThatOfTheRowsOwnCell)
{
    insertRow("odd", 50, "'6,1,AUTO,5,1,2.5,0,Off,1,0.01,1,1.0,17'");
    insertRow("odd", 60, "'7,1,SKIP,5,1,2.5,0,Off,1,0.01,1,1.0,18'");
    openStored("odd");
    EXPECT_EQ(cell(50).tag(), "6,1,AUTO,5,1,2.5,0,Off,1,0.01,1,1.0,17");
    EXPECT_EQ(cell(50).text(), "");
    EXPECT_EQ(cell(0).text() + ' ' + cell(1).text(), "17 18");
    EXPECT_EQ(page.frameMemorySetting.tag(), "1");
}

TEST_F(ProgramPageHistoryTest, RowsAreReadInTheOrderOfTheirCells)
{
    insertRow("few", 1, "'1,2,SKIP,5,1,2.5,0,Off,1,0.01,1,1.0,18'");
    insertRow("few", 0, "'1,1,AUTO,5,1,2.5,0,Off,1,0.01,1,1.0,17'");
    openStored("few");
    EXPECT_EQ(cell(0).text() + ' ' + cell(1).text(), "17 18");
}

TEST_F(ProgramPageHistoryTest, TwoStoresInOneSecondShareTheirRowsAndOpeningThemEndsTheProgram)
{
    fillAll();
    press(page.progSave);
    press(page.progSave);
    EXPECT_EQ(table("select MemCase,count(*) from ProgramMemory group by MemCase"), identifier + "|240\n");

    openStored();

    EXPECT_THAT(processExit.reports, ElementsAre("Run-time error '340':\n\nControl array element doesn't exist"));
}

TEST_F(ProgramPageHistoryTest, ARowOfNoCellEndsTheProgram)
{
    insertRow("bad", 120, "''");
    openStored("bad");
    EXPECT_THAT(processExit.reports, ElementsAre("Run-time error '340':\n\nControl array element doesn't exist"));
}

TEST_F(ProgramPageHistoryTest, AChainRowOutsideOfTheListEndsTheProgram)
{
    insertRow("bad", 0, "'1,1,AUTO,5,1,2.5,0,Off,1,0.01,1,1.0,17'");
    alterDatabase("insert into ProgramChain values('bad',0,'13')");
    openStored("bad");
    EXPECT_THAT(processExit.reports, ElementsAre("Run-time error '380':\n\nInvalid property value"));
    EXPECT_FALSE(page.progSend.enabled());
}

TEST_F(ProgramPageHistoryTest, ADeletionAsksAndRemovesTheRowsOfTheCaseAlone)
{
    press(page.progSave);
    clock.setNow(QDateTime({2023, 5, 1}, {1, 2, 3}));
    press(page.progSave);
    dialogs.shown.clear();
    dialogs.answers = {Answer::Yes};

    press(page.progDelete);
    pickCase();

    EXPECT_THAT(dialogs.shown,
                ElementsAre(Shown{"Do you want to delete [20240131-101500] Record?", noIcon, Buttons::YesNo},
                            Shown{"Delete Data [20240131-101500]Finished!", noIcon}));
    EXPECT_EQ(table("select MemCase,count(*) from ProgramMemory group by MemCase"), "20230501-010203|120\n");
    EXPECT_EQ(table("select MemCase,count(*) from ProgramChain group by MemCase"), "20230501-010203|13\n");
    EXPECT_FALSE(dialog.lstProgFile.visible());
}

TEST_F(ProgramPageHistoryTest, ADeletionAnsweredWithNoRemovesNothingAndHidesTheList)
{
    press(page.progSave);
    dialogs.shown.clear();
    press(page.progDelete);
    pickCase();
    EXPECT_EQ(dialogs.shown.size(), 1);
    EXPECT_EQ(table("select count(*) from ProgramMemory"), "120\n");
    EXPECT_FALSE(dialog.lstProgFile.visible());
}

TEST_F(ProgramPageHistoryTest, AFailureOfTheListEndsTheProgram)
{
    alterDatabase("drop table ProgramMemory");
    press(page.progOpenDB);
    EXPECT_THAT(processExit.reports, ElementsAre("Run-time error '3075':\n\nno such table: ProgramMemory"));
    EXPECT_FALSE(dialog.visible());
}

TEST_F(ProgramPageHistoryTest, AFailureOfADeletionEndsTheProgramAfterTheFirstStatement)
{
    press(page.progSave);
    dialogs.answers = {Answer::Yes};
    alterDatabase("drop table ProgramChain");
    press(page.progDelete);
    pickCase();
    EXPECT_THAT(processExit.reports, ElementsAre("Run-time error '3075':\n\nno such table: ProgramChain"));
    EXPECT_EQ(table("select count(*) from ProgramMemory"), "0\n");
}

} // namespace
