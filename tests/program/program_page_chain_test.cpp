// SPDX-License-Identifier: GPL-3.0-or-later
#include "program_page_test.h"

using namespace orb;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

const Shown top{"Please choose an item of right side or It is the Top one!", Icon::Information};
const Shown last{"Please choose an item of right side or It is the Last one!", Icon::Information};

class ProgramPageChainTest : public ProgramPageTest {
protected:
    ListBox& left() { return page.lstProgramOrder[0]; }
    ListBox& right() { return page.lstProgramOrder[1]; }

    /// Both lists, each item without its P, the selected ones in brackets.
    QString lists()
    {
        QStringList texts;
        for (const ListBox& list : page.lstProgramOrder) {
            QStringList items;
            for (int i = 0; i < list.listCount(); ++i)
                items << (i == list.listIndex() ? "[" + list.list(i).mid(1) + "]" : list.list(i).mid(1));
            texts << items.join(' ');
        }
        return texts.join(" | ");
    }

    /// Opens the frame and moves these programs alone into the chain, in this order.
    void openWith(const QStringList& programs)
    {
        press(page.progOrder);
        while (right().listCount() > 0) {
            right().setListIndex(0);
            press(page.cmdProgRemove);
        }
        for (const QString& program : programs) {
            pick(left(), program);
            press(page.cmdProgAdd);
        }
        left().setListIndex(-1);
        right().setListIndex(-1);
        journal.clear();
        dialogs.shown.clear();
    }

    QString loopStart() const { return page.txtProgLoopStart.text() + '/' + page.txtProgLoopStart.tag(); }
};

TEST_F(ProgramPageChainTest, TheButtonShowsTheFrameInFrontAtItsPlace)
{
    journal.watch(page.fraProgramOrder, "fraProgramOrder");
    page.fraProgramOrder.move(0, 0);
    journal.clear();

    press(page.progOrder);

    EXPECT_THAT(journal.linesOf({"raise", "show"}), ElementsAre("raise fraProgramOrder", "show fraProgramOrder"));
    EXPECT_EQ(page.fraProgramOrder.pos(), QPoint(1650 / 15, 1350 / 15));
}

TEST_F(ProgramPageChainTest, ANewChainHasTheFirstProgramAloneInIt)
{
    press(page.progOrder);
    EXPECT_EQ(lists(), "[02] 03 04 05 06 07 08 09 10 11 12 | 01");
    EXPECT_EQ(left().list(0), "P02");
}

TEST_F(ProgramPageChainTest, TheChainIsShownInItsOrder)
{
    chain(0).setText("P03");
    chain(2).setText("P02");

    press(page.progOrder);

    EXPECT_EQ(lists(), "[04] 05 06 07 08 09 10 11 12 | 01 03 02");
}

TEST_F(ProgramPageChainTest, AChainThatRunsInACircleShowsEachProgramOnce)
{
    chain(0).setText("P02");
    chain(1).setText("P01");

    press(page.progOrder);

    EXPECT_EQ(lists(), "03 04 05 06 07 08 09 10 11 12 | 01 02");
    EXPECT_THAT(processExit.reports, IsEmpty());
}

TEST_F(ProgramPageChainTest, AChainOfAllTwelveProgramsIsShownWhole)
{
    for (int i = 0; i < 11; ++i)
        chain(i).setListIndex(i + 2);

    press(page.progOrder);

    EXPECT_EQ(lists(), " | 01 02 03 04 05 06 07 08 09 10 11 12");
}

TEST_F(ProgramPageChainTest, TheWalkBeginsAtTheStart)
{
    chain(12).setText("P05");
    chain(0).setText("P02");

    press(page.progOrder);
    EXPECT_EQ(lists(), "01 02 03 04 [06] 07 08 09 10 11 12 | 05");

    chain(4).setText("P12");
    press(page.progOrder);
    EXPECT_EQ(lists(), "01 02 03 04 06 07 08 09 10 [11] | 05 12");
}

TEST_F(ProgramPageChainTest, WithoutAStartTheWalkBeginsAtTheFirstProgramWhichIsNotInTheChain)
{
    chain(12).setText("");
    chain(0).setText("P02");

    press(page.progOrder);

    EXPECT_EQ(lists(), "01 [03] 04 05 06 07 08 09 10 11 12 | 02");
}

TEST_F(ProgramPageChainTest, ALinkThatNamesNoProgramEndsTheProgram)
{
    chain(0).setText("P99");

    press(page.progOrder);

    EXPECT_THAT(processExit.reports, ElementsAre("Run-time error '340':\n\nControl array element doesn't exist"));
}

TEST_F(ProgramPageChainTest, AddMovesTheSelectedItemToTheEndOfTheChainAndSelectsTheNext)
{
    openWith({"P07", "P03"});
    pick(left(), "P05");
    press(page.cmdProgAdd);
    EXPECT_EQ(lists(), "01 02 04 [06] 08 09 10 11 12 | 07 03 05");

    pick(left(), "P12");
    press(page.cmdProgAdd);
    EXPECT_EQ(lists(), "01 02 04 06 08 09 10 [11] | 07 03 05 12");
}

TEST_F(ProgramPageChainTest, AddWithoutASelectionDoesNothing)
{
    openWith({"P07"});
    press(page.cmdProgAdd);
    EXPECT_EQ(lists(), "01 02 03 04 05 06 08 09 10 11 12 | 07");
}

TEST_F(ProgramPageChainTest, MovingTheLastItemOutOfAListSelectsNothingAndTheMoveStands)
{
    openWith({"P01", "P02", "P03", "P04", "P05", "P06", "P07", "P08", "P09", "P10", "P11"});
    pick(left(), "P12");
    press(page.cmdProgAdd);
    EXPECT_EQ(lists(), " | 01 02 03 04 05 06 07 08 09 10 11 12");

    openWith({"P04"});
    pick(right(), "P04");
    press(page.cmdProgRemove);
    EXPECT_EQ(lists(), "01 02 03 04 05 06 07 08 09 10 11 12 | ");
    EXPECT_THAT(processExit.reports, IsEmpty());
}

TEST_F(ProgramPageChainTest, RemoveReturnsAnItemInNumberOrderAndSelectsItsSuccessor)
{
    openWith({"P12", "P07", "P01"});
    pick(right(), "P07");
    press(page.cmdProgRemove);
    EXPECT_EQ(lists(), "02 03 04 05 06 07 08 09 10 11 | 12 [01]");
    press(page.cmdProgRemove);
    EXPECT_EQ(lists(), "01 02 03 04 05 06 07 08 09 10 11 | [12]");
    press(page.cmdProgRemove);
    EXPECT_EQ(lists(), "01 02 03 04 05 06 07 08 09 10 11 12 | ");
}

TEST_F(ProgramPageChainTest, RemoveWithoutASelectionDoesNothing)
{
    openWith({"P07"});
    press(page.cmdProgRemove);
    EXPECT_EQ(lists(), "01 02 03 04 05 06 08 09 10 11 12 | 07");
}

TEST_F(ProgramPageChainTest, UpAndDownMoveTheSelectedItemOfTheChainAndKeepItSelected)
{
    openWith({"P01", "P02", "P03"});
    pick(right(), "P03");
    press(page.cmdProgUp);
    EXPECT_EQ(lists(), "04 05 06 07 08 09 10 11 12 | 01 [03] 02");
    press(page.cmdProgUp);
    EXPECT_EQ(lists(), "04 05 06 07 08 09 10 11 12 | [03] 01 02");
    press(page.cmdProgDown);
    EXPECT_EQ(lists(), "04 05 06 07 08 09 10 11 12 | 01 [03] 02");
    EXPECT_THAT(dialogs.shown, IsEmpty());
}

TEST_F(ProgramPageChainTest, UpAtTheTopAndWithoutASelectionShowsTheSameMessage)
{
    openWith({"P01", "P02"});
    press(page.cmdProgUp);
    pick(right(), "P01");
    press(page.cmdProgUp);

    EXPECT_THAT(dialogs.shown, ElementsAre(top, top));
    EXPECT_EQ(lists(), "03 04 05 06 07 08 09 10 11 12 | [01] 02");
}

TEST_F(ProgramPageChainTest, DownInAChainOfOneItemShowsTheMessageOfTheLastOne)
{
    openWith({"P05"});
    pick(right(), "P05");
    press(page.cmdProgDown);

    EXPECT_THAT(dialogs.shown, ElementsAre(last));
    EXPECT_EQ(lists(), "01 02 03 04 06 07 08 09 10 11 12 | [05]");
}

TEST_F(ProgramPageChainTest, DownWithoutASelectionAndOnTheLastItemShowsItsMessage)
{
    openWith({"P01", "P02"});
    press(page.cmdProgDown);
    pick(right(), "P02");
    press(page.cmdProgDown);

    EXPECT_THAT(dialogs.shown, ElementsAre(last, last));
}

TEST_F(ProgramPageChainTest, CheckingLoopCopiesTheSelectionOfTheChainAndUncheckingEmptiesIt)
{
    openWith({"P04", "P09"});
    press(page.chkProgLoop);
    EXPECT_EQ(loopStart(), "/") << "nothing is selected";
    press(page.chkProgLoop);
    pick(right(), "P09");
    press(page.chkProgLoop);
    EXPECT_EQ(loopStart(), "P09/2");
    press(page.chkProgLoop);
    EXPECT_EQ(loopStart(), "/");
}

TEST_F(ProgramPageChainTest, AClickInEitherListCopiesTheSelectionOfTheChainWhileLoopIsChecked)
{
    openWith({"P04", "P09"});
    pick(right(), "P09");
    EXPECT_EQ(loopStart(), "/") << "not checked";
    press(page.chkProgLoop);
    pick(right(), "P04");
    EXPECT_EQ(loopStart(), "P04/1");
    page.txtProgLoopStart.setText("other");
    pick(left(), "P12");
    EXPECT_EQ(loopStart(), "P04/1") << "the left list counts too";
}

TEST_F(ProgramPageChainTest, RemovingTheLastItemOfTheChainUnchecksLoop)
{
    openWith({"P04", "P09"});
    pick(right(), "P09");
    press(page.chkProgLoop);
    press(page.cmdProgRemove);
    EXPECT_EQ(page.chkProgLoop.value(), CheckBox::Checked);
    press(page.cmdProgRemove);
    EXPECT_EQ(page.chkProgLoop.value(), CheckBox::Unchecked);
    EXPECT_EQ(loopStart(), "/");
}

TEST_F(ProgramPageChainTest, OpeningTheFrameAgainKeepsTheLoop)
{
    openWith({"P04"});
    pick(right(), "P04");
    press(page.chkProgLoop);
    press(page.cmdProgOrderCancel);
    press(page.progOrder);
    EXPECT_EQ(page.chkProgLoop.value(), CheckBox::Checked);
    EXPECT_EQ(page.txtProgLoopStart.text(), "P04");
}

TEST_F(ProgramPageChainTest, OkWritesTheOrderAsLinksAndLeavesTheStartAndAllOtherLinks)
{
    chain(12).setText("P03");
    chain(4).setText("P11");
    openWith({"P02", "P01"});

    press(page.cmdProgOrderExit);

    EXPECT_EQ(links(), "0 1 0 0 11 0 0 0 0 0 0 0 2");
    EXPECT_FALSE(page.fraProgramOrder.visible());
}

TEST_F(ProgramPageChainTest, OkEndsTheChainAfterItsLastProgram)
{
    for (int i = 0; i < 12; ++i)
        chain(i).setText("P12");
    openWith({"P01", "P12", "P05"});

    press(page.cmdProgOrderExit);

    EXPECT_EQ(links(), "12 12 12 12 0 12 12 12 12 12 12 5 0");
}

TEST_F(ProgramPageChainTest, OkOfAChainOfOneProgramEndsItThere)
{
    chain(6).setText("P01");
    openWith({"P07"});
    press(page.cmdProgOrderExit);
    EXPECT_EQ(chain(6).text(), "OFF");
}

TEST_F(ProgramPageChainTest, OkWithAnEmptyChainEndsTheProgramAndChangesNoLink)
{
    chain(0).setText("P04");
    openWith({});

    press(page.cmdProgOrderExit);

    EXPECT_THAT(processExit.reports, ElementsAre("Run-time error '340':\n\nControl array element doesn't exist"));
    EXPECT_EQ(links(), "4 0 0 0 0 0 0 0 0 0 0 0 0");
    EXPECT_TRUE(page.fraProgramOrder.visible()); // it ends before the frame is hidden
}

TEST_F(ProgramPageChainTest, CancelLeavesTheLinks)
{
    chain(0).setText("P04");
    openWith({"P02", "P01"});

    press(page.cmdProgOrderCancel);

    EXPECT_EQ(links(), "4 0 0 0 0 0 0 0 0 0 0 0 0");
    EXPECT_FALSE(page.fraProgramOrder.visible());
}

TEST_F(ProgramPageChainTest, TheListsAreAWorkingCopyUntilOk)
{
    openWith({"P02", "P01"});
    EXPECT_EQ(links(), "0 0 0 0 0 0 0 0 0 0 0 0 0");
}

} // namespace
