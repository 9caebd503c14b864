// SPDX-License-Identifier: GPL-3.0-or-later
#include "answer_text.h"
#include "bench.h"

namespace orb {
namespace {

using std::chrono::milliseconds;
using testing::ElementsAre;

class MeasurementTest : public BenchTest {
protected:
    /// An instrument whose readings are never twice the same by chance.
    void buildNoisy(std::uint64_t seed = 1)
    {
        SimulatorConfiguration configuration = defaultConfiguration();
        configuration.seed = seed;
        build(configuration);
    }

    std::string record(int samples)
    {
        std::string answers;
        for (int i = 0; i < samples; ++i) {
            answers += ask(":FETC:ALLC?") + ask(":FETC:ALLV?") + '\n';
            time.advance(std::chrono::seconds(1));
        }
        return answers;
    }
};

TEST_F(MeasurementTest, ListsAreDecimalsThatEndInAComma)
{
    tell(":CURR1 1.2345;:CURR2 0.5;:LOAD1 ON;:LOAD2 ON");
    EXPECT_EQ(ask(":FETC:ALLC?"), "1.2350,0.5000,0.0000,");
    EXPECT_EQ(ask(":FETCh:ALLVoltage?"), "11.3820,11.7500,12.0000,");
    EXPECT_EQ(ask("fetch:allpower?"), "14.0568,5.8750,0.0000,");
    EXPECT_EQ(ask(":MEAS:ALLC?"), "1.2350,0.5000,0.0000,");
}

TEST_F(MeasurementTest, ListsHaveAFieldForEachChannel)
{
    buildNoisy();
    const std::string fields = "([0-9]+\\.[0-9][0-9][0-9][0-9],){6}";
    EXPECT_THAT(ask(":FETC:ALLC?"), testing::ContainsRegex("^" + fields + "$"));
    EXPECT_THAT(ask(":FETC:ALLV?"), testing::ContainsRegex("^" + fields + "$"));
    build(quietConfiguration({"K11"}));
    EXPECT_EQ(ask(":FETC:ALLV?"), "12.0000,");
}

TEST_F(MeasurementTest, TheSameSeedGivesTheSameReadings)
{
    buildNoisy(5);
    const std::string first = record(20);
    time.set(milliseconds(0));
    buildNoisy(5);
    EXPECT_EQ(record(20), first);
}

TEST_F(MeasurementTest, AnotherSeedGivesOtherReadings)
{
    buildNoisy(5);
    const std::string first = record(3);
    time.set(milliseconds(0));
    buildNoisy(6);
    EXPECT_NE(record(3), first);
}

TEST_F(MeasurementTest, TheOriginOfTheClockMakesNoDifference)
{
    buildNoisy();
    const std::string first = record(5);
    time.set(std::chrono::hours(100'000));
    buildNoisy();
    EXPECT_EQ(record(5), first);
}

TEST_F(MeasurementTest, ReadingsOfChannelsAreNoisyEachInItsOwnWay)
{
    SimulatorConfiguration configuration = quietConfiguration({"K11", "K11"});
    for (ChannelConfiguration& each : configuration.channels)
        each.source.noise = 0.1;
    build(configuration);
    EXPECT_NE(ask(":MEAS1:VOLT?"), ask(":MEAS2:VOLT?"));
}

TEST_F(MeasurementTest, FetchingRepeatsAReadingUntilTheNextIsDue)
{
    buildNoisy();
    const std::string first = ask(":FETC:ALLV?");
    EXPECT_EQ(ask(":FETC:ALLV?"), first);
    time.advance(milliseconds(19));
    EXPECT_EQ(ask(":FETC:ALLV?"), first);
    time.advance(milliseconds(1));
    EXPECT_NE(ask(":FETC:ALLV?"), first);
}

TEST_F(MeasurementTest, MeasuringMakesANewReadingEachTime)
{
    buildNoisy();
    const std::string first = ask(":MEAS:ALLV?");
    const std::string second = ask(":MEAS:ALLV?");
    EXPECT_NE(second, first);
    EXPECT_EQ(ask(":FETC:ALLV?"), second);
}

TEST_F(MeasurementTest, AChangeMakesTheLastReadingObsolete)
{
    tell(":CURR 2");
    EXPECT_EQ(ask(":FETC:CURR?"), "0.0000");
    tell(":LOAD ON");
    EXPECT_EQ(ask(":FETC:CURR?"), "2.0000");
    tell(":CURR 3");
    EXPECT_EQ(ask(":FETC:CURR?"), "3.0000");
    tell("*RST");
    EXPECT_EQ(ask(":FETC:CURR?"), "0.0000");
    instrument->connectSource(1, quietSource(5, 1));
    EXPECT_EQ(ask(":FETC:VOLT?"), "5.0000");
}

TEST_F(MeasurementTest, AnInputThatIsOffReadsNoCurrentHoweverNoisyItsSource)
{
    SimulatorConfiguration configuration = quietConfiguration({"K11"});
    configuration.channels[0].source.noise = 5;
    build(configuration);
    for (int i = 0; i < 100; ++i)
        EXPECT_EQ(ask(":MEAS:CURR?"), "0.0000");
}

TEST_F(MeasurementTest, VoltageIsNeverNegative)
{
    SimulatorConfiguration configuration = quietConfiguration({"K11"});
    configuration.channels[0].source = {.openCircuitVoltage = 0, .noise = 1};
    build(configuration);
    for (int i = 0; i < 100; ++i)
        EXPECT_THAT(ask(":MEAS:VOLT?"), testing::Not(testing::StartsWith("-")));
}

TEST_F(MeasurementTest, ABatteryRunsDownAsTimeGoesOn)
{
    instrument->connectSource(1, {.openCircuitVoltage = 12, .seriesResistance = 0, .capacity = 1, .emptyVoltage = 10});
    tell(":CURR 1;:LOAD ON");
    time.advance(std::chrono::minutes(30));
    EXPECT_EQ(ask(":MEAS:VOLT?"), "11.0000");
}

TEST_F(MeasurementTest, AClockThatJumpsBackStandsStill)
{
    time.advance(std::chrono::seconds(10));
    ask(":FETC:ALLV?");
    time.set(std::chrono::nanoseconds::min());
    EXPECT_EQ(ask(":FETC:VOLT?"), "12.0000");
    time.set(std::chrono::nanoseconds::max());
    EXPECT_EQ(ask(":FETC:VOLT?"), "12.0000");
}

TEST_F(MeasurementTest, WritesDownWhatIsServed)
{
    const std::string currents = ask(":FETC:ALLC?");
    const std::string voltages = ask("fetch:allv? ; *OPC?");
    ask(":FETC:VOLT?");
    ask("*IDN?");
    EXPECT_THAT(instrument->served().answers(), ElementsAre(ServedAnswer{":FETC:ALLC?", currents},
                                                            ServedAnswer{"fetch:allv?", "12.0000,12.0000,12.0000,"}));
    EXPECT_EQ(instrument->served().total(), 2U);
}

TEST(ServedLog, KeepsTheNewestAndCountsAll)
{
    ServedLog log;
    for (std::size_t i = 0; i < ServedLog::capacity + 5; ++i)
        log.add("Q", std::to_string(i));
    EXPECT_EQ(log.answers().size(), ServedLog::capacity);
    EXPECT_EQ(log.answers().front().answer, "5");
    EXPECT_EQ(log.total(), ServedLog::capacity + 5);
}

TEST(DecimalText, HasAFixedCountOfDecimalsAndNoNegativeZero)
{
    EXPECT_EQ(decimalText(1.23456, 4), "1.2346");
    EXPECT_EQ(decimalText(-0.00001, 4), "0.0000");
    EXPECT_EQ(decimalText(-0.5, 4), "-0.5000");
    EXPECT_EQ(decimalText(12345678, 2), "12345678.00");
}

} // namespace
} // namespace orb
