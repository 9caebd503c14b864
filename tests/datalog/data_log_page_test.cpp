// SPDX-License-Identifier: GPL-3.0-or-later
#include "data_log_page_test.h"

using namespace orb;
using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

TEST_F(DataLogPageTest, AStartWithLeftoverRowsLeavesAnEmptyTableAnEmptyGridAndNoRecordNumber)
{
    alterDatabase("insert into DataMeasure (SeqNo,RecTime) values(0,'2024/01/30 10:00:00'),(1,'2024/01/30 10:00:01')");
    page.lLogRecNo = 2;

    run.enter([&] { page.InitDataLog(); });

    EXPECT_EQ(table("select count(*) from DataMeasure"), "0\n");
    EXPECT_EQ(page.DataLog.rowCount(), 0);
    EXPECT_EQ(page.lLogRecNo, 0);
}

TEST_F(DataLogPageTest, ARowHoldsValuesOnlyForTheChannelsThatTheReplyCarried)
{
    record(1);

    EXPECT_EQ(table("select PVal1,SVal1,PVal4,SVal4,PVal5,SVal5,PVal8,SVal8 from DataMeasure"),
              "1.1000|12.1000|4.1000|12.4000|-|-|-|-\n");
}

TEST_F(DataLogPageTest, TheColumnsThatNothingWritesAreEmptyInEveryRow)
{
    record(2);

    EXPECT_EQ(table("select Reason3,Comment,TimeTick,DiffLastTime from DataMeasure"), "-|-|-|-\n-|-|-|-\n");
}

TEST_F(DataLogPageTest, AValueIsStoredInTheInstrumentsOwnText)
{
    currents = "1.2300,-0.0500,1.20E-03,7,";

    record(1);

    EXPECT_EQ(table("select PVal1,PVal2,PVal3,PVal4,typeof(PVal4),typeof(SeqNo) from DataMeasure"),
              "1.2300|-0.0500|1.20E-03|7|text|integer\n");
}

TEST_F(DataLogPageTest, TheGridShowsTwentyTwoColumnsUnderTheirCaptions)
{
    QStringList captions;
    for (int column = 0; column < page.DBGrid1.columnCount(); ++column)
        captions << page.DBGrid1.column(column).field + ' ' + page.DBGrid1.column(column).caption;

    EXPECT_THAT(captions, ElementsAre("SeqNo SeqNo", "RecTime RecTime", "PVal1 CH1 A", "SVal1 CH1 V", "PVal2 CH2 A",
                                      "SVal2 CH2 V", "PVal3 CH3 A", "SVal3 CH3 V", "PVal4 CH4 A", "SVal4 CV4 V",
                                      "PVal5 CH5 A", "SVal5 CH5 V", "PVal6 CH6 A", "SVal6 CH6 V", "PVal7 CH7 A",
                                      "SVal7 CH7 V", "PVal8 CH8 A", "SVal8 CH8 V", "Reason3 Reason3", "Comment Comment",
                                      "TimeTick TimeTick", "DiffLastTime DiffLastTime"));
}

TEST_F(DataLogPageTest, TheCombosOfferTheirRangesAndStandOnTheFirst)
{
    const auto items = [](const ComboBox& combo) {
        QStringList texts;
        for (int i = 0; i < combo.listCount(); ++i)
            texts << combo.list(i);
        return texts.join(' ');
    };
    EXPECT_EQ(items(page.cmbXLength), "5m 10m 20m 30m 60m 1 Hr 3 Hr 6 Hr 12Hr 1Day");
    EXPECT_EQ(items(page.cmbYVoltage), "Default 1 V 5V 10V 15V 20V 25V 30V 35V 40V 45V 50V 55V 60V 65V 70V 75V 80V 85V "
                                       "90V 95V 100V 105V");
    EXPECT_EQ(items(page.cmbYCurrent), "Default 0.1 A 0.5A 1A 1.5A 2A 2.5A 3A 3.5A 4A 4.5A 5A 10A 15A 20A 25A 30A 35A "
                                       "40A 45A 50A");
    EXPECT_EQ(page.cmbXLength.text(), "5m");
    EXPECT_EQ(page.cmbYVoltage.text(), "Default");
    EXPECT_EQ(page.cmbYCurrent.text(), "Default");
}

TEST_F(DataLogPageTest, TheFirstStateHasAFiveMinuteAxisAndBothValueAxesFromZeroToFifty)
{
    const Graph& graph = page.graphLog;
    EXPECT_EQ(graph.axis(1).caption(), "Elapsed Time [Sec]");
    EXPECT_NEAR(graph.axis(1).maximum() * 86400, 300, 1e-6);
    EXPECT_EQ(graph.axis(2).maximum(), 50);
    EXPECT_EQ(graph.axis(3).maximum(), 50);
    EXPECT_EQ(graph.axis(2).minimum(), 0);
}

TEST_F(DataLogPageTest, TheFirstStateHasAllBoxesClearedAndDisabledAndAllCursorsHidden)
{
    for (const CheckBox& box : page.cbPlot) {
        EXPECT_EQ(box.value(), CheckBox::Unchecked);
        EXPECT_FALSE(box.enabled());
    }
    for (int cursor = 1; cursor <= 16; ++cursor)
        EXPECT_FALSE(page.graphLog.cursor(cursor).visible());
    EXPECT_FALSE(page.logStop.enabled());
    EXPECT_FALSE(page.bLogStarted);
}

TEST_F(DataLogPageTest, TheBoxesAreNamedAfterTheirChannels)
{
    EXPECT_EQ(page.cbPlot[0].caption(), "Ch1 V");
    EXPECT_EQ(page.cbPlot[1].caption(), "Ch1 A");
    EXPECT_EQ(page.cbPlot[14].caption(), "Ch8 V");
    EXPECT_EQ(page.cbPlot[15].caption(), "Ch8 A");
}

TEST_F(DataLogPageTest, TheDataControlIsBoundToTheLiveTable)
{
    EXPECT_EQ(page.DataLog.connectText(), "Access 2000;");
    EXPECT_EQ(page.DataLog.recordSource(), "DataMeasure");
    EXPECT_EQ(page.DataLog.caption(), "Sequence Settings");
    EXPECT_EQ(page.DataLog.databaseName(), application.path() + "\\orb.mdb");
}

} // namespace
