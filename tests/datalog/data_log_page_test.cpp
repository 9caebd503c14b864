// SPDX-License-Identifier: GPL-3.0-or-later
#include "data_log_page_test.h"

#include "graph_log.h"

#include <QCoreApplication>
#include <QHeaderView>

using namespace orb;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

TEST_F(DataLogPageTest, AStartWithLeftoverRowsLeavesAnEmptyTableAnEmptyGridAndNoRecordNumber)
{
    alterDatabase("insert into DataMeasure (SeqNo,RecTime) values(0,'2024/01/30 10:00:00'),(1,'2024/01/30 10:00:01')");
    page.DataLog.refresh();
    page.DBGrid1.refresh();
    page.lLogRecNo = 2;
    ASSERT_THAT(gridColumn("SeqNo"), ElementsAre("0", "1"));

    run.enter([&] { page.InitDataLog(); });

    EXPECT_EQ(table("select count(*) from DataMeasure"), "0\n");
    EXPECT_EQ(page.DataLog.rowCount(), 0);
    EXPECT_THAT(gridColumn("SeqNo"), IsEmpty());
    EXPECT_EQ(page.DBGrid1.cellText(0, 0), "");
    EXPECT_EQ(page.lLogRecNo, 0);
}

TEST_F(DataLogPageTest, TheFirstStateHasNoCurvesAllBoxesClearedAndDisabledAndAllCursorsHidden)
{
    record(2);
    showCursorsAndEnableBoxes();
    page.logStop.setEnabled(true);

    run.enter([&] { page.InitDataLog(); });

    EXPECT_EQ(boxesPlotsAndCursors(), "enabled [] checked [] plots [] cursors []");
    EXPECT_THAT(plotted(1), IsEmpty());
    EXPECT_FALSE(page.logStop.enabled());
    EXPECT_FALSE(page.bLogStarted);
}

TEST_F(DataLogPageTest, TheBoxesAreDrawnDisabledAndCheckedAndTheInitClearsThem)
{
    const DataLogPage fresh(clock, dialogs, paths, instrument, wsMain, dbMain);
    for (const CheckBox& box : fresh.cbPlot) {
        EXPECT_EQ(box.value(), CheckBox::Checked);
        EXPECT_FALSE(box.enabled());
    }
    EXPECT_EQ(boxesPlotsAndCursors(), "enabled [] checked [] plots [] cursors []");
}

TEST_F(DataLogPageTest, ANewPageHasNoLog)
{
    const DataLogPage fresh(clock, dialogs, paths, instrument, wsMain, dbMain);
    EXPECT_FALSE(fresh.bLogRunning);
    EXPECT_FALSE(fresh.bLogStarted);
    EXPECT_EQ(fresh.lLogRecNo, 0);
    EXPECT_EQ(fresh.iLogChannels, 0);
    EXPECT_EQ(fresh.vLogLastTick, 0);
    EXPECT_THAT(fresh.adLogSeries, testing::Each(IsEmpty()));
    EXPECT_TRUE(fresh.optGraphMode[0].value());
    EXPECT_EQ(fresh.graphLog.TrackMode(), 6);
}

TEST_F(DataLogPageTest, TheInitEmptiesTheListOfWavesAndTheTimeRanges)
{
    page.lstWave.addItem("a");

    run.enter([&] { page.InitDataLog(); });

    EXPECT_EQ(page.lstWave.listCount(), 0);
    EXPECT_EQ(page.cmbXLength.listCount(), 10);
}

TEST_F(DataLogPageTest, TheCombosOfferTheirRangesAndTheFirstIsSelected)
{
    const auto items = [](const ComboBox& combo) {
        QStringList texts;
        for (int i = 0; i < combo.listCount(); ++i)
            texts << combo.list(i);
        return texts;
    };
    EXPECT_EQ(items(page.cmbXLength), timeRangeItems());
    EXPECT_EQ(items(page.cmbYVoltage), voltageRangeItems());
    EXPECT_EQ(items(page.cmbYCurrent), currentRangeItems());
    EXPECT_EQ(page.cmbXLength.text(), "5m");
    EXPECT_EQ(page.cmbYVoltage.text(), "Default");
    EXPECT_EQ(page.cmbYCurrent.text(), "Default");
}

TEST_F(DataLogPageTest, ARefreshOfThePageMakesPictureAndStateOfTheStartFollowTheLink)
{
    journal.watch(page.logStart, "logStart");
    journal.clear();

    page.RefreshDataLogPage();
    instrument.connected = false;
    page.RefreshDataLogPage();
    instrument.connected = true;
    page.RefreshDataLogPage();

    EXPECT_THAT(journal.linesWithout({"read"}),
                ElementsAre("picture logStart APP\\ICON\\B1RUNSTART.JPG", //
                            "picture logStart APP\\ICON\\B1RUNSTOP.jpg", "disable logStart",
                            "picture logStart APP\\ICON\\B1RUNSTART.JPG", "enable logStart"));
}

TEST_F(DataLogPageTest, TheSlideOfTheGraphOperationsMovesAndNothingFollowsIt)
{
    record(2);
    const QString before = boxesPlotsAndCursors();
    for (int position : {1, 2, 3, 0}) {
        page.GraphMode.setValue(position);
        EXPECT_EQ(boxesPlotsAndCursors(), before);
        EXPECT_EQ(page.graphLog.TrackMode(), 6);
        EXPECT_FALSE(page.FrameCursor.visible());
    }
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

TEST_F(DataLogPageTest, TheFirstStateHasAFiveMinuteAxisAndBothValueAxesFromZeroToFifty)
{
    const Graph& graph = page.graphLog;
    EXPECT_EQ(graph.axis(1).caption(), "Elapsed Time [Sec]");
    EXPECT_NEAR(graph.axis(1).maximum() * 86400, 300, 1e-6);
    EXPECT_EQ(graph.axis(2).maximum(), 50);
    EXPECT_EQ(graph.axis(3).maximum(), 50);
    EXPECT_EQ(graph.axis(2).minimum(), 0);
}

TEST_F(DataLogPageTest, TheDataControlIsBoundToTheLiveTable)
{
    EXPECT_EQ(page.DataLog.connectText(), "Access 2000;");
    EXPECT_EQ(page.DataLog.recordSource(), "DataMeasure");
    EXPECT_EQ(page.DataLog.caption(), "Sequence Settings");
    EXPECT_EQ(page.DataLog.databaseName(), application.path() + "\\orb.mdb");
}

TEST_F(DataLogPageTest, TheColumnsOfTheTableAreAsWideAsTheirValuesSoThatFourChannelsAreInView)
{
    form.resize(722, 710);
    page.setGeometry(8, 64, 706, 620);
    form.show();
    record(3);
    QCoreApplication::processEvents();
    const QFontMetrics font = page.DBGrid1.fontMetrics();
    EXPECT_EQ(page.DBGrid1.columnWidth(2), font.horizontalAdvance("1.1000") + 10);
    const QRect fourth = page.DBGrid1.visualRect(page.DBGrid1.model()->index(0, 9));
    EXPECT_LE(fourth.right(), page.DBGrid1.viewport()->width());
}

TEST_F(DataLogPageTest, InALowWindowTheBoxesStandSideBySideAndTheTableKeepsThreeRows)
{
    form.resize(1024, 800);
    page.setGeometry(8, 64, 706, 620);
    form.show();
    QCoreApplication::processEvents();
    const int tallMinimum = page.minimumSizeHint().height();
    EXPECT_GT(page.FrameGraphOperations.y(), page.FrameChannel.geometry().bottom());

    page.resize(706, 486);
    QCoreApplication::processEvents();

    EXPECT_EQ(page.FrameGraphOperations.y(), page.FrameChannel.y());
    EXPECT_GT(page.FrameGraphOperations.x(), page.FrameChannel.geometry().right());
    EXPECT_GE(page.DBGrid1.viewport()->height(), 3 * page.DBGrid1.verticalHeader()->defaultSectionSize());
    EXPECT_LE(page.minimumSizeHint().height(), 486);
    EXPECT_EQ(page.minimumSizeHint().height(), tallMinimum) << "a page that is high can become low";
}

} // namespace
