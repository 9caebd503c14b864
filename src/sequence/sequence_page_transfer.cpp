// SPDX-License-Identifier: GPL-3.0-or-later
#include "clock.h"
#include "sequence_page.h"

namespace orb {

namespace {

constexpr int pauseMs = 200;
constexpr int summaryLines = 6;
constexpr int modeLine = 4;
constexpr int rangeLine = 5;

} // namespace

void SequencePage::seqSendClick()
{
    if (!CORB_.IsConnected()) {
        dialogs_.message(QStringLiteral("Please Setup Device first, and then try again!"), Icon::Critical);
        return;
    }
    if (lstSequence.listCount() != summaryLines) {
        dialogs_.message(QStringLiteral("Please load a Sequence file first!"), Icon::Information);
        return;
    }
    sendAndWait(modeCommand());
    // The range of the voltage is that of the current: the setting VRange is not sent.
    sendAndWait(hasHighRange() ? QStringLiteral(":SEQ:VOLT:RANG H") : QStringLiteral(":SEQ:VOLT:RANG L"));
    sendSetting(QStringLiteral("On_End_Of_Seq Value"), QStringLiteral(":SEQ:END:LOAD "));
    sendSetting(QStringLiteral("Repeat Count"), QStringLiteral(":SEQ:REP "));
    const QString nowhere = QStringLiteral("0");
    const QString first =
        sendSetting(QStringLiteral("The start point of loop"), QStringLiteral(":SEQ:LOOP:STAR "), nowhere);
    const QString last = sendSetting(QStringLiteral("The end point of loop"), QStringLiteral(":SEQ:END "), nowhere);
    sendPoints(first, last);
}

/// Any mode other than CC is sent as CR.
QString SequencePage::modeCommand() const
{
    const bool isCC = lstSequence.list(modeLine).contains(QStringLiteral("CC"));
    return QStringLiteral(":MODE ") + (isCC ? QStringLiteral("CC") : QStringLiteral("CR")) +
           (hasHighRange() ? QLatin1Char('H') : QLatin1Char('L'));
}

bool SequencePage::hasHighRange() const
{
    return lstSequence.list(rangeLine).contains(QStringLiteral("High"));
}

void SequencePage::sendAndWait(const QString& command)
{
    CORB_.SendCommand(command);
    clock_.sleep(pauseMs);
}

/// Sends `command` with the value to send of the setting whose label holds these words. The result is that value, and
/// `ifMissing` where there is no such setting, which sends nothing.
QString SequencePage::sendSetting(const QString& label, const QString& command, const QString& ifMissing)
{
    const auto rows =
        dbMain_.openRecordset(QStringLiteral("select * from ORBSeqHead where item like \"*%1*\"").arg(label));
    if (rows->isEof())
        return ifMissing;
    const QString value = rows->field(QStringLiteral("Update")).asText();
    sendAndWait(command + value);
    return value;
}

void SequencePage::sendPoints(const QString& first, const QString& last)
{
    // The long form of the time is as the instrument's commands have it here, among short ones.
    static const std::array<std::pair<QString, QString>, 5> commands{{{":SEQ:EDIT:POIN ", "index"},
                                                                      {":SEQuence:POINt:TIME ", "durtime"},
                                                                      {":SEQ:POIN:CURR ", "current"},
                                                                      {":SEQ:POIN:RISE ", "SlewrateUp"},
                                                                      {":SEQ:POIN:FALL ", "SlewrateDown"}}};
    const auto points = dbMain_.openRecordset(QStringLiteral("select * from ORBSeqData where index between ") + first +
                                              QStringLiteral(" and ") + last + QStringLiteral(" order by index asc"));
    for (; !points->isEof(); points->moveNext())
        for (const auto& [command, field] : commands)
            sendAndWait(command + points->field(field).asText());
}

void SequencePage::SeqLoadClick()
{
    if (!CORB_.IsConnected() && dialogs_.message(QStringLiteral("Device is not Connected, Continue?"), Icon::None,
                                                 Buttons::YesNo) != Answer::Yes)
        return;
    CORB_.FetchSequenceFile();
    sPendingSeqFile_.clear();
    if (!fileExists(staging::sequence)) // one that an earlier fetch left counts too
        return preventSimulation();
    sPendingSeqFile_ = staging::sequence;
    allowSimulation();
    seqOpenClick();
}

} // namespace orb
