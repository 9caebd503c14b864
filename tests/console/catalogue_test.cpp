// SPDX-License-Identifier: GPL-3.0-or-later
#include "command_test.h"

#include <QDir>

using namespace orb;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class CatalogueTest : public CommandPageTest {};

const Shown keyIsThere{"Error Number:457:Key already associated", Icon::None, Buttons::Ok};

TEST_F(CatalogueTest, OneFieldIsACommandThreeAreAFullEntryAndTwoAreMalformed)
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

TEST_F(CatalogueTest, ALineWithoutACommandIsSkippedLikeAnEmptyOne)
{
    catalogue("^b^x\r\n\r\nA\r\n");
    EXPECT_THAT(page.lstCommand.items(), ElementsAre("A"));
    EXPECT_THAT(dialogs.shown, IsEmpty());
}

TEST_F(CatalogueTest, ADuplicateInAnotherLetterCaseStopsTheLoadingAtItsLine)
{
    catalogue("A\r\nB\r\na\r\nC\r\n");

    EXPECT_THAT(dialogs.shown, ElementsAre(keyIsThere));
    EXPECT_THAT(page.lstCommand.items(), ElementsAre("A", "B"));
    EXPECT_EQ(page.colCommands->count(), 2);
}

TEST_F(CatalogueTest, ADescriptionWithAFurtherCaretMakesTheWholeLineTheEntry)
{
    catalogue(":VOLT^volts ^ amperes^<n>\r\n");
    EXPECT_THAT(page.lstCommand.items(), ElementsAre(":VOLT^volts ^ amperes^<n>"));
}

TEST_F(CatalogueTest, AMissingCatalogueIsToldAndTheStartGoesOn)
{
    QFile::remove(application.filePath("orbCommands.dat"));
    run.enter([&] { page.InitListCommand(); });

    EXPECT_THAT(dialogs.shown, ElementsAre(Shown{"Error Number:53:File not found", noIcon, Buttons::Ok}));
    EXPECT_THAT(processExit.reports, IsEmpty());
}

TEST_F(CatalogueTest, AFolderInThePlaceOfTheCatalogueIsTold)
{
    QFile::remove(application.filePath("orbCommands.dat"));
    QDir(application.path()).mkdir("orbCommands.dat");
    run.enter([&] { page.InitListCommand(); });

    EXPECT_THAT(dialogs.shown, ElementsAre(Shown{"Error Number:75:Path/File access error", noIcon, Buttons::Ok}));
}

TEST_F(CatalogueTest, ASecondLoadingReplacesTheFirst)
{
    catalogue("A\nB\n");
    catalogue("C\n");
    EXPECT_THAT(page.lstCommand.items(), ElementsAre("C"));
    EXPECT_EQ(page.colCommands->count(), 1);
}

TEST_F(CatalogueTest, AClickClearsTheSendBoxForEveryEntryAlike)
{
    catalogue(":VOLT\n:MEAS?\n");
    for (const char* entry : {":VOLT", ":MEAS?"}) {
        page.chkSend.setValue(CheckBox::Checked);
        pick(page.lstCommand, entry);
        EXPECT_EQ(page.chkSend.value(), CheckBox::Unchecked) << entry;
    }
}

TEST_F(CatalogueTest, AnEntryWithoutARowLeavesTheLabelsAsTheyWere)
{
    catalogue("A^b^x\n");
    pick(page.lstCommand, "A");
    page.lstCommand.addItem("stray");

    pick(page.lstCommand, "stray");

    EXPECT_EQ(labels(), "Command:A | Description:b | Format:x");
    EXPECT_THAT(processExit.reports, IsEmpty());
}

TEST_F(CatalogueTest, ALastLineWithoutAnEndCounts)
{
    catalogue("A\r\nB");
    EXPECT_THAT(page.lstCommand.items(), ElementsAre("A", "B"));
}

TEST_F(CatalogueTest, LinesMayHoldNulsOrAMegabyteOrAnotherEncoding)
{
    const QByteArray nul("A\0B", 3);
    const QByteArray megabyte(1 << 20, 'x');
    const QByteArray latin1 = "\xC4quivalent";
    catalogue(nul + "\n" + megabyte + "\n" + latin1 + "\n" + "Z\n");

    EXPECT_THAT(dialogs.shown, IsEmpty());
    EXPECT_THAT(page.lstCommand.items(),
                ElementsAre(QString::fromLatin1(nul), QString::fromLatin1(megabyte), QString::fromLatin1(latin1), "Z"));
}

TEST_F(CatalogueTest, ARowKeepsAFieldThatIsGivenAnEmptyText)
{
    clsCommands row;
    row.setCommand("A");
    row.setCommand("");
    EXPECT_EQ(row.Command(), "A");
    EXPECT_FALSE(row.QueryCmd());
    EXPECT_THROW(row.setQueryCmd(true), RuntimeFailure);
}

} // namespace
