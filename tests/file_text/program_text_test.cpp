// SPDX-License-Identifier: GPL-3.0-or-later
#include "program_text.h"

#include "csv.h"
#include "random_record.h"

#include <gmock/gmock.h>

namespace orb {
namespace {

const std::string heading =
    "Program,Step,Memory,Run mode,On-Timer (s),Off-Time (s),P/F-Time (s),Short Time (s),Short channels\n";

std::string errorOf(const std::string& csv)
{
    try {
        readProgram(csv);
    } catch (const CsvError& error) {
        return error.what();
    }
    return "no error";
}

bool comesBack(const ProgFileRecord& record)
{
    return bytesOf(readProgram(csvOf(programTable(record)))) == bytesOf(record);
}

TEST(ProgramTextTest, AProgramIsShownInUnits)
{
    ProgFileRecord record{};
    record.ChainStart = 2;
    record.ChainNext[0] = 12;
    record.programs[0].Memory[1] = 119;
    record.programs[0].RunMode[1] = 2;
    record.programs[0].OnTimer[1] = 600;
    record.programs[0].OffTime[1] = 1;
    record.programs[0].PFTime[1] = 1199;
    record.programs[0].ShortTime[1] = 25;
    record.programs[0].ShortCH[1] = 0x85;
    const std::string csv = csvOf(programTable(record));
    EXPECT_THAT(csv, testing::StartsWith("Chain start,P03\nNext after P01,P12\nNext after P02,OFF\n"));
    EXPECT_THAT(csv, testing::HasSubstr("\nNext after P12,OFF\n" + heading +
                                        "1,1,1,SKIP,0,0,0,0,none\n"
                                        "1,2,120,MANUAL,60,0.1,119.9,2.5,CH1+CH3+CH8\n"));
    EXPECT_EQ(programTable(record).rows.size(), 120U);
    EXPECT_THAT(programTable(record).rows[119],
                testing::ElementsAre("12", "10", "1", "SKIP", "0", "0", "0", "0", "none"));
}

TEST(ProgramTextTest, RandomRecordsComeBackByteForByte)
{
    std::mt19937 noise(1);
    for (int i = 0; i < 100; ++i) {
        ASSERT_TRUE(comesBack(sensibleProgram(noise))) << i;
        ASSERT_TRUE(comesBack(randomRecord<ProgFileRecord>(noise))) << i;
    }
    EXPECT_TRUE(comesBack({}));
}

TEST(ProgramTextTest, RandomReservedBytesComeBackToo)
{
    std::mt19937 noise(2);
    for (int i = 0; i < 20; ++i) {
        ProgFileRecord record{};
        for (std::byte& byte : imageOf(record))
            byte = static_cast<std::byte>(noise() % 256);
        ASSERT_TRUE(comesBack(sealed(record))) << i;
    }
}

TEST(ProgramTextTest, TheUnusedEntriesOfTheChainAreReserved)
{
    ProgFileRecord record{};
    record.ChainNext[12] = 3;
    ASSERT_EQ(programTable(record).reserved.size(), 1U);
    EXPECT_THAT(programTable(record).reserved[0], testing::ElementsAre("Reserved bytes at 5570", "raw 03 00"));
}

TEST(ProgramTextTest, SensibleRecordsHaveNoRawNumber)
{
    std::mt19937 noise(3);
    for (int i = 0; i < 20; ++i)
        ASSERT_THAT(csvOf(programTable(sensibleProgram(noise))), testing::Not(testing::HasSubstr("raw")));
}

TEST(ProgramTextTest, NumbersThatTheInstrumentDoesNotHaveAreRaw)
{
    ProgFileRecord record{};
    record.ChainStart = 12;
    record.ChainNext[11] = 13;
    record.programs[0].Memory[0] = 120;
    record.programs[0].RunMode[0] = 3;
    record.programs[0].OnTimer[0] = 601;
    record.programs[0].OffTime[0] = -1;
    record.programs[0].PFTime[0] = 1200;
    record.programs[0].ShortTime[0] = 601;
    record.programs[0].ShortCH[0] = 256;
    const FileTable table = programTable(record);
    EXPECT_THAT(table.settings[0], testing::ElementsAre("Chain start", "raw 12"));
    EXPECT_THAT(table.settings[12], testing::ElementsAre("Next after P12", "raw 13"));
    EXPECT_THAT(table.rows[0], testing::ElementsAre("1", "1", "raw 120", "raw 3", "raw 601", "raw -1", "raw 1200",
                                                    "raw 601", "raw 256"));
}

TEST(ProgramTextTest, StepsStandInAnyOrderAndMissingOnesAreZeros)
{
    const ProgFileRecord record = readProgram(heading + "12,10,5,AUTO,1,0,0,0,none\n1,3,6,auto,0.14,0,0,0,ch1+ch2\n");
    EXPECT_EQ(record.programs[11].Memory[9], 4);
    EXPECT_EQ(record.programs[0].Memory[2], 5);
    EXPECT_EQ(record.programs[0].OnTimer[2], 1) << "rounded";
    EXPECT_EQ(record.programs[0].ShortCH[2], 3);
    EXPECT_EQ(record.programs[0].RunMode[0], 0);
    EXPECT_EQ(record.ChainStart, 0);
    EXPECT_EQ(record.CheckSum, computedCheckSum(record));
    EXPECT_EQ(bytesOf(readProgram(heading)), bytesOf(ProgFileRecord{}));
}

TEST(ProgramTextTest, AWrongCellIsAnErrorWithItsPlace)
{
    const std::pair<std::string, const char*> cases[] = {
        {"0,1,1,SKIP,0,0,0,0,none", "line 2, column 1: \"0\" is no whole number from 1 to 12"},
        {"1,11,1,SKIP,0,0,0,0,none", "line 2, column 2: \"11\" is no whole number from 1 to 10"},
        {"1,1,121,SKIP,0,0,0,0,none", "line 2, column 3: \"121\" is no whole number from 1 to 120"},
        {"1,1,1,STOP,0,0,0,0,none", "line 2, column 4: \"STOP\" is none of SKIP, AUTO, MANUAL"},
        {"1,1,1,SKIP,60.1,0,0,0,none", "line 2, column 5: \"60.1\" is no number from 0 to 60"},
        {"1,1,1,SKIP,0,Off,0,0,none", "line 2, column 6: \"Off\" is no number from 0 to 60"},
        {"1,1,1,SKIP,0,0,120,0,none", "line 2, column 7: \"120\" is no number from 0 to 119.9"},
        {"1,1,1,SKIP,0,0,0,-1,none", "line 2, column 8: \"-1\" is no number from 0 to 60"},
        {"1,1,1,SKIP,0,0,0,0,CH9", "line 2, column 9: \"CH9\" is no list of channels such as CH1+CH3, and not none"},
        {"1,1,1,SKIP,0,0,0,0", "line 2, column 9: \"\" is no list of channels such as CH1+CH3, and not none"},
        {"1,1,1,SKIP,0,0,0,0,none,x", "line 2, column 10: \"x\" is one cell too many"},
        {"1,2,1,SKIP,0,0,0,0,none\n1,2,1,SKIP,0,0,0,0,none", "line 3, column 2: the same step stands in line 2"},
        {"1,1,raw 256,SKIP,0,0,0,0,none", "line 2, column 3: raw 256 is no number from raw 0 to raw 255"},
    };
    for (const auto& [rows, error] : cases)
        EXPECT_EQ(errorOf(heading + rows + '\n'), error);
}

TEST(ProgramTextTest, AWrongSettingIsAnErrorWithItsPlace)
{
    EXPECT_EQ(errorOf("Chain start,OFF\n" + heading),
              "line 1, column 2: \"OFF\" is none of P01, P02, P03, P04, P05, P06, P07, P08, P09, P10, P11, P12");
    EXPECT_EQ(errorOf("Next after P13,P01\n" + heading), "line 1, column 1: no setting is called \"Next after P13\"");
    EXPECT_EQ(errorOf("Chain start,P01\n"), "line 2, column 1: there is no line that begins with Program");
    EXPECT_EQ(errorOf("Program,Step,Memory\n"), "line 1, column 4: this column is \"Run mode\", not \"\"");
    EXPECT_EQ(errorOf("Program,Step,Memory,Run mode,On-Timer (s),Off-Time (s),P/F-Time (s),Short Time (s)\n"),
              "line 1, column 9: this column is \"Short channels\", not \"\"");
}

} // namespace
} // namespace orb
