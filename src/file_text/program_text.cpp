// SPDX-License-Identifier: GPL-3.0-or-later
#include "program_text.h"

#include "record_file.h"
#include "reserved_bytes.h"
#include "table_lines.h"

namespace orb {

namespace {

using Record = ProgFileRecord;
using Times = std::array<qint16_le, ProgramBlock::stepCount>;

constexpr std::size_t programCount = ProgFileRecord::programCount;
constexpr std::size_t stepCount = ProgramBlock::stepCount;
constexpr int memoryCount = 120;
constexpr double tenth = 0.1;
constexpr WholeRange upTo60{0, 600};
constexpr WholeRange upTo119{0, 1199};
const FileTable::Row heading{"Program",      "Step",         "Memory",         "Run mode",      "On-Timer (s)",
                             "Off-Time (s)", "P/F-Time (s)", "Short Time (s)", "Short channels"};

/// One of the times of a step, with its column.
struct TimeColumn {
    Times ProgramBlock::*times;
    WholeRange tenths;
};
constexpr std::array timeColumns{TimeColumn{&ProgramBlock::OnTimer, upTo60}, TimeColumn{&ProgramBlock::OffTime, upTo60},
                                 TimeColumn{&ProgramBlock::PFTime, upTo119},
                                 TimeColumn{&ProgramBlock::ShortTime, upTo60}};

enum Column : std::size_t { Program, StepNumber, Memory, RunMode, FirstTime, ShortChannels = FirstTime + 4 };

std::string programName(std::size_t index)
{
    return (index < 9 ? "P0" : "P") + std::to_string(index + 1);
}

std::vector<std::string> programNames()
{
    std::vector<std::string> names;
    for (std::size_t index = 0; index < programCount; ++index)
        names.push_back(programName(index));
    return names;
}

/// The words for all masks of channels: "none", "CH1", "CH2", "CH1+CH2" and so on.
std::vector<std::string> channelWords()
{
    std::vector<std::string> words{"none"};
    for (unsigned mask = 1; mask < 256; ++mask) {
        std::string word;
        for (unsigned channel = 0; mask >> channel != 0; ++channel) {
            if ((mask >> channel & 1U) != 0)
                word += (word.empty() ? "CH" : "+CH") + std::to_string(channel + 1);
        }
        words.push_back(word);
    }
    return words;
}

Setting<Record> chainSetting(std::size_t program)
{
    std::vector<std::string> words = programNames();
    words.insert(words.begin(), "OFF");
    const NumberFormat format = NumberFormat::words(std::move(words));
    return {"Next after " + programName(program),
            [=](const Record& record) { return format.text(record.ChainNext[program]); },
            [=](Record& record, const CsvCell& cell) {
                record.ChainNext[program] = static_cast<quint8>(format.read(cell, rangeOf<quint8>()));
            }};
}

std::vector<Setting<Record>> programSettings()
{
    std::vector<Setting<Record>> settings{
        numberSetting<Record, quint8, &Record::ChainStart>("Chain start", NumberFormat::words(programNames()))};
    for (std::size_t program = 0; program < programCount; ++program)
        settings.push_back(chainSetting(program));
    return settings;
}

/// How the numbers of a step are written.
struct StepFormats {
    NumberFormat memory = NumberFormat::whole({0, memoryCount - 1}, 1);
    NumberFormat runMode = NumberFormat::words({"SKIP", "AUTO", "MANUAL"});
    NumberFormat channels = NumberFormat::words(channelWords(), 0, "no list of channels such as CH1+CH3, and not none");
    std::array<NumberFormat, timeColumns.size()> times;

    StepFormats()
    {
        for (std::size_t time = 0; time < times.size(); ++time)
            times[time] = NumberFormat::steps(timeColumns[time].tenths, tenth);
    }
};

FileTable::Row stepRow(const Record& record, std::size_t program, std::size_t step, const StepFormats& formats)
{
    const ProgramBlock& block = record.programs[program];
    FileTable::Row row{std::to_string(program + 1), std::to_string(step + 1), formats.memory.text(block.Memory[step]),
                       formats.runMode.text(block.RunMode[step])};
    for (std::size_t time = 0; time < timeColumns.size(); ++time)
        row.push_back(formats.times[time].text((block.*timeColumns[time].times)[step]));
    row.push_back(formats.channels.text(block.ShortCH[step]));
    return row;
}

void readStep(const CsvLine& line, ProgramBlock& block, std::size_t step, const StepFormats& formats)
{
    const auto number = [&](std::size_t column, const NumberFormat& format, WholeRange field) {
        return format.read(line.at(column), field);
    };
    block.Memory[step] = static_cast<quint8>(number(Memory, formats.memory, rangeOf<quint8>()));
    block.RunMode[step] = static_cast<quint8>(number(RunMode, formats.runMode, rangeOf<quint8>()));
    for (std::size_t time = 0; time < timeColumns.size(); ++time)
        (block.*timeColumns[time].times)[step] =
            static_cast<qint16>(number(FirstTime + time, formats.times[time], rangeOf<qint16>()));
    block.ShortCH[step] = static_cast<qint16>(number(ShortChannels, formats.channels, rangeOf<qint16>()));
}

/// The number in a cell, from 1 to `count`, counted from 0.
std::size_t readIndex(const CsvCell& cell, std::size_t count)
{
    const WholeRange range{0, static_cast<std::int64_t>(count) - 1};
    return static_cast<std::size_t>(NumberFormat::whole(range, 1).read(cell, range));
}

void readSteps(const std::vector<CsvLine>& rows, Record& record)
{
    const StepFormats formats;
    std::array<int, programCount * stepCount> lines{}; // where each step was read; 0 where it was not
    for (const CsvLine& line : rows) {
        const std::size_t program = readIndex(line.at(Program), programCount);
        const std::size_t step = readIndex(line.at(StepNumber), stepCount);
        int& readAt = lines[program * stepCount + step];
        if (readAt > 0)
            line.at(StepNumber).fail("the same step stands in line " + std::to_string(readAt));
        readAt = line.first().line;
        readStep(line, record.programs[program], step, formats);
    }
}

} // namespace

FileTable programTable(const ProgFileRecord& record)
{
    FileTable table;
    const StepFormats formats;
    table.settings = settingRows(programSettings(), record);
    table.heading = heading;
    for (std::size_t program = 0; program < programCount; ++program) {
        for (std::size_t step = 0; step < stepCount; ++step)
            table.rows.push_back(stepRow(record, program, step, formats));
    }
    table.reserved = reservedRows(imageOf(record), reservedRuns(record));
    return table;
}

ProgFileRecord readProgram(std::string_view csv)
{
    const std::vector<Setting<Record>> settings = programSettings();
    const TableLines lines = readTable(csv, namesOf(settings), heading, false);
    Record record{};
    readSettings(settings, lines, record);
    readSteps(lines.rows, record);
    for (const CsvLine& line : lines.reserved)
        readReservedLine(line, imageOf(record), reservedRuns(record));
    record.CheckSum = computedCheckSum(record);
    return record;
}

} // namespace orb
