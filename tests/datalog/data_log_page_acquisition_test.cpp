// SPDX-License-Identifier: GPL-3.0-or-later
#include "data_log_page_test.h"

#include <QCoreApplication>
#include <QScrollBar>

using namespace orb;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

const Shown notConnectedAtStart{"Please Connect Device first, and then try again!", Icon::Critical, Buttons::Ok};
const Shown linkLost{"Please Setup Device first, and then try again!", Icon::Critical, Buttons::Ok};
const Shown busy{"Device is Busy or Device is not connected\r\nWait or not?", Icon::None, Buttons::YesNo};
const Shown stillNothing{"Device is not connected.\r\nPlease reconnect device and try again!", Icon::Critical,
                         Buttons::Ok};
const Shown missingList{"9:Subscript out of range", Icon::Critical, Buttons::Ok};
const Shown unknownName{"3061:Unknown name in the statement", Icon::Critical, Buttons::Ok};

/// Writes into the journal what a cycle does to the data control, and how far the cycle is then.
class RefreshObserver final : public DataObserver {
public:
    RefreshObserver(DataControl& data, Journal& journal, std::function<QString()> state)
        : data_(data), journal_(journal), state_(std::move(state))
    {
        data_.addObserver(*this);
    }
    ~RefreshObserver() override { data_.removeObserver(*this); }
    RefreshObserver(const RefreshObserver&) = delete;
    RefreshObserver& operator=(const RefreshObserver&) = delete;

    void sourceChanged() override { journal_.write("refresh, " + state_()); }
    void sourceMoved() override { journal_.write(QString("row %1").arg(data_.recordset().position())); }
    void sourceDestroyed() override {}

private:
    DataControl& data_;
    Journal& journal_;
    std::function<QString()> state_;
};

class DataLogPageAcquisitionTest : public DataLogPageTest {
protected:
    QString samples() const { return table("select SeqNo,RecTime,PVal1,SVal1 from DataMeasure"); }
    bool isIdle() const { return page.logStart.enabled() && !page.logStop.enabled() && !page.bLogRunning; }
};

TEST_F(DataLogPageAcquisitionTest, ASampleASecondGoesToTheTableTheGridAndTheCurves)
{
    record(3);

    EXPECT_EQ(samples(), "0|2024/01/31 10:15:00|1.1000|12.1000\n"
                         "1|2024/01/31 10:15:01|1.1000|12.1000\n"
                         "2|2024/01/31 10:15:02|1.1000|12.1000\n");
    EXPECT_THAT(gridColumn("SeqNo"), ElementsAre("0", "1", "2"));
    EXPECT_THAT(gridColumn("CH1 A"), ElementsAre("1.1000", "1.1000", "1.1000"));
    EXPECT_THAT(gridColumn("CV4 V"), ElementsAre("12.4000", "12.4000", "12.4000"));
    EXPECT_THAT(plotted(1), ElementsAre(12.1, 12.1, 12.1));
    EXPECT_THAT(plotted(2), ElementsAre(1.1, 1.1, 1.1));
    EXPECT_THAT(plotted(8), ElementsAre(4.1, 4.1, 4.1));
    EXPECT_THAT(plotted(9), IsEmpty());
    EXPECT_NEAR(page.graphLog.plot(1).point(2).x * 86400, 2, 1e-6);
    EXPECT_EQ(page.lLogRecNo, 3);
    EXPECT_TRUE(isIdle());
}

TEST_F(DataLogPageAcquisitionTest, ACycleSendsSleepsReadsChartsInsertsRefreshesMovesAndSleepsInThisOrder)
{
    const RefreshObserver observer(page.DataLog, journal, [this] {
        return QString("%1 charted, %2 inserted, next is %3")
            .arg(plotted(8).size())
            .arg(table("select count(*) from DataMeasure").trimmed())
            .arg(page.lLogRecNo);
    });
    currents = "1,2,3,4,";
    voltages = "5,6,7,8,";
    journal.clear();

    record(2);

    const QStringList cycle{"yield",     "read IsConnected True",   "send :FETC:ALLC?",
                            "sleep 100", "read Reply \"1,2,3,4,\"", "send :FETC:ALLV?",
                            "sleep 100", "read Reply \"5,6,7,8,\""};
    const QStringList expected = QStringList{"read IsConnected True", "refresh, 0 charted, 0 inserted, next is 0",
                                             "read ChannelCount 4", "read ChannelCount 4"} +
                                 cycle + QStringList{"refresh, 1 charted, 1 inserted, next is 1", "row 0", "sleep"} +
                                 cycle + QStringList{"refresh, 2 charted, 2 inserted, next is 2", "row 1", "sleep"};
    // Single-precision seconds have a grain of 4 ms at this hour.
    EXPECT_EQ(journal.lines().replaceInStrings(QRegularExpression("^sleep (79[5-9]|80[0-5])$"), "sleep"), expected);
}

TEST_F(DataLogPageAcquisitionTest, AFailedInsertLeavesTheRecordNumberAndTheDataControlUntouched)
{
    record(2);
    alterDatabase("create trigger broken before insert on DataMeasure begin select raise(fail, 'disk full'); end");
    const RefreshObserver observer(page.DataLog, journal, [] { return QString("too early"); });

    run.enter([&] { page.FetchLogSample(); });

    EXPECT_EQ(page.lLogRecNo, 2);
    EXPECT_EQ(plotted(1).size(), 3) << "its points were drawn before";
    EXPECT_THAT(journal.linesOf({"refresh,", "row"}), IsEmpty());
}

TEST_F(DataLogPageAcquisitionTest, AFailureIsShownBeforeTheLogIsStopped)
{
    clock.at(1000, [&] { instrument.connected = false; });
    journal.watch(page.logStart, "logStart");
    journal.watch(page.logStop, "logStop");

    press(page.logStart);

    EXPECT_THAT(journal.linesWithout({"read", "send", "sleep", "yield"}),
                ElementsAre("enable logStop", "picture logStop APP\\ICON\\B4STOP-A.JPG", "disable logStart",
                            "message \"Please Setup Device first, and then try again!\" critical Ok",
                            "message \"91:Object variable not set\" critical Ok", "enable logStart", "disable logStop",
                            "picture logStop APP\\ICON\\B4STOP.JPG"));
}

TEST_F(DataLogPageAcquisitionTest, AStartClearsAllChannelsAndShowsThoseOfTheInstrument)
{
    record(1);
    instrument.channelCount = 3;
    showCursorsAndEnableBoxes();

    record(1);

    EXPECT_EQ(boxesPlotsAndCursors(), "enabled [1 2 3 4 5 6] checked [1 2 3 4 5 6] plots [1 2 3 4 5 6] cursors []");
    EXPECT_EQ(page.iLogChannels, 3);
}

TEST_F(DataLogPageAcquisitionTest, ACycleOfASecondOrMoreDoesNotSleep)
{
    instrument.onCommand = [this](const QString& query) {
        clock.advance(600);
        return query == ":FETC:ALLC?" ? currents : voltages;
    };

    record(1);

    EXPECT_THAT(clock.sleeps, ElementsAre(100, 100));
}

TEST_F(DataLogPageAcquisitionTest, WithoutALinkTheLogDoesNotStart)
{
    instrument.connected = false;

    press(page.logStart);

    EXPECT_THAT(dialogs.shown, ElementsAre(notConnectedAtStart));
    EXPECT_THAT(instrument.sent, IsEmpty());
    EXPECT_FALSE(page.logStop.enabled());
    EXPECT_FALSE(page.bLogStarted);
}

TEST_F(DataLogPageAcquisitionTest, TheButtonsShowWhetherARecordingRuns)
{
    clock.at(1500, [&] {
        EXPECT_FALSE(page.logStart.enabled());
        EXPECT_TRUE(page.logStop.enabled());
        EXPECT_EQ(page.logStop.picture(), paths.inApplication("\\ICON\\B4STOP-A.JPG"));
        EXPECT_TRUE(page.bLogStarted);
    });

    record(3);

    EXPECT_TRUE(isIdle());
    EXPECT_EQ(page.logStop.picture(), paths.inApplication("\\ICON\\B4STOP.JPG"));
    EXPECT_TRUE(page.bLogStarted);
}

TEST_F(DataLogPageAcquisitionTest, TheRangesThatTheCombosSetStayInARecording)
{
    pick(page.cmbXLength, "1 Hr");
    pick(page.cmbYVoltage, "15V");

    record(2);

    EXPECT_NEAR(page.graphLog.axis(1).maximum(), 1.0 / 24, 1e-9);
    EXPECT_EQ(page.graphLog.axis(2).maximum(), 15);
}

TEST_F(DataLogPageAcquisitionTest, TheLastFieldOfAReplyIsNeverUsed)
{
    currents = "1,2,3,4";

    record(1);

    EXPECT_EQ(table("select PVal3,PVal4,SVal4 from DataMeasure"), "3|-|-\n");
    EXPECT_THAT(plotted(7), IsEmpty());
}

TEST_F(DataLogPageAcquisitionTest, ARecordingThatPassesMidnightSleepsForAboutADay)
{
    clock.allow(2 * 86'400'000LL);
    clock.setNow(QDateTime({2024, 1, 31}, {23, 59, 59, 0}));
    clock.at(86'400'000, [&] { press(page.logStop); });

    press(page.logStart);

    EXPECT_EQ(table("select SeqNo,RecTime from DataMeasure"), "0|2024/01/31 23:59:59\n"
                                                              "1|2024/02/01 00:00:00\n"
                                                              "2|2024/02/02 00:00:01\n");
    const auto longest = *std::max_element(clock.sleeps.begin(), clock.sleeps.end());
    EXPECT_NEAR(longest, 86'400'000, 2000);
}

TEST_F(DataLogPageAcquisitionTest, AReplyWithASingleFieldLogsNothingAndStopsTheLog)
{
    currents = "1.1000";

    press(page.logStart);

    EXPECT_THAT(dialogs.shown, ElementsAre(Shown{"5:Invalid procedure call or argument", critical, Buttons::Ok}));
    EXPECT_EQ(samples(), "");
    EXPECT_TRUE(isIdle());
}

TEST_F(DataLogPageAcquisitionTest, AReplyOnTheThirdPollCostsOneHundredMillisecondsAPollAndNoMessage)
{
    clock.at(1, [&] { press(page.logStop); });
    instrument.replies = {"", "", "", currents, voltages};

    press(page.logStart);

    EXPECT_THAT(dialogs.shown, IsEmpty());
    EXPECT_THAT(instrument.sent, ElementsAre(":FETC:ALLC?", ":FETC:ALLV?"));
    ASSERT_EQ(clock.sleeps.size(), 6);
    EXPECT_THAT(std::vector<int>(clock.sleeps.begin(), clock.sleeps.begin() + 5), ElementsAre(100, 100, 100, 100, 100));
    EXPECT_EQ(table("select count(*) from DataMeasure"), "1\n");
}

TEST_F(DataLogPageAcquisitionTest, AYesAndAReplyContinueTheCycleWithNoGapInTheNumbers)
{
    clock.at(1000, [&] { instrument.replies = {"", "", "", "", currents, voltages}; });
    clock.at(2000, [&] { press(page.logStop); });
    dialogs.answers = {Answer::Yes};

    press(page.logStart);

    EXPECT_THAT(dialogs.shown, ElementsAre(busy));
    EXPECT_EQ(table("select SeqNo from DataMeasure"), "0\n1\n2\n");
}

TEST_F(DataLogPageAcquisitionTest, ANoStopsTheLogStillSendsTheOtherQueryAndThenReportsTheMissingList)
{
    clock.at(1000, [&] { currents.clear(); });
    dialogs.answers = {Answer::No};

    press(page.logStart);

    EXPECT_THAT(dialogs.shown, ElementsAre(busy, missingList));
    EXPECT_EQ(instrument.sent.back(), ":FETC:ALLV?");
    EXPECT_EQ(table("select SeqNo from DataMeasure"), "0\n");
    EXPECT_TRUE(isIdle());
}

TEST_F(DataLogPageAcquisitionTest, AYesWithoutAReplyShowsThatTheDeviceIsNotConnectedAndThenTheMissingList)
{
    currents.clear();
    dialogs.answers = {Answer::Yes};

    press(page.logStart);

    EXPECT_THAT(dialogs.shown, ElementsAre(busy, stillNothing, missingList));
    EXPECT_THAT(instrument.sent, ElementsAre(":FETC:ALLC?", ":FETC:ALLC?", ":FETC:ALLV?"));
    EXPECT_TRUE(isIdle());
}

TEST_F(DataLogPageAcquisitionTest, AMissingVoltageListIsTreatedAsAMissingCurrentList)
{
    voltages.clear();
    dialogs.answers = {Answer::Yes};

    press(page.logStart);

    EXPECT_THAT(dialogs.shown, ElementsAre(busy, stillNothing, missingList));
    EXPECT_THAT(instrument.sent, ElementsAre(":FETC:ALLC?", ":FETC:ALLV?", ":FETC:ALLV?"));
    EXPECT_EQ(samples(), "");
}

TEST_F(DataLogPageAcquisitionTest, AVoltageListShorterThanTheCurrentListStopsTheLogAndWritesNoRow)
{
    clock.at(1000, [&] { voltages = "12.1,12.2"; });

    press(page.logStart);

    EXPECT_THAT(dialogs.shown, ElementsAre(missingList));
    EXPECT_EQ(table("select count(*) from DataMeasure"), "1\n");
    EXPECT_THAT(plotted(1), ElementsAre(12.1, 12.1)) << "the channels before the missing one have their point";
}

TEST_F(DataLogPageAcquisitionTest, ALinkLostInTheRecordingShowsTwoBoxesAndStopsTheLog)
{
    clock.at(1000, [&] { instrument.connected = false; });

    press(page.logStart);

    EXPECT_THAT(dialogs.shown, ElementsAre(linkLost, Shown{"91:Object variable not set", critical, Buttons::Ok}));
    EXPECT_EQ(table("select count(*) from DataMeasure"), "1\n");
    EXPECT_TRUE(isIdle());
}

TEST_F(DataLogPageAcquisitionTest, AFieldThatIsNoNumberStopsTheLogAfterItsPointsWereDrawnAndWritesNoRow)
{
    clock.at(1000, [&] { currents = "1.1,garbage,3.1,4.1,"; });

    press(page.logStart);

    EXPECT_THAT(dialogs.shown, ElementsAre(unknownName));
    EXPECT_EQ(table("select SeqNo,PVal1 from DataMeasure"), "0|1.1000\n");
    EXPECT_EQ(page.lLogRecNo, 1);
    EXPECT_THAT(plotted(4), ElementsAre(2.1, 0)) << "a text that begins with no number counts as 0";
    EXPECT_THAT(plotted(6), ElementsAre(3.1, 3.1));
    EXPECT_TRUE(isIdle());
}

TEST_F(DataLogPageAcquisitionTest, AFieldThatIsAnExpressionOrAStatementIsNeverRun)
{
    alterDatabase("insert into DataMeasureM (LogID,LogDate) values('20240131001','2024-01-31 10:00:00')");
    const QStringList fields{
        "1.1);delete from DataMeasureM;--", "zeroblob(900000000)", "(select 1)", "'text'", "?", "1+1", "null", ""};
    for (const QString& field : fields) {
        dialogs.shown.clear();
        currents = field + ",2.1,3.1,4.1,";

        press(page.logStart);

        EXPECT_THAT(dialogs.shown, ElementsAre(unknownName)) << field.toStdString();
    }
    EXPECT_EQ(samples(), "");
    EXPECT_EQ(table("select count(*) from DataMeasureM"), "1\n");
}

TEST_F(DataLogPageAcquisitionTest, ASecondStartEmptiesTheTableAgainAndAStopDoesNot)
{
    record(3);
    EXPECT_EQ(page.lLogRecNo, 3);
    EXPECT_EQ(table("select count(*) from DataMeasure"), "3\n");

    record(1);

    EXPECT_EQ(page.lLogRecNo, 1);
    EXPECT_EQ(table("select SeqNo from DataMeasure"), "0\n");
    EXPECT_EQ(plotted(1).size(), 1);
}

TEST_F(DataLogPageAcquisitionTest, NoRefreshOfThePageEnablesTheStartWhileARecordingRuns)
{
    clock.at(1500, [&] {
        page.RefreshDataLogPage();
        EXPECT_FALSE(page.logStart.enabled());
        press(page.logStart);
    });

    record(4);

    EXPECT_EQ(table("select SeqNo from DataMeasure"), "0\n1\n2\n3\n");
    page.RefreshDataLogPage();
    EXPECT_TRUE(page.logStart.enabled());
}

TEST_F(DataLogPageAcquisitionTest, AStopAndAStartWithinOneYieldBeginANewLogInTheSameLoop)
{
    clock.at(1500, [&] {
        press(page.logStop);
        press(page.logStart);
        EXPECT_EQ(table("select count(*) from DataMeasure"), "0\n") << "the start has returned";
    });

    record(5);

    EXPECT_EQ(table("select SeqNo,RecTime from DataMeasure"), "0|2024/01/31 10:15:02\n"
                                                              "1|2024/01/31 10:15:03\n"
                                                              "2|2024/01/31 10:15:04\n");
    record(1);
    EXPECT_EQ(table("select SeqNo from DataMeasure"), "0\n") << "the next recording has a loop of its own";
}

TEST_F(DataLogPageAcquisitionTest, AStartThatCannotEmptyTheTableHasClearedTheCurvesBefore)
{
    record(2);
    alterDatabase("create trigger broken before delete on DataMeasure begin select raise(fail, 'kept'); end");

    press(page.logStart);

    EXPECT_EQ(processExit.reports.size(), 1);
    EXPECT_THAT(plotted(1), IsEmpty());
    EXPECT_TRUE(page.cbPlot[0].enabled()) << "the boxes come later";
}

TEST_F(DataLogPageAcquisitionTest, TheCycleInProgressRunsToItsEndAfterAStop)
{
    clock.at(1, [&] { press(page.logStop); });

    press(page.logStart);

    EXPECT_EQ(table("select count(*) from DataMeasure"), "1\n");
}

TEST_F(DataLogPageAcquisitionTest, TheGridFollowsTheNewestSample)
{
    record(60);

    EXPECT_EQ(page.DataLog.recordset().field("SeqNo").asText(), "59");
    QCoreApplication::processEvents();
    EXPECT_EQ(page.DBGrid1.currentIndex().row(), 59);
}

TEST_F(DataLogPageAcquisitionTest, TheGridNeverScrollsBackInARecording)
{
    std::vector<int> places;
    QObject::connect(page.DBGrid1.verticalScrollBar(), &QScrollBar::valueChanged, &form,
                     [&](int place) { places.push_back(place); });
    instrument.onCommand = [this](const QString& query) {
        QCoreApplication::processEvents();
        return query == ":FETC:ALLC?" ? currents : voltages;
    };

    record(60);

    EXPECT_GT(places.size(), 10);
    EXPECT_TRUE(std::is_sorted(places.begin(), places.end()));
}

TEST_F(DataLogPageAcquisitionTest, TheDataLogTimerNeverTicks)
{
    EXPECT_TRUE(page.TimerDataLog.enabled());
    EXPECT_EQ(page.TimerDataLog.interval(), 0);
    instrument.connectedReads = {true};
    clock.advance(5000);
    EXPECT_EQ(instrument.connectedReads.size(), 1);
}

TEST_F(DataLogPageAcquisitionTest, ATickOfTheDataLogTimerWouldReadTheLinkAndDoNothing)
{
    page.TimerDataLog.setInterval(1000);
    journal.clear();

    clock.advance(1000);

    EXPECT_THAT(journal.lines(), ElementsAre("read IsConnected True"));
}

} // namespace
