// SPDX-License-Identifier: GPL-3.0-or-later
#include "record_file.h"
#include "sequence_page.h"
#include "sequence_statements.h"
#include "values.h"

#include <utility>

namespace orb {

namespace {

constexpr char16_t digitZero = 48;

QString sequenceVersion(const SeqFileRecord& record)
{
    const std::array characters{QChar::fromLatin1(record.SeqVersion1), QChar::fromLatin1(record.SeqVersion2),
                                QChar(static_cast<char16_t>(record.SeqVersion3 + digitZero))};
    return QString(characters.data(), characters.size());
}

QString firmwareVersion(const SeqFileRecord& record)
{
    return QString::fromLatin1(record.MasterFirmware.data(), record.MasterFirmware.size());
}

} // namespace

void SequencePage::seqOpenClick()
{
    const QString name = fileToOpen();
    if (name.isEmpty()) {
        dialogs_.message(QStringLiteral("No file was selected."));
        return;
    }
    readRecord(name, record); // over what was there, before any test
    lstSequence.clear();
    const quint32 stored = record.CheckSum;
    const quint32 computed = computedCheckSum(record);
    if (stored != computed) {
        dialogs_.message(QStringLiteral("Checksum Error"));
        return;
    }
    lstSequence.addItem(QStringLiteral("CheckSum 4 bytes %1 %2").arg(stored).arg(computed));
    decodeRecord();
    insertHead();
    if (insertPoints())
        enableButtons();
}

/// The pending file, or the one that the operator chooses. A cancelled dialog holds the name of its last use, and that
/// is taken.
QString SequencePage::fileToOpen()
{
    if (!sPendingSeqFile_.isEmpty())
        return std::exchange(sPendingSeqFile_, QString());
    graphSeq.ClearData();
    CommonDialog& dialog = dialogs_.CommonDialog1;
    dialog.title = QStringLiteral("Select a File to Open");
    dialog.filter = QStringLiteral("ORB3000 Sequence Files (*.A)|*.a");
    dialog.initialDirectory = paths_.applicationDirectory();
    dialogs_.showOpen();
    return dialog.fileName;
}

/// Each decoder runs twice, once for the member and once for the line, so that a bad byte is reported twice.
void SequencePage::decodeRecord()
{
    const auto addLine = [this](const char* label, const QString& value) {
        lstSequence.addItem(QLatin1String(label) + QLatin1Char(' ') + value);
    };
    deviceValues.sLoadModule = deviceValues.ByteToLoadModule(record.LoadModuleType);
    addLine("Load Module Type", deviceValues.ByteToLoadModule(record.LoadModuleType));
    sSeqVersion = sequenceVersion(record);
    addLine("Sequence Version", sSeqVersion);
    sMasterFirmware = firmwareVersion(record);
    addLine("Master Fimware Version", sMasterFirmware);
    deviceValues.sLoadMode = deviceValues.ByteToLoadMode(record.LoadMode);
    addLine("Mode", deviceValues.ByteToLoadMode(record.LoadMode));
    deviceValues.sLoadRange = deviceValues.ByteToLoadRange(record.LoadRange);
    addLine("Range", deviceValues.ByteToLoadRange(record.LoadRange));
    sVRange = text(record.VRange);
    sLoopStart = text(record.LoopStart + 1);
    sLoopEnd = text(record.LoopEnd + 1);
}

void SequencePage::insertHead()
{
    const std::array<std::pair<const char*, int>, 5> rows{{{"VRange 0:16V, 1:80V", record.VRange},
                                                           {"The start point of loop (A)", record.LoopStart + 1},
                                                           {"The end point of loop (B)", record.LoopEnd + 1},
                                                           {"Repeat Count(0:inf)", record.RepeatCount},
                                                           {"On_End_Of_Seq Value", record.OnEndOfSeq}}};
    for (const auto& [label, value] : rows)
        dbMain_.execute(headInsert(QLatin1String(label), value));
    datORBSeqSet.refresh();
}

/// False where the loop ends before the last point: then nothing more is done, not even a refresh.
bool SequencePage::insertPoints()
{
    for (int i = 1; i <= SeqFileRecord::pointCount; ++i) {
        if (i > numericValue(sLoopEnd))
            return false;
        dbMain_.execute(pointInsert(i, pointValues(i)));
    }
    return true;
}

/// The count and the time base are single precision, their product is not. An undefined time base is no number, which
/// ends the opening with a failure.
PointValues SequencePage::pointValues(int index) const
{
    const auto i = static_cast<std::size_t>(index - 1);
    const SeqPoint& point = record.Points[i];
    const auto count = static_cast<float>(record.DurationCount[i]);
    const auto timeBase = static_cast<float>(toDouble(deviceValues.ByteToSeqTimeBase(point.TimeBaseCode)));
    PointValues result{};
    result.seconds = static_cast<double>(count) * static_cast<double>(timeBase);
    result.amperes = static_cast<double>(point.CurrentRaw) * static_cast<double>(deviceValues.GetValueScale());
    result.rise = point.SlewUpRaw * deviceValues.GetSWValueScale();
    result.fall = point.SlewDownRaw * deviceValues.GetSWValueScale();
    return result;
}

void SequencePage::enableButtons()
{
    datORB.refresh();
    allowSimulation();
    seqSend.setEnabled(CORB_.IsConnected());
    if (seqSend.enabled())
        seqSend.setPicture(icon("\\ICON\\SEQINTO.JPG"));
}

} // namespace orb
