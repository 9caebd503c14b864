// SPDX-License-Identifier: GPL-3.0-or-later
#include "answer_text.h"
#include "instrument_fixture.h"

namespace orb {
namespace {

using std::chrono::milliseconds;
using testing::ElementsAre;

class MeasureCommandsTest : public InstrumentFixture {
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
            answers += query(":FETC:ALLC?") + query(":FETC:ALLV?") + '\n';
            time.advance(std::chrono::seconds(1));
        }
        return answers;
    }
};

TEST_F(MeasureCommandsTest, AListHasDecimalsAndEndsInAComma)
{
    send(":CURR1 1.2345;:CURR2 0.5;:LOAD1 ON;:LOAD2 ON");
    EXPECT_EQ(query(":FETC:ALLC?"), "1.2350,0.5000,0.0000,");
    EXPECT_EQ(query(":FETCh:ALLVoltage?"), "11.3820,11.7500,12.0000,");
    EXPECT_EQ(query("fetch:allpower?"), "14.0568,5.8750,0.0000,");
    EXPECT_EQ(query(":MEAS:ALLC?"), "1.2350,0.5000,0.0000,");
}

TEST_F(MeasureCommandsTest, AListHasAFieldForEachChannel)
{
    buildNoisy();
    const std::string fields = "([0-9]+\\.[0-9][0-9][0-9][0-9],){6}";
    EXPECT_THAT(query(":FETC:ALLC?"), testing::ContainsRegex("^" + fields + "$"));
    EXPECT_THAT(query(":FETC:ALLV?"), testing::ContainsRegex("^" + fields + "$"));
    build(quietConfiguration({"K11"}));
    EXPECT_EQ(query(":FETC:ALLV?"), "12.0000,");
}

TEST_F(MeasureCommandsTest, TheSameSeedGivesTheSameReadings)
{
    buildNoisy(5);
    const std::string first = record(20);
    time.set(milliseconds(0));
    buildNoisy(5);
    EXPECT_EQ(record(20), first);
}

TEST_F(MeasureCommandsTest, AnotherSeedGivesOtherReadings)
{
    buildNoisy(5);
    const std::string first = record(3);
    time.set(milliseconds(0));
    buildNoisy(6);
    EXPECT_NE(record(3), first);
}

TEST_F(MeasureCommandsTest, TheOriginOfTheClockMakesNoDifference)
{
    buildNoisy();
    const std::string first = record(5);
    time.set(std::chrono::hours(100'000));
    buildNoisy();
    EXPECT_EQ(record(5), first);
}

TEST_F(MeasureCommandsTest, EachChannelHasItsOwnNoise)
{
    SimulatorConfiguration configuration = quietConfiguration({"K11", "K11"});
    for (ChannelConfiguration& each : configuration.channels)
        each.source.noise = 0.1;
    build(configuration);
    EXPECT_NE(query(":MEAS1:VOLT?"), query(":MEAS2:VOLT?"));
}

TEST_F(MeasureCommandsTest, AFetchRepeatsAReadingUntilTheNextIsDue)
{
    buildNoisy();
    const std::string first = query(":FETC:ALLV?");
    EXPECT_EQ(query(":FETC:ALLV?"), first);
    time.advance(milliseconds(19));
    EXPECT_EQ(query(":FETC:ALLV?"), first);
    time.advance(milliseconds(1));
    EXPECT_NE(query(":FETC:ALLV?"), first);
}

TEST_F(MeasureCommandsTest, EachMeasurementIsANewReading)
{
    buildNoisy();
    const std::string first = query(":MEAS:ALLV?");
    const std::string second = query(":MEAS:ALLV?");
    EXPECT_NE(second, first);
    EXPECT_EQ(query(":FETC:ALLV?"), second);
}

TEST_F(MeasureCommandsTest, AChangeMakesTheLastReadingObsolete)
{
    send(":CURR 2");
    EXPECT_EQ(query(":FETC:CURR?"), "0.0000");
    send(":LOAD ON");
    EXPECT_EQ(query(":FETC:CURR?"), "2.0000");
    send(":CURR 3");
    EXPECT_EQ(query(":FETC:CURR?"), "3.0000");
    send("*RST");
    EXPECT_EQ(query(":FETC:CURR?"), "0.0000");
    instrument->connectSource(1, quietSource(5, 1));
    EXPECT_EQ(query(":FETC:VOLT?"), "5.0000");
}

TEST_F(MeasureCommandsTest, AnInputThatIsOffReadsNoCurrentFromANoisySource)
{
    SimulatorConfiguration configuration = quietConfiguration({"K11"});
    configuration.channels[0].source.noise = 5;
    build(configuration);
    for (int i = 0; i < 100; ++i)
        EXPECT_EQ(query(":MEAS:CURR?"), "0.0000");
}

TEST_F(MeasureCommandsTest, VoltageIsNeverNegative)
{
    SimulatorConfiguration configuration = quietConfiguration({"K11"});
    configuration.channels[0].source = {.openCircuitVoltage = 0, .noise = 1};
    build(configuration);
    for (int i = 0; i < 100; ++i)
        EXPECT_THAT(query(":MEAS:VOLT?"), testing::Not(testing::StartsWith("-")));
}

TEST_F(MeasureCommandsTest, ABatteryRunsDownAsTimeGoesOn)
{
    instrument->connectSource(1, {.openCircuitVoltage = 12, .seriesResistance = 0, .capacity = 1, .emptyVoltage = 10});
    send(":CURR 1;:LOAD ON");
    time.advance(std::chrono::minutes(30));
    EXPECT_EQ(query(":MEAS:VOLT?"), "11.0000");
}

TEST_F(MeasureCommandsTest, AClockThatJumpsBackStopsTheTime)
{
    time.advance(std::chrono::seconds(10));
    query(":FETC:ALLV?");
    time.set(std::chrono::nanoseconds::min());
    EXPECT_EQ(query(":FETC:VOLT?"), "12.0000");
    time.set(std::chrono::nanoseconds::max());
    EXPECT_EQ(query(":FETC:VOLT?"), "12.0000");
}

} // namespace
} // namespace orb
