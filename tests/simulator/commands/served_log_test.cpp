// SPDX-License-Identifier: GPL-3.0-or-later
#include "instrument_fixture.h"

namespace orb {
namespace {

using testing::ElementsAre;

class ServedLogTest : public InstrumentFixture {};

TEST_F(ServedLogTest, ServedAnswersAreLogged)
{
    const std::string currents = query(":FETC:ALLC?");
    const std::string voltages = query("fetch:allv? ; *OPC?");
    query(":FETC:VOLT?");
    query("*IDN?");
    EXPECT_THAT(instrument->served().answers(), ElementsAre(ServedAnswer{":FETC:ALLC?", currents},
                                                            ServedAnswer{"fetch:allv?", "12.0000,12.0000,12.0000,"}));
    EXPECT_EQ(instrument->served().total(), 2U);
}

TEST_F(ServedLogTest, TheLogKeepsTheNewestAnswersAndCountsAll)
{
    ServedLog log;
    for (std::size_t i = 0; i < ServedLog::capacity + 5; ++i)
        log.add("Q", std::to_string(i));
    EXPECT_EQ(log.answers().size(), ServedLog::capacity);
    EXPECT_EQ(log.answers().front().answer, "5");
    EXPECT_EQ(log.total(), ServedLog::capacity + 5);
}

} // namespace
} // namespace orb
