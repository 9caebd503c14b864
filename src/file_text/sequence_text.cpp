// SPDX-License-Identifier: GPL-3.0-or-later
#include "sequence_text.h"

#include "point_duration.h"
#include "record_file.h"
#include "reserved_bytes.h"
#include "sequence_values.h"
#include "table_lines.h"

#include <QStringList>

namespace orb {

namespace {

using Record = SeqFileRecord;

constexpr int pointCount = SeqFileRecord::pointCount;
constexpr WholeRange positives{0, std::numeric_limits<qint16>::max()};
constexpr WholeRange counts{0, std::numeric_limits<qint32>::max()};
constexpr int firstTimeBase = 5;
const FileTable::Row heading{"Point", "Duration (s)", "Current (A)", "Rise (A/us)", "Fall (A/us)", "Time base"};

enum Column : std::size_t { Number, Duration, Current, Rise, Fall, TimeBase };

std::vector<std::string> textsOf(const QStringList& words)
{
    std::vector<std::string> texts;
    for (const QString& word : words)
        texts.push_back(word.toStdString());
    return texts;
}

/// How the numbers of a point are written, which depends on the module, the mode and the range.
struct PointFormats {
    NumberFormat current;
    NumberFormat slewRate;
    NumberFormat timeBase;
};

PointFormats pointFormats(const Record& record)
{
    const QString module = loadModuleWord(record.LoadModuleType).value_or(QString());
    const QString mode = loadModeWord(record.LoadMode).value_or(QString());
    const QString range = loadRangeWord(record.LoadRange).value_or(QString());
    const bool isCurrent = record.LoadMode == 0;
    const auto amperes = isCurrent ? valueScale(module, range) : std::nullopt;
    const auto slewRate = isCurrent ? slewScale(module, range) : std::nullopt;
    const NumberFormat unknown = NumberFormat::rawOnly(
        "the steps of this module, mode and range are not known (" +
        (module + QStringLiteral(", ") + mode + QStringLiteral(", ") + range).toStdString() + ')');
    return {amperes ? NumberFormat::steps(positives, static_cast<double>(*amperes)) : unknown,
            slewRate ? NumberFormat::steps(positives, *slewRate) : unknown,
            NumberFormat::words({"1 us", "10 us", "100 us", "1 ms", "10 ms", "100 ms", "1 s"}, firstTimeBase)};
}

/// How a number of counts of a time base is written.
NumberFormat durationFormat(int timeBaseCode)
{
    const auto seconds = timeBaseSeconds(timeBaseCode);
    return seconds ? NumberFormat::steps(counts, *seconds) : NumberFormat::rawOnly("the time base is raw");
}

// The third character is stored as a number.
std::string versionOf(const Record& record)
{
    return {record.SeqVersion1, record.SeqVersion2, static_cast<char>(record.SeqVersion3 + '0')};
}

void setVersion(Record& record, std::string_view version)
{
    record.SeqVersion1 = version[0];
    record.SeqVersion2 = version[1];
    record.SeqVersion3 = static_cast<quint8>(version[2] - '0');
}

Setting<Record> versionSetting()
{
    return {"Sequence version", [](const Record& record) { return charactersText(versionOf(record)); },
            [](Record& record, const CsvCell& cell) { setVersion(record, readCharacters(cell, 3)); }};
}

Setting<Record> firmwareSetting()
{
    return {"Master firmware version",
            [](const Record& record) {
                return charactersText({record.MasterFirmware.data(), record.MasterFirmware.size()});
            },
            [](Record& record, const CsvCell& cell) {
                const std::string characters = readCharacters(cell, record.MasterFirmware.size());
                std::ranges::copy(characters, record.MasterFirmware.begin());
            }};
}

bool isLoopReversed(const Record& record)
{
    return record.LoopEnd >= 0 && record.LoopEnd < pointCount && record.LoopStart > record.LoopEnd;
}

/// A start after the end, which no reader of text lets pass, is raw.
Setting<Record> loopStartSetting(const NumberFormat& point)
{
    Setting<Record> setting = numberSetting<Record, qint16, &Record::LoopStart>("Loop start", point);
    setting.text = [point](const Record& record) {
        return isLoopReversed(record) ? rawText(record.LoopStart) : point.text(record.LoopStart);
    };
    return setting;
}

enum SettingIndex : std::size_t { LoadModule, Range = 2, LoopStart = 6, LoopEnd = 7 };

std::vector<Setting<Record>> sequenceSettings()
{
    const NumberFormat point = NumberFormat::whole({0, pointCount - 1}, 1);
    return {
        numberSetting<Record, quint8, &Record::LoadModuleType>("Load module",
                                                               NumberFormat::words(textsOf(loadModuleWords()))),
        numberSetting<Record, quint8, &Record::LoadMode>("Mode", NumberFormat::words(textsOf(loadModeWords()))),
        numberSetting<Record, quint8, &Record::LoadRange>("Range", NumberFormat::words(textsOf(loadRangeWords()))),
        versionSetting(),
        firmwareSetting(),
        numberSetting<Record, quint8, &Record::VRange>("Voltage range (V)", NumberFormat::words({"16", "80"})),
        loopStartSetting(point),
        numberSetting<Record, qint16, &Record::LoopEnd>("Loop end", point),
        numberSetting<Record, qint16, &Record::RepeatCount>("Repeat count", NumberFormat::whole(positives)),
        numberSetting<Record, qint16, &Record::OnEndOfSeq>("On end of sequence",
                                                           NumberFormat::whole(rangeOf<qint16>())),
    };
}

bool isZero(const Record& record, std::size_t index)
{
    const SeqPoint& point = record.Points[index];
    return point.CurrentRaw == 0 && point.SlewUpRaw == 0 && point.SlewDownRaw == 0 && point.TimeBaseCode == 0 &&
           record.DurationCount[index] == 0;
}

/// The number of points that are shown.
std::size_t shownPoints(const Record& record)
{
    std::size_t shown = pointCount;
    const auto looped =
        static_cast<std::size_t>(record.LoopEnd >= 0 && record.LoopEnd < pointCount ? record.LoopEnd + 1 : 0);
    while (shown > looped && isZero(record, shown - 1))
        --shown;
    return shown;
}

FileTable::Row pointRow(const Record& record, std::size_t index, const PointFormats& formats)
{
    const SeqPoint& point = record.Points[index];
    return {std::to_string(index + 1),
            durationFormat(point.TimeBaseCode).text(record.DurationCount[index]),
            formats.current.text(point.CurrentRaw),
            formats.slewRate.text(point.SlewUpRaw),
            formats.slewRate.text(point.SlewDownRaw),
            formats.timeBase.text(point.TimeBaseCode)};
}

PointDuration readDuration(const CsvLine& line, const NumberFormat& timeBase)
{
    const CsvCell duration = line.at(Duration);
    const CsvCell base = line.at(TimeBase);
    if (!base.text.empty()) {
        const auto code = static_cast<int>(timeBase.read(base, rangeOf<qint16>()));
        return {code, static_cast<qint32>(durationFormat(code).read(duration, rangeOf<qint32>()))};
    }
    if (isRaw(duration))
        base.fail("a raw duration needs a time base");
    constexpr std::int64_t millionths = 1'000'000;
    const NumberFormat seconds = NumberFormat::steps({0, counts.highest * millionths}, 1e-6);
    return pointDuration(static_cast<double>(seconds.read(duration, {})) / millionths);
}

void readPoint(const CsvLine& line, std::size_t index, const PointFormats& formats, Record& record)
{
    const std::string expected = std::to_string(index + 1);
    if (index >= pointCount)
        line.first().fail("a sequence has at most 120 points");
    if (line.first().text != expected)
        line.first().fail("point " + expected + " is expected, not \"" + line.first().text + '"');
    SeqPoint& point = record.Points[index];
    const PointDuration duration = readDuration(line, formats.timeBase);
    point.TimeBaseCode = static_cast<qint16>(duration.timeBaseCode);
    record.DurationCount[index] = duration.count;
    const auto number = [&](Column column, const NumberFormat& format) {
        return static_cast<qint16>(format.read(line.at(column), rangeOf<qint16>()));
    };
    point.CurrentRaw = number(Current, formats.current);
    point.SlewUpRaw = number(Rise, formats.slewRate);
    point.SlewDownRaw = number(Fall, formats.slewRate);
}

void requireLoop(const TableLines& lines, Record& record)
{
    const std::optional<CsvCell>& start = lines.settings[LoopStart];
    const std::optional<CsvCell>& end = lines.settings[LoopEnd];
    const auto points = static_cast<int>(lines.rows.size());
    if (!end && points == 0)
        throw CsvError(lines.end, 1, "there is no point");
    if (!end)
        record.LoopEnd = static_cast<qint16>(points - 1);
    else if (!isRaw(*end) && record.LoopEnd >= points)
        end->fail("the loop ends at point " + end->text + ", and the last point is " + std::to_string(points));
    if (start && !isRaw(*start) && isLoopReversed(record))
        start->fail("the loop starts after its end");
}

void requireSetting(const TableLines& lines, SettingIndex index, const std::string& name)
{
    if (!lines.settings[index])
        throw CsvError(1, 1, "the setting \"" + name + "\" is missing");
}

Record defaultRecord()
{
    Record record{};
    setVersion(record, "1.0");
    record.MasterFirmware = {'1', '.', '0', '0'};
    record.VRange = 1;
    record.RepeatCount = 1;
    return record;
}

} // namespace

FileTable sequenceTable(const SeqFileRecord& record)
{
    FileTable table;
    table.settings = settingRows(sequenceSettings(), record);
    table.heading = heading;
    const PointFormats formats = pointFormats(record);
    for (std::size_t index = 0; index < shownPoints(record); ++index)
        table.rows.push_back(pointRow(record, index, formats));
    table.reserved = reservedRows(imageOf(record), reservedRuns(record));
    return table;
}

SeqFileRecord readSequence(std::string_view csv)
{
    const std::vector<Setting<Record>> settings = sequenceSettings();
    const TableLines lines = readTable(csv, namesOf(settings), heading, true);
    requireSetting(lines, LoadModule, settings[LoadModule].name);
    requireSetting(lines, Range, settings[Range].name);
    Record record = defaultRecord();
    readSettings(settings, lines, record);
    const PointFormats formats = pointFormats(record);
    for (std::size_t index = 0; index < lines.rows.size(); ++index)
        readPoint(lines.rows[index], index, formats, record);
    requireLoop(lines, record);
    for (const CsvLine& line : lines.reserved)
        readReservedLine(line, imageOf(record), reservedRuns(record));
    record.CheckSum = computedCheckSum(record);
    return record;
}

} // namespace orb
