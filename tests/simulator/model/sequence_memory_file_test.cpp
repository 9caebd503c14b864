// SPDX-License-Identifier: GPL-3.0-or-later
#include "sequence_memory_file.h"

#include "load_channel.h"
#include "record_file.h"
#include "sequence_memory.h"
#include "sequence_values.h"

#include <gmock/gmock.h>

#include <cmath>
#include <random>

namespace orb {
namespace {

/// What an editor of the file shows of a point: seconds to 0.001, amperes to 0.01, slew rates with all digits.
struct Shown {
    double seconds;
    double amperes;
    double rise;
    double fall;

    bool operator==(const Shown&) const = default;
};

std::ostream& operator<<(std::ostream& out, const Shown& shown)
{
    return out << shown.seconds << " s " << shown.amperes << " A " << shown.rise << ' ' << shown.fall;
}

double rounded(double value, int decimals)
{
    const double scale = std::pow(10.0, decimals);
    return std::round(value * scale) / scale;
}

Shown shownOf(const SequenceMemory::Point& point)
{
    return {rounded(point.seconds, 3), rounded(point.current, 2), rounded(point.rise, 5), rounded(point.fall, 5)};
}

/// Reads a point as an editor does: with the time base and the steps of current in single precision.
Shown shownOf(const SeqFileRecord& file, int number)
{
    const auto index = static_cast<std::size_t>(number - 1);
    const SeqPoint& point = file.Points[index];
    const QString module = *loadModuleWord(file.LoadModuleType);
    const QString range = *loadRangeWord(file.LoadRange);
    const auto base = static_cast<float>(*timeBaseSeconds(point.TimeBaseCode));
    const auto count = static_cast<float>(qint32{file.DurationCount[index]});
    const double slew = *slewScale(module, range);
    return {rounded(static_cast<double>(count) * static_cast<double>(base), 3),
            rounded(static_cast<double>(static_cast<float>(point.CurrentRaw)) *
                        static_cast<double>(*valueScale(module, range)),
                    2),
            rounded(point.SlewUpRaw * slew, 5), rounded(point.SlewDownRaw * slew, 5)};
}

class SequenceMemoryFileTest : public testing::Test {
protected:
    static LoadChannel channel(const char* module, LoadRange range = LoadRange::High)
    {
        LoadChannel made(*findLoadModule(module), {}, 1, 0);
        made.setMode(LoadFunction::Current, range);
        return made;
    }
    SeqFileRecord fileFor(const LoadChannel& selected) const { return sequenceFile(sequence, selected, {}); }
    std::string moduleFor(const LoadChannel& selected) const
    {
        const SeqFileRecord file = fileFor(selected);
        return (*loadModuleWord(file.LoadModuleType) + u' ' + *loadRangeWord(file.LoadRange)).toStdString();
    }
    /// A sequence of one point.
    void only(const SequenceMemory::Point& point)
    {
        sequence = {};
        sequence.point(1) = point;
    }

    SequenceMemory sequence;
};

TEST_F(SequenceMemoryFileTest, TheHeadOfTheSequenceStandsInTheFile)
{
    sequence.loopStart = 2;
    sequence.endPoint = 120;
    sequence.repeatCount = 32767;
    sequence.endValue = -5;
    sequence.voltageRange = LoadRange::High;
    const SeqFileRecord file = fileFor(channel("K13"));
    EXPECT_EQ(file.LoopStart, 1);
    EXPECT_EQ(file.LoopEnd, 119);
    EXPECT_EQ(file.RepeatCount, 32767);
    EXPECT_EQ(file.OnEndOfSeq, -5);
    EXPECT_EQ(file.VRange, 1);
    EXPECT_EQ(file.LoadMode, 0) << "a sequence is one of currents, whatever the mode of the channel is";
    EXPECT_EQ(file.CheckSum, computedCheckSum(file));
    EXPECT_EQ(file.SeqVersion1, '1');
    EXPECT_EQ(file.SeqVersion2, '.');
    EXPECT_EQ(file.SeqVersion3, 0);
    EXPECT_THAT(file.MasterFirmware, testing::ElementsAre('1', '.', '0', '0'));

    sequence.voltageRange = LoadRange::Low;
    EXPECT_EQ(fileFor(channel("K13")).VRange, 0);
}

TEST_F(SequenceMemoryFileTest, APointIsWrittenInTheStepsOfTheModuleAndItsTimeBase)
{
    sequence.point(1) = {};
    sequence.point(2) = {.current = 15, .seconds = 0.02, .rise = 1.6, .fall = 0.64};
    sequence.loopStart = sequence.endPoint = 2;
    const SeqFileRecord file = fileFor(channel("K12B"));
    EXPECT_EQ(file.LoadModuleType, 7);
    EXPECT_EQ(file.LoadRange, 1);
    EXPECT_EQ(file.Points[1].CurrentRaw, 1500);
    EXPECT_EQ(file.Points[1].SlewUpRaw, 250);
    EXPECT_EQ(file.Points[1].SlewDownRaw, 100);
    EXPECT_EQ(file.Points[1].TimeBaseCode, 9);
    EXPECT_EQ(file.DurationCount[1], 2);
}

TEST_F(SequenceMemoryFileTest, TheModuleIsThatOfTheChannelIfItsStepsAreKnown)
{
    only({.current = 1.5, .seconds = 1, .rise = 0, .fall = 0});
    EXPECT_EQ(moduleFor(channel("K12A")), "K12A High");
    EXPECT_EQ(moduleFor(channel("K14")), "K14 High");
    EXPECT_EQ(moduleFor(channel("K13", LoadRange::Low)), "K13 Low");
    EXPECT_EQ(moduleFor(channel("K12B", LoadRange::Low)), "K12B Low");
    for (const char* module : {"K11", "K11AB", "K15", "K16", "K17"})
        EXPECT_EQ(moduleFor(channel(module)), "K12B High") << module;
    EXPECT_EQ(moduleFor(channel("K11", LoadRange::Low)), "K12B Low");
}

TEST_F(SequenceMemoryFileTest, AModuleWhoseStepsGiveTheSlewRatesComesBeforeThatOfTheChannel)
{
    only({.current = 1.5, .seconds = 1, .rise = 0.01, .fall = 2.5});
    EXPECT_EQ(moduleFor(channel("K12B")), "K13 High");
    only({.current = 1.5, .seconds = 1, .rise = 0.0016, .fall = 0.4});
    EXPECT_EQ(moduleFor(channel("K12B")), "K14 High") << "K12A has these rates too and comes after";
    EXPECT_EQ(moduleFor(channel("K12A")), "K12A High");
}

TEST_F(SequenceMemoryFileTest, OnlyThePointsOfTheLoopDetermineWhichStepsAreExact)
{
    sequence.point(1).rise = 0.00001;
    sequence.point(3).rise = 0.00001;
    sequence.point(2) = {.current = 1, .seconds = 1, .rise = 0.0064, .fall = 0.0064};
    sequence.loopStart = sequence.endPoint = 2;
    EXPECT_EQ(moduleFor(channel("K12B")), "K12B High");
}

TEST_F(SequenceMemoryFileTest, AModuleThatCanNotHoldACurrentIsNotTaken)
{
    only({.current = 32.767, .seconds = 1, .rise = 0.0008, .fall = 0.0008});
    EXPECT_EQ(moduleFor(channel("K12A")), "K12A High");
    sequence.point(120).current = 32.77;
    EXPECT_NE(moduleFor(channel("K12A")), "K12A High");
    only({.current = 120, .seconds = 1, .rise = 0.0064, .fall = 0.0064});
    EXPECT_EQ(moduleFor(channel("K14", LoadRange::Low)), "K12B High") << "no low range holds 120 A";
}

TEST_F(SequenceMemoryFileTest, RandomPointsComeBackAsTheyWereSent)
{
    std::mt19937 noise(3);
    const auto below = [&](unsigned bound) { return static_cast<double>(noise() % bound); };
    constexpr double slewSteps[] = {0.0064, 0.0008, 0.01, 0.0016};
    for (int round = 0; round < 50; ++round) {
        sequence = {};
        sequence.loopStart = 1 + static_cast<int>(noise() % 120);
        sequence.endPoint = sequence.loopStart + static_cast<int>(noise() % (121U - sequence.loopStart));
        const double slew = slewSteps[noise() % 4];
        for (SequenceMemory::Point& point : sequence.points)
            point = {below(3200) / 100, below(10'000) / std::pow(10, below(4)), below(200) * slew, below(200) * slew};
        const SeqFileRecord file = fileFor(channel("K12B"));
        for (int number = sequence.loopStart; number <= sequence.endPoint; ++number)
            ASSERT_EQ(shownOf(file, number), shownOf(sequence.point(number))) << number;
    }
}

} // namespace
} // namespace orb
