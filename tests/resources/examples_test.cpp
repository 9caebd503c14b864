// SPDX-License-Identifier: GPL-3.0-or-later
#include "directories.h"
#include "load_channel.h"
#include "load_module.h"
#include "mainframe.h"
#include "program_text.h"
#include "record_file.h"
#include "sequence_text.h"
#include "sequence_values.h"
#include "simulated_instrument.h"

#include <QDir>
#include <QFile>

#include <gmock/gmock.h>

namespace orb {
namespace {

QDir tables()
{
    return {sourceDirectory() + QStringLiteral("/resources/examples")};
}

std::string contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : "no such file";
}

std::string tableOf(const QString& name)
{
    return contentOf(tables().filePath(name + QStringLiteral(".csv")));
}

/// The record of the file beside the program.
template <class Record> Record madeFile(const QString& name)
{
    Record record{};
    const QString path = binaryDirectory() + QStringLiteral("/examples/") + name;
    EXPECT_EQ(contentOf(path).size(), sizeof(Record)) << path.toStdString();
    readRecord(path, record);
    EXPECT_EQ(record.CheckSum, computedCheckSum(record));
    return record;
}

/// The names of the files of one kind, without ".csv".
QStringList namesOf(const char* ending)
{
    QStringList names = tables().entryList({QStringLiteral("*.%1.csv").arg(QString::fromLatin1(ending))}, QDir::Files);
    names.replaceInStrings(QStringLiteral(".csv"), QString());
    return names;
}

TEST(ExamplesTest, EverySequenceIsMadeOfItsTable)
{
    EXPECT_GE(namesOf("a").size(), 5);
    for (const QString& name : namesOf("a")) {
        const auto record = madeFile<SeqFileRecord>(name);
        EXPECT_EQ(csvOf(sequenceTable(record)), tableOf(name)) << name.toStdString();
        EXPECT_TRUE(std::ranges::equal(imageOf(record), imageOf(readSequence(tableOf(name))))) << name.toStdString();
    }
}

TEST(ExamplesTest, EveryProgramIsMadeOfItsTable)
{
    EXPECT_GE(namesOf("b").size(), 3);
    for (const QString& name : namesOf("b")) {
        const auto record = madeFile<ProgFileRecord>(name);
        EXPECT_EQ(csvOf(programTable(record)), tableOf(name)) << name.toStdString();
        EXPECT_TRUE(std::ranges::equal(imageOf(record), imageOf(readProgram(tableOf(name))))) << name.toStdString();
    }
}

TEST(ExamplesTest, TheLoopOfASequenceHoldsAllItsPointsAndMostHaveAHundredAndTwenty)
{
    int whole = 0;
    for (const QString& name : namesOf("a")) {
        const auto record = madeFile<SeqFileRecord>(name);
        EXPECT_EQ(record.LoopStart, 0) << name.toStdString();
        EXPECT_EQ(static_cast<std::size_t>(record.LoopEnd) + 1, sequenceTable(record).rows.size())
            << name.toStdString();
        whole += record.LoopEnd == SeqFileRecord::pointCount - 1 ? 1 : 0;
    }
    EXPECT_GE(whole, 3);
}

TEST(ExamplesTest, EveryPointIsShownAndPlayedAsItIs)
{
    const LoadModule& module = *findLoadModule("K12B");
    for (const QString& name : namesOf("a")) {
        const auto record = madeFile<SeqFileRecord>(name);
        EXPECT_EQ(loadModuleWord(record.LoadModuleType), QStringLiteral("K12B")) << name.toStdString();
        EXPECT_EQ(loadModeWord(record.LoadMode), QStringLiteral("CC")) << name.toStdString();
        EXPECT_EQ(loadRangeWord(record.LoadRange), QStringLiteral("High")) << name.toStdString();
        for (int index = 0; index <= record.LoopEnd; ++index) {
            const auto at = static_cast<std::size_t>(index);
            const double seconds = record.DurationCount[at] * *timeBaseSeconds(record.Points[at].TimeBaseCode);
            EXPECT_GE(seconds, 0.001) << "a page shows milliseconds: " << name.toStdString();
            EXPECT_LE(record.Points[at].CurrentRaw, 400) << "4 A: " << name.toStdString();
            EXPECT_TRUE(module.slewRate[1].holds(record.Points[at].SlewUpRaw * 0.0064)) << name.toStdString();
            EXPECT_TRUE(module.slewRate[1].holds(record.Points[at].SlewDownRaw * 0.0064)) << name.toStdString();
        }
    }
}

/// The commands that make the record the sequence of the instrument.
std::string commandsOf(const SeqFileRecord& record)
{
    std::string commands = ":SEQ:REP " + std::to_string(record.RepeatCount) + ";:SEQ:LOOP:STAR " +
                           std::to_string(record.LoopStart + 1) + ";:SEQ:END " + std::to_string(record.LoopEnd + 1);
    for (int index = 0; index <= record.LoopEnd; ++index) {
        const auto at = static_cast<std::size_t>(index);
        const SeqPoint& point = record.Points[at];
        commands += ";:SEQ:EDIT:POIN " + std::to_string(index + 1) + ";:SEQ:POIN:DATA " +
                    std::to_string(record.DurationCount[at] * *timeBaseSeconds(point.TimeBaseCode)) + ',' +
                    std::to_string(point.CurrentRaw * 0.01) + ',' + std::to_string(point.SlewUpRaw * 0.0064) + ',' +
                    std::to_string(point.SlewDownRaw * 0.0064);
    }
    return commands;
}

TEST(ExamplesTest, EverySequencePlaysOnTheSimulatedInstrument)
{
    for (const QString& name : namesOf("a")) {
        const auto record = madeFile<SeqFileRecord>(name);
        auto now = std::make_shared<std::chrono::nanoseconds>(0);
        SimulatedInstrument instrument(defaultConfiguration(), [now] { return *now; });
        instrument.execute(commandsOf(record));
        instrument.execute(":CHAN 3;:MODE CCH;:LOAD ON;:SEQ:RUN");
        ASSERT_EQ(instrument.execute(":SYST:ERR?;:SEQ:RUN?"), "0,\"No error\";1") << name.toStdString();
        for (int round = 0; round < 800; ++round) {
            *now += std::chrono::seconds(5);
            instrument.execute("*WAI");
        }
        EXPECT_EQ(instrument.execute(":SEQ:RUN?"), record.RepeatCount == 0 ? "1" : "0") << name.toStdString();
        EXPECT_EQ(instrument.mainframe().channel(3).condition(), 0U) << "protection: " << name.toStdString();
    }
}

TEST(ExamplesTest, TheTimesOfAProgramCanBeSentBack)
{
    for (const QString& name : namesOf("b")) {
        const auto record = madeFile<ProgFileRecord>(name);
        for (const ProgramBlock& block : record.programs) {
            for (std::size_t step = 0; step < ProgramBlock::stepCount; ++step) {
                for (const qint16 tenths :
                     {block.OnTimer[step], block.OffTime[step], block.PFTime[step], block.ShortTime[step]})
                    EXPECT_TRUE(tenths >= 0 && tenths <= 255) << "a page sends up to 25.5 s: " << name.toStdString();
            }
        }
    }
}

TEST(ExamplesTest, TheReadmeNamesEveryExample)
{
    const std::string readme = contentOf(tables().filePath(QStringLiteral("README.md")));
    for (const QString& name : namesOf("a") + namesOf("b"))
        EXPECT_THAT(readme, testing::HasSubstr("| `" + name.toStdString() + "` | ")) << name.toStdString();
}

} // namespace
} // namespace orb
