// SPDX-License-Identifier: GPL-3.0-or-later
#include "data_log_page_test.h"

using namespace orb;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

const Shown nothingToExport{"Please Record or Load existing data first!", Icon::Information, Buttons::Ok};
const Shown cancelled{"Data Log CSV saved Failed as User Cancel Opeation!", Icon::None, Buttons::Ok};

class DataLogPageExportTest : public DataLogPageTest {
protected:
    QString csv() const { return contentOf(csvPath); }
    Shown saved() const { return {"Data Log CSV saved OK (FileName:" + csvPath + ")!", information, Buttons::Ok}; }

    const QString csvPath = application.filePath("log.csv");
};

TEST_F(DataLogPageExportTest, AfterARecordingOfThreeRowsTheFileHasFourLines)
{
    instrument.channelCount = 2;
    currents = "1.1000,2.1000,";
    voltages = "12.1000,12.2000,";
    record(3);
    dialogs.files = {csvPath};

    press(page.cmdExport);

    EXPECT_EQ(csv(), "No.,Time,Ch1V,Ch1A,Ch2V,Ch2A\r\n"
                     "0,2024/01/31 10:15:00,1.1000,12.1000,2.1000,12.2000\r\n"
                     "1,2024/01/31 10:15:01,1.1000,12.1000,2.1000,12.2000\r\n"
                     "2,2024/01/31 10:15:02,1.1000,12.1000,2.1000,12.2000\r\n");
}

TEST_F(DataLogPageExportTest, ASuccessfulExportAnswersWithBothBoxesInThisOrder)
{
    record(1);
    dialogs.files = {csvPath};

    press(page.cmdExport);

    EXPECT_THAT(dialogs.shown, ElementsAre(saved(), cancelled));
}

TEST_F(DataLogPageExportTest, TheFileIsCompleteWhenItIsReportedAsSaved)
{
    record(2);
    dialogs.files = {csvPath};
    std::vector<qsizetype> lines;
    dialogs.onMessage = [&](const Shown&) { lines.push_back(csv().count("\r\n")); };

    press(page.cmdExport);

    EXPECT_THAT(lines, ElementsAre(3, 3));
}

TEST_F(DataLogPageExportTest, TheDialogAsksInTheApplicationsFolderForACsvFile)
{
    record(1);

    press(page.cmdExport);

    ASSERT_EQ(dialogs.fileDialogs.size(), 1);
    EXPECT_EQ(dialogs.fileDialogs[0].mode, "save");
    EXPECT_EQ(dialogs.fileDialogs[0].dialog.initialDirectory, application.path() + "\\");
    EXPECT_EQ(dialogs.fileDialogs[0].dialog.filter, QStringLiteral("ORB Data Log文件(*.csv)|*.csv"));
}

TEST_F(DataLogPageExportTest, WithoutALogNothingIsAsked)
{
    press(page.cmdExport);

    EXPECT_THAT(dialogs.shown, ElementsAre(nothingToExport));
    EXPECT_THAT(dialogs.fileDialogs, IsEmpty());
}

TEST_F(DataLogPageExportTest, ACancelOfAnEmptyDialogSavesNothing)
{
    record(1);

    press(page.cmdExport);

    EXPECT_THAT(dialogs.shown, ElementsAre(cancelled));
    EXPECT_EQ(csv(), "no such file");
}

TEST_F(DataLogPageExportTest, ACancelLeavesTheNameInTheDialogAndTheExportGoesAhead)
{
    record(1);
    dialogs.CommonDialog1.fileName = csvPath;
    dialogs.files = {std::nullopt};

    press(page.cmdExport);

    EXPECT_THAT(dialogs.shown, ElementsAre(saved(), cancelled));
    EXPECT_TRUE(csv().startsWith("No.,Time,"));
}

TEST_F(DataLogPageExportTest, RowsOfZeroChannelsCannotBeExported)
{
    record(1);
    page.iLogChannels = 0;
    dialogs.files = {csvPath};

    press(page.cmdExport);

    ASSERT_EQ(processExit.reports.size(), 1);
    EXPECT_TRUE(processExit.reports[0].startsWith("Run-time error '3265':")) << processExit.reports[0].toStdString();
    EXPECT_EQ(csv(), "No.,Time\r\n") << "the file stays as far as it was written";
}

TEST_F(DataLogPageExportTest, ALogOfOneChannelHasFourFieldsALine)
{
    instrument.channelCount = 1;
    currents = "1.1000,";
    voltages = "12.1000,";
    record(1);
    dialogs.files = {csvPath};

    press(page.cmdExport);

    EXPECT_EQ(csv(), "No.,Time,Ch1V,Ch1A\r\n0,2024/01/31 10:15:00,1.1000,12.1000\r\n");
}

TEST_F(DataLogPageExportTest, AnExistingFileOfThatNameIsReplacedWithNoQuestion)
{
    QFile old(csvPath);
    ASSERT_TRUE(old.open(QIODevice::WriteOnly));
    old.write(QByteArray(10'000, 'x'));
    old.close();
    record(1);
    dialogs.files = {csvPath};

    press(page.cmdExport);

    EXPECT_THAT(dialogs.shown, ElementsAre(saved(), cancelled));
    EXPECT_EQ(csv().count('\n'), 2);
    EXPECT_FALSE(csv().contains('x'));
}

TEST_F(DataLogPageExportTest, AChannelThatTheReplyDidNotCarryLeavesItsPlacesEmpty)
{
    currents = "1.1000,2.1000,3.1000,4.1000";
    record(1);
    dialogs.files = {csvPath};

    press(page.cmdExport);

    EXPECT_TRUE(csv().endsWith(",3.1000,12.3000,,\r\n")) << csv().toStdString();
}

TEST_F(DataLogPageExportTest, ANumericFieldIsRefusedByTheJoiningOfTexts)
{
    record(1);
    alterDatabase("drop table DataMeasure; create table DataMeasure (SeqNo INTEGER, RecTime TEXT, PVal1 REAL, SVal1 "
                  "TEXT, timetick TEXT); insert into DataMeasure values(0,'2024/01/31 10:15:00',1.5,'12.1',null)");
    page.iLogChannels = 1;
    dialogs.files = {csvPath};

    press(page.cmdExport);

    EXPECT_THAT(processExit.reports, ElementsAre("Run-time error '13':\n\nType mismatch"));
    EXPECT_EQ(csv(), "No.,Time,Ch1V,Ch1A\r\n");
}

TEST_F(DataLogPageExportTest, AFileThatCannotBeOpenedIsReportedAndNothingIsLost)
{
    record(1);
    dialogs.files = {application.filePath("none/log.csv")};

    press(page.cmdExport);

    EXPECT_THAT(processExit.reports, ElementsAre("Run-time error '76':\n\nPath not found"));
    EXPECT_EQ(table("select count(*) from DataMeasure"), "1\n");
}

TEST_F(DataLogPageExportTest, AnExportDuringARecordingHoldsTheRowsSoFar)
{
    dialogs.files = {csvPath};
    clock.at(2000, [&] { press(page.cmdExport); });
    clock.at(3000, [&] { press(page.logStop); });

    press(page.logStart);

    EXPECT_EQ(csv().count('\n'), 3);
    EXPECT_EQ(table("select count(*) from DataMeasure"), "4\n");
}

} // namespace
