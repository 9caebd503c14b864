// SPDX-License-Identifier: GPL-3.0-or-later
#include "data_log_page.h"
#include "graph_log.h"
#include "sample_statement.h"
#include "values.h"

namespace orb {

namespace {

constexpr int replyWaitMs = 100;
constexpr int furtherPolls = 3;

/// Throws `RuntimeFailure` 9 for a list that no reply has filled.
int lastIndex(const QStringList& list)
{
    if (list.isEmpty())
        throw RuntimeFailure(failure::SubscriptOutOfRange);
    return static_cast<int>(list.size()) - 1;
}

/// Throws `RuntimeFailure` 9 beyond the end of the list.
const QString& fieldOf(const QStringList& list, int index)
{
    if (index >= list.size())
        throw RuntimeFailure(failure::SubscriptOutOfRange);
    return list[index];
}

} // namespace

void DataLogPage::logStartClick()
{
    if (!CORB_.IsConnected()) {
        dialogs_.message(QStringLiteral("Please Connect Device first, and then try again!"), Icon::Critical);
        return;
    }
    beginRecording();
    if (loopIsRunning_) // stopped and started again within one yield: the loop that yields goes on with the new log
        return;
    loopIsRunning_ = true;
    while (bLogRunning) {
        clock_.yield();
        FetchLogSample();
    }
    loopIsRunning_ = false;
}

void DataLogPage::beginRecording()
{
    bLogStarted = true;
    logStop.setEnabled(true);
    logStop.setPicture(icon("\\ICON\\B4STOP-A.JPG"));
    emptyLog();
    const int channels = CORB_.ChannelCount();
    for (int channel = 0; channel < channels; ++channel)
        showChannel(channel);
    iLogChannels = CORB_.ChannelCount();
    logStart.setEnabled(false);
    vLogLastTick = clock_.secondsSinceMidnight();
    bLogRunning = true;
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
        // The timer to be disabled here was never assigned: this failure is shown too, and stops the log.
        throw RuntimeFailure(failure::ObjectVariableNotSet);
    }
    const QStringList currents = fetchList(QStringLiteral(":FETC:ALLC?"));
    const QStringList voltages = fetchList(QStringLiteral(":FETC:ALLV?"));
    const int channels = lastIndex(currents); // the last field is never used: the list closes with a comma
    SampleStatement statement(lLogRecNo, clock_.now(), channels);
    for (int i = 0; i < channels; ++i) {
        const QString& current = fieldOf(currents, i);
        const QString& voltage = fieldOf(voltages, i);
        statement.append(current, voltage);
        graphLog.plot(2 * i + 1).ChartY(numericValue(voltage), secondInDays);
        graphLog.plot(2 * i + 2).ChartY(numericValue(current), secondInDays);
    }
    dbMain_.execute(statement.sql());
    ++lLogRecNo;
    DataLog.refresh();
    DBGrid1.refresh();
    DataLog.recordset().moveLast();
    waitOutTheSecond();
}

/// Sends a list query and waits for its reply; asks the operator when none comes. The fields of the reply, an empty
/// list where it never came: the log is stopped then, and the cycle goes on all the same.
QStringList DataLogPage::fetchList(const QString& query)
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
    return reply.isEmpty() ? QStringList() : reply.split(QLatin1Char(','));
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
    const double e = toDouble(text(difference)); // seconds that the cycle took; nothing guards against midnight
    if (1 - e > 0)
        clock_.sleep(toLong((1 - e) * 1000));
    vLogLastTick = clock_.secondsSinceMidnight();
}

} // namespace orb
