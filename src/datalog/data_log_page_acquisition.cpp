// SPDX-License-Identifier: GPL-3.0-or-later
#include "data_log_page.h"
#include "graph_log.h"
#include "values.h"

namespace orb {

namespace {
constexpr int replyWaitMs = 100;
constexpr int furtherPolls = 3;
} // namespace

void DataLogPage::logStartClick()
{
    if (!CORB_.IsConnected()) {
        dialogs_.message(QStringLiteral("Please Connect Device first, and then try again!"), Icon::Critical);
        return;
    }
    bLogStarted = true;
    logStop.setEnabled(true);
    logStop.setPicture(icon("\\ICON\\B4STOP-A.JPG"));
    lLogRecNo = 0;
    graphLog.ClearData();
    dbMain_->execute(QStringLiteral("delete * from DataMeasure"));
    rebindDataLog();
    for (int channel = 0; channel < graphChannels; ++channel)
        clearChannel(channel);
    const int channels = CORB_.ChannelCount();
    for (int channel = 0; channel < channels; ++channel)
        showChannel(channel);
    iLogChannels = CORB_.ChannelCount();
    logStart.setEnabled(false);
    vLogLastTick = clock_.secondsSinceMidnight();
    bLogRunning = true;
    while (bLogRunning) {
        clock_.yield();
        FetchLogSample();
    }
}

void DataLogPage::showChannel(int channel)
{
    for (int plot = 2 * channel + 1; plot <= 2 * channel + 2; ++plot) {
        graphLog.plot(plot).setVisible(true);
        boxOf(plot).setEnabled(true);
        boxOf(plot).setValue(CheckBox::Checked);
    }
}

void DataLogPage::logStopClick()
{
    bLogRunning = false;
    logStart.setEnabled(true);
    logStop.setEnabled(false);
    logStop.setPicture(icon("\\ICON\\B4STOP.JPG"));
}

void DataLogPage::FetchLogSample()
{
    try {
        sampleCycle();
    } catch (const RuntimeFailure& failure) {
        dialogs_.message(QStringLiteral("%1:%2").arg(failure.number()).arg(failure.description()), Icon::Critical);
        logStopClick();
    }
}

void DataLogPage::sampleCycle()
{
    if (!CORB_.IsConnected()) {
        dialogs_.message(QStringLiteral("Please Setup Device first, and then try again!"), Icon::Critical);
        // What is switched here is a timer that no one ever assigned: the log stops by that failure, told as well.
        throw RuntimeFailure(failure::ObjectVariableNotSet);
    }
    const ReplyList currents = fetchList(QStringLiteral(":FETC:ALLC?"));
    const ReplyList voltages = fetchList(QStringLiteral(":FETC:ALLV?"));
    dbMain_->execute(sampleStatement(lLogRecNo, clock_.now(), currents, voltages,
                                     [this](int channel, const QString& current, const QString& voltage) {
                                         graphLog.plot(2 * channel + 1).ChartY(numericValue(voltage), secondInDays);
                                         graphLog.plot(2 * channel + 2).ChartY(numericValue(current), secondInDays);
                                     }));
    ++lLogRecNo;
    DataLog.refresh();
    DBGrid1.refresh();
    DataLog.recordset().moveLast();
    waitOutTheSecond();
}

/// Sends a list query and waits for its reply; asks the operator when it does not come. Nothing where it never came;
/// the log is stopped then, and the cycle goes on all the same.
ReplyList DataLogPage::fetchList(const QString& query)
{
    CORB_.SendCommand(query);
    clock_.sleep(replyWaitMs);
    QString reply = CORB_.Reply();
    for (int poll = 0; poll < furtherPolls && reply.isEmpty(); ++poll) {
        clock_.sleep(replyWaitMs);
        reply = CORB_.Reply();
    }
    if (reply.isEmpty())
        reply = askAgain(query);
    return reply.isEmpty() ? ReplyList() : ReplyList(reply.split(QLatin1Char(',')));
}

QString DataLogPage::askAgain(const QString& query)
{
    const auto answer = dialogs_.message(QStringLiteral("Device is Busy or Device is not connected\r\nWait or not?"),
                                         Icon::None, Buttons::YesNo);
    if (answer != Answer::Yes) {
        logStopClick();
        return {};
    }
    CORB_.SendCommand(query);
    clock_.sleep(replyWaitMs);
    const QString reply = CORB_.Reply();
    if (reply.isEmpty()) {
        dialogs_.message(QStringLiteral("Device is not connected.\r\nPlease reconnect device and try again!"),
                         Icon::Critical);
        logStopClick();
    }
    return reply;
}

void DataLogPage::waitOutTheSecond()
{
    const float difference = clock_.secondsSinceMidnight() - vLogLastTick;
    const double e = toDouble(text(difference)); // the seconds that the cycle took; nothing guards against midnight
    if (1 - e > 0)
        clock_.sleep(toLong((1 - e) * 1000));
    vLogLastTick = clock_.secondsSinceMidnight();
}

} // namespace orb
