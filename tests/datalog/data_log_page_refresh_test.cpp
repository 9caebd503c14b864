// SPDX-License-Identifier: GPL-3.0-or-later
#include "data_log_page_test.h"

using namespace orb;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class DataLogPageRefreshTest : public DataLogPageTest {
protected:
    /// Rows of so many channels in the live table: in row r channel n has the current n+r/10 and the voltage 10n+r.
    void fill(int rows, int channels)
    {
        for (int r = 0; r < rows; ++r) {
            QString columns, values;
            for (int n = 1; n <= channels; ++n) {
                columns += QStringLiteral(",PVal%1,SVal%1").arg(n);
                values += QStringLiteral(",%1.%2,%3").arg(n).arg(r).arg(10 * n + r);
            }
            dbMain.execute(
                QStringLiteral("insert into DataMeasure (SeqNo,RecTime%1) values(%2,'2024/01/31 10:15:0%2'%3)")
                    .arg(columns)
                    .arg(r)
                    .arg(values));
        }
    }

    /// Fills the table, and refreshes a log of so many channels.
    void refreshLog(int channels, int rows = 2)
    {
        fill(rows, channels);
        page.iLogChannels = static_cast<std::int16_t>(channels);
        press(page.logRefresh);
    }

    QString maxima() const
    {
        return QStringLiteral("%1 %2").arg(page.graphLog.axis(2).maximum()).arg(page.graphLog.axis(3).maximum());
    }
};

TEST_F(DataLogPageRefreshTest, AnEmptyTableDrawsEveryPlotWithOnePointAtZeroAndTheSmallestDecade)
{
    refreshLog(4, 0);

    for (int plot = 1; plot <= 8; ++plot)
        EXPECT_THAT(plotted(plot), ElementsAre(0)) << plot;
    EXPECT_THAT(plotted(9), IsEmpty());
    EXPECT_EQ(maxima(), "1e-06 1e-06");
    EXPECT_THAT(processExit.reports, IsEmpty());
}

TEST_F(DataLogPageRefreshTest, ARefreshDrawsPValOnTheOddPlotsAndSValOnTheEvenOnesAndEndsInAFallToZero)
{
    refreshLog(2);

    EXPECT_THAT(plotted(1), ElementsAre(1.0, 1.1, 0));
    EXPECT_THAT(plotted(2), ElementsAre(10, 11, 0));
    EXPECT_THAT(plotted(3), ElementsAre(2.0, 2.1, 0));
    EXPECT_THAT(plotted(4), ElementsAre(20, 21, 0));
    EXPECT_NEAR(page.graphLog.plot(1).point(2).x * 86400, 2, 1e-6);
}

TEST_F(DataLogPageRefreshTest, ThePairOfAChannelChangesPlacesBetweenTheLiveAndTheRefreshedView)
{
    record(1);
    EXPECT_THAT(plotted(1), ElementsAre(12.1));
    EXPECT_THAT(plotted(2), ElementsAre(1.1));

    press(page.logRefresh);

    EXPECT_THAT(plotted(1), ElementsAre(1.1, 0));
    EXPECT_THAT(plotted(2), ElementsAre(12.1, 0));
    EXPECT_THAT(gridColumn("CH1 A"), ElementsAre("1.1000"));
}

TEST_F(DataLogPageRefreshTest, WithSevenChannelsThePlotOfTheSeventhCurrentStaysAtZero)
{
    refreshLog(7);

    EXPECT_THAT(plotted(11), ElementsAre(6.0, 6.1, 0));
    EXPECT_THAT(plotted(13), ElementsAre(0, 0, 0));
    EXPECT_THAT(plotted(14), ElementsAre(70, 71, 0));
    EXPECT_THAT(plotted(16), IsEmpty());
    EXPECT_THAT(processExit.reports, IsEmpty()) << "the eighth voltage, which no row has, is read";
}

TEST_F(DataLogPageRefreshTest, WithEightChannelsEveryCurveIsFlatAtZero)
{
    refreshLog(8, 3);

    for (int plot = 1; plot <= 16; ++plot)
        EXPECT_THAT(plotted(plot), ElementsAre(0, 0, 0, 0)) << plot;
    EXPECT_EQ(page.lLogRecNo, 3);
}

TEST_F(DataLogPageRefreshTest, ARefreshWithoutAChannelCountPlotsNothingChecksNoBoxAndLeavesSeven)
{
    refreshLog(0);
    fill(2, 2);
    page.iLogChannels = 0;
    press(page.logRefresh);

    for (int plot = 1; plot <= 16; ++plot)
        EXPECT_THAT(plotted(plot), IsEmpty()) << plot;
    for (const CheckBox& box : page.cbPlot)
        EXPECT_EQ(box.value(), CheckBox::Unchecked);
    EXPECT_EQ(page.iLogChannels, 7);
}

TEST_F(DataLogPageRefreshTest, TheHighestOfTheTextColumnIsTheHighestText)
{
    alterDatabase("insert into DataMeasure (SeqNo,RecTime,PVal1,SVal1) values(0,'t','9.5','1'),(1,'t','10.2','1')");
    page.iLogChannels = 1;

    press(page.logRefresh);

    EXPECT_NEAR(page.graphLog.axis(2).maximum(), 10, 1e-9) << "9.5 sorts above 10.2";
    EXPECT_NEAR(page.graphLog.axis(3).maximum(), 1, 1e-9);
}

TEST_F(DataLogPageRefreshTest, AFixedRangeIsLeftAloneByARefresh)
{
    pick(page.cmbYVoltage, "105V");

    refreshLog(2);

    EXPECT_EQ(page.graphLog.axis(2).maximum(), 105);
    EXPECT_NEAR(page.graphLog.axis(3).maximum(), 100, 1e-9);
}

TEST_F(DataLogPageRefreshTest, TheExtremesAreThoseOfAllChannelsAndOfTheirOwnColumns)
{
    alterDatabase("insert into DataMeasure (SeqNo,RecTime,PVal1,SVal1,PVal2,SVal2) values(0,'t','0.5','2','500','3'),"
                  "(1,'t','1','7','5','30')");
    page.iLogChannels = 2;

    press(page.logRefresh);

    EXPECT_EQ(maxima(), "1000 100");
}

TEST_F(DataLogPageRefreshTest, AnAxisStartsAtZeroEvenWhereAllValuesAreNegative)
{
    alterDatabase("insert into DataMeasure (SeqNo,RecTime,PVal1,SVal1) values(0,'t','-5','-7')");
    page.iLogChannels = 1;

    press(page.logRefresh);

    EXPECT_EQ(page.graphLog.axis(2).minimum(), 0);
    EXPECT_EQ(maxima(), "1e-06 1e-06");
}

TEST_F(DataLogPageRefreshTest, AChannelWithoutValuesChangesNoExtreme)
{
    alterDatabase("insert into DataMeasure (SeqNo,RecTime,PVal1,SVal1) values(0,'t','5','70')");
    page.iLogChannels = 2;

    press(page.logRefresh);

    EXPECT_EQ(maxima(), "10 100");
}

TEST_F(DataLogPageRefreshTest, ARefreshTakesTheRowCountClearsAllChannelsShowsThoseOfTheLogAndSelectsZoom)
{
    press(page.optGraphMode[1]);
    showCursorsAndEnableBoxes();

    refreshLog(2, 3);

    EXPECT_EQ(page.lLogRecNo, 3);
    EXPECT_EQ(boxesPlotsAndCursors(), "enabled [1 2 3 4] checked [1 2 3 4] plots [1 2 3 4] cursors []");
    EXPECT_TRUE(page.optGraphMode[0].value());
    EXPECT_EQ(page.graphLog.TrackMode(), 6);
}

TEST_F(DataLogPageRefreshTest, ARefreshLeavesTheRecordsetAtItsEnd)
{
    for (int channels : {2, 8, 0}) {
        refreshLog(channels, 3);
        EXPECT_TRUE(page.DataLog.recordset().isEof()) << channels;
    }
    dbMain.execute("delete from DataMeasure");
    refreshLog(2, 0);
    EXPECT_TRUE(page.DataLog.recordset().isEof());
    EXPECT_THAT(processExit.reports, IsEmpty());
}

TEST_F(DataLogPageRefreshTest, AValueThatIsNoNumberEndsTheRefreshWithTheReport)
{
    alterDatabase("insert into DataMeasure (SeqNo,RecTime,PVal1,SVal1) values(0,'t','1','over')");
    page.iLogChannels = 1;

    press(page.logRefresh);

    EXPECT_THAT(processExit.reports, ElementsAre("Run-time error '13':\n\nType mismatch"));
    EXPECT_THAT(plotted(1), IsEmpty());
    EXPECT_EQ(page.adLogSeries[0][0], 1) << "the series stay as far as they were filled";
}

TEST_F(DataLogPageRefreshTest, ARefreshInARecordingReplacesTheCurvesAndTheNextCycleAppends)
{
    clock.at(1500, [&] { press(page.logRefresh); });
    clock.at(2500, [&] { press(page.logStop); });

    press(page.logStart);

    EXPECT_THAT(plotted(1), ElementsAre(1.1, 1.1, 0, 12.1, 12.1));
    EXPECT_THAT(table("select SeqNo from DataMeasure"), "0\n1\n2\n3\n");
}

} // namespace
