// SPDX-License-Identifier: GPL-3.0-or-later
#include "capture_tool.h"

#include "page_test.h"

using namespace orb;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class CaptureToolTest : public PageTest {
protected:
    CaptureToolTest()
    {
        tool.setParent(&form);
        tool.setVisible(true);
        lstCommand.addItems({":CHAN", ":CURR"});
    }

    QString written() const { return contentOf(application.filePath("orbbutton.dat")); }

    Form form{run};
    ListBox lstCommand{&form};
    CaptureTool tool{paths, lstCommand};
};

TEST_F(CaptureToolTest, EveryControlHasItsText)
{
    EXPECT_EQ(tool.Text7.text(), "");
    EXPECT_EQ(tool.Text2.text(), "C:\\temp\\orbbutton.dat");
    EXPECT_EQ(tool.TXT.text(), "");
    EXPECT_THAT(
        (std::vector<QString>{tool.lblX1.caption(), tool.lblY1.caption(), tool.lblX2.caption(), tool.lblY2.caption()}),
        ElementsAre("Label14", "Label15", "Label14", "Label15"));
    EXPECT_THAT((std::vector<QString>{tool.Command1.caption(), tool.Command2.caption(), tool.Command3.caption()}),
                ElementsAre("open file", "close file", "print"));
}

TEST_F(CaptureToolTest, ARowIsTheTrimmedNameAndTheFourLabelsAsTheyShow)
{
    tool.Text7.setText("  F 1 ");
    tool.lblX1.setCaption("380.5");
    tool.lblY1.setCaption("120");
    tool.lblX2.setCaption(" 530");
    tool.lblY2.setCaption("Label15");

    press(tool.Command1);
    press(tool.Command3);
    tool.Text7.setText("\tF2");
    press(tool.Command3);
    press(tool.Command2);

    EXPECT_EQ(written(), "F 1,380.5,120, 530,Label15\r\n\tF2,380.5,120, 530,Label15\r\n");
    EXPECT_THAT(processExit.reports, IsEmpty());
}

TEST_F(CaptureToolTest, ANameOfBlanksIsWrittenAsAnEmptyOne)
{
    tool.Text7.setText("   ");
    press(tool.Command1);
    press(tool.Command3);
    EXPECT_EQ(written(), ",Label14,Label15,Label14,Label15\r\n");
}

TEST_F(CaptureToolTest, OpeningTheFileEmptiesTheCatalogueOfCommandsFirst)
{
    QDir(application.path()).mkdir("orbbutton.dat"); // so that the opening fails
    press(tool.Command1);
    EXPECT_EQ(lstCommand.listCount(), 0);
    EXPECT_THAT(processExit.reports, ElementsAre("Run-time error '75':\n\nPath/File access error"));
}

TEST_F(CaptureToolTest, OpeningTheFileOverwritesAnExistingOneAndIgnoresTheShownPath)
{
    QFile old(application.filePath("orbbutton.dat"));
    ASSERT_TRUE(old.open(QIODevice::WriteOnly));
    old.write("old rows");
    old.close();
    tool.Text2.setText(application.filePath("other.dat"));

    press(tool.Command1);
    press(tool.Command2);

    EXPECT_EQ(written(), "");
    EXPECT_FALSE(QFile::exists(application.filePath("other.dat")));
}

TEST_F(CaptureToolTest, ARowIsInTheFileBeforeItIsClosed)
{
    press(tool.Command1);
    tool.Text7.setText("F1");
    press(tool.Command3);
    EXPECT_EQ(written(), "F1,Label14,Label15,Label14,Label15\r\n");
}

TEST_F(CaptureToolTest, AClosedFileCanBeOpenedAgain)
{
    press(tool.Command1);
    press(tool.Command2);
    press(tool.Command1);
    press(tool.Command3);
    EXPECT_EQ(written(), ",Label14,Label15,Label14,Label15\r\n");
    EXPECT_THAT(processExit.reports, IsEmpty());
}

TEST_F(CaptureToolTest, ARowForAClosedFileEndsTheProgram)
{
    press(tool.Command3);
    EXPECT_THAT(processExit.reports, ElementsAre("Run-time error '52':\n\nBad file name or number"));
}

TEST_F(CaptureToolTest, ClosingAClosedFileEndsTheProgram)
{
    press(tool.Command1);
    press(tool.Command2);
    press(tool.Command2);
    EXPECT_THAT(processExit.reports, ElementsAre("Run-time error '52':\n\nBad file name or number"));
}

TEST_F(CaptureToolTest, OpeningAnOpenFileEndsTheProgramAndKeepsItsRows)
{
    press(tool.Command1);
    press(tool.Command3);
    lstCommand.addItem(":CHAN");
    press(tool.Command1);
    EXPECT_THAT(processExit.reports, ElementsAre("Run-time error '55':\n\nFile already open"));
    EXPECT_EQ(lstCommand.listCount(), 0);
    EXPECT_EQ(written(), ",Label14,Label15,Label14,Label15\r\n");
}

TEST_F(CaptureToolTest, WhereTheProgramsFolderIsNotToBeWrittenTheFileGoesToTheUsersOwn)
{
    const QTemporaryDir own;
    const Paths installed(application.path(), own.path());
    CaptureTool itsTool(installed, lstCommand);
    itsTool.setParent(&form);
    itsTool.setVisible(true);
    QFile shipped(application.filePath("orbbutton.dat"));
    ASSERT_TRUE(shipped.open(QIODevice::WriteOnly));

    press(itsTool.Command1);
    press(itsTool.Command3);

    EXPECT_EQ(contentOf(own.filePath("orbbutton.dat")), ",Label14,Label15,Label14,Label15\r\n");
    EXPECT_EQ(written(), "");
}

} // namespace
