// SPDX-License-Identifier: GPL-3.0-or-later
#include "sequence_text.h"

#include "csv.h"
#include "random_record.h"

#include <gmock/gmock.h>

namespace orb {
namespace {

std::string errorOf(const std::string& csv)
{
    try {
        readSequence(csv);
    } catch (const CsvError& error) {
        return error.what();
    }
    return "no error";
}

/// Settings and heading of a sequence without points.
const std::string head =
    "Load module,K12B\nRange,High\nPoint,Duration (s),Current (A),Rise (A/us),Fall (A/us),Time base\n";

/// The error of a sequence whose only point, in line 4, has these cells.
std::string errorOfPoint(const std::string& cells)
{
    return errorOf(head + cells + '\n');
}

bool comesBack(const SeqFileRecord& record)
{
    return bytesOf(readSequence(csvOf(sequenceTable(record)))) == bytesOf(record);
}

TEST(SequenceTextTest, ASequenceIsShownInUnits)
{
    SeqFileRecord record{};
    record.LoadModuleType = 7;
    record.LoadRange = 1;
    record.SeqVersion1 = 'A';
    record.SeqVersion2 = 'B';
    record.SeqVersion3 = 3;
    record.MasterFirmware = {'2', '.', '1', '7'};
    record.LoopStart = 0;
    record.LoopEnd = 1;
    record.RepeatCount = 3;
    record.VRange = 1;
    record.OnEndOfSeq = -2;
    record.Points[0].CurrentRaw = 1500;
    record.Points[0].SlewUpRaw = 250;
    record.Points[0].SlewDownRaw = 100;
    record.Points[0].TimeBaseCode = 8;
    record.DurationCount[0] = 20;
    record.Points[1].TimeBaseCode = 11;
    EXPECT_EQ(csvOf(sequenceTable(record)), "Load module,K12B\n"
                                            "Mode,CC\n"
                                            "Range,High\n"
                                            "Sequence version,'AB3'\n"
                                            "Master firmware version,'2.17'\n"
                                            "Voltage range (V),80\n"
                                            "Loop start,1\n"
                                            "Loop end,2\n"
                                            "Repeat count,3\n"
                                            "On end of sequence,-2\n"
                                            "Point,Duration (s),Current (A),Rise (A/us),Fall (A/us),Time base\n"
                                            "1,0.02,15,1.6,0.64,1 ms\n"
                                            "2,0,0,0,0,1 s\n");
}

TEST(SequenceTextTest, PointsOfZerosAtTheEndAreLeftOutButNoneOfTheLoop)
{
    SeqFileRecord record{};
    record.LoopEnd = 4;
    EXPECT_EQ(sequenceTable(record).rows.size(), 5U);
    record.DurationCount[7] = 1;
    EXPECT_EQ(sequenceTable(record).rows.size(), 8U);
    record.LoopEnd = 120;
    record.DurationCount[7] = 0;
    EXPECT_EQ(sequenceTable(record).rows.size(), 0U) << "a loop that ends at no point";
    for (auto* const number : {&record.Points[2].CurrentRaw, &record.Points[2].SlewUpRaw, &record.Points[2].SlewDownRaw,
                               &record.Points[2].TimeBaseCode}) {
        *number = 1;
        EXPECT_EQ(sequenceTable(record).rows.size(), 3U);
        *number = 0;
    }
}

TEST(SequenceTextTest, RandomRecordsComeBackByteForByte)
{
    std::mt19937 noise(1);
    for (int i = 0; i < 200; ++i) {
        ASSERT_TRUE(comesBack(sensibleSequence(noise))) << i;
        ASSERT_TRUE(comesBack(randomRecord<SeqFileRecord>(noise))) << i;
    }
    EXPECT_TRUE(comesBack({}));
}

TEST(SequenceTextTest, RandomReservedBytesComeBackToo)
{
    std::mt19937 noise(2);
    for (int i = 0; i < 20; ++i) {
        SeqFileRecord record{};
        for (std::byte& byte : imageOf(record))
            byte = static_cast<std::byte>(noise() % 256);
        ASSERT_TRUE(comesBack(sealed(record))) << i;
    }
}

TEST(SequenceTextTest, SensibleRecordsHaveNoRawNumber)
{
    std::mt19937 noise(3);
    for (int i = 0; i < 50; ++i)
        ASSERT_THAT(csvOf(sequenceTable(sensibleSequence(noise))), testing::Not(testing::HasSubstr("raw")));
}

TEST(SequenceTextTest, EveryModuleModeAndRangeComesBack)
{
    std::mt19937 noise(4);
    for (int module = 0; module < 9; ++module) {
        for (int mode = 0; mode < 4; ++mode) {
            for (int range = 0; range < 3; ++range) {
                SeqFileRecord record = sensibleSequence(noise);
                record.LoadModuleType = static_cast<quint8>(module);
                record.LoadMode = static_cast<quint8>(mode);
                record.LoadRange = static_cast<quint8>(range);
                ASSERT_TRUE(comesBack(sealed(record))) << module << ' ' << mode << ' ' << range;
            }
        }
    }
}

TEST(SequenceTextTest, ALoopThatStartsAfterItsEndIsRaw)
{
    SeqFileRecord record{};
    record.LoopStart = 5;
    record.LoopEnd = 4;
    EXPECT_THAT(csvOf(sequenceTable(record)), testing::HasSubstr("Loop start,raw 5\nLoop end,5\n"));
    record.LoopStart = 4;
    EXPECT_THAT(csvOf(sequenceTable(record)), testing::HasSubstr("Loop start,5\nLoop end,5\n"));
}

TEST(SequenceTextTest, MissingSettingsHaveUsefulValues)
{
    const SeqFileRecord record = readSequence(head + "1,1,0,0,0\n2,1,0,0,0\n3,1,0,0,0\n");
    EXPECT_EQ(record.LoadModuleType, 7);
    EXPECT_EQ(record.LoadMode, 0);
    EXPECT_EQ(record.LoadRange, 1);
    EXPECT_EQ(record.LoopStart, 0);
    EXPECT_EQ(record.LoopEnd, 2);
    EXPECT_EQ(record.RepeatCount, 1);
    EXPECT_EQ(record.VRange, 1);
    EXPECT_EQ(record.OnEndOfSeq, 0);
    EXPECT_EQ(record.CheckSum, computedCheckSum(record));
    EXPECT_EQ(sequenceTable(record).settings[3][1], "'1.0'");
    EXPECT_EQ(sequenceTable(record).settings[4][1], "'1.00'");
}

TEST(SequenceTextTest, ModuleAndRangeMustBeGiven)
{
    const std::string table = "Point,Duration (s),Current (A),Rise (A/us),Fall (A/us)\n1,1,0,0,0\n";
    EXPECT_EQ(errorOf("Range,High\n" + table), "line 1, column 1: the setting \"Load module\" is missing");
    EXPECT_EQ(errorOf("Load module,K12B\n" + table), "line 1, column 1: the setting \"Range\" is missing");
}

TEST(SequenceTextTest, ATimeBaseThatIsMissingIsChosen)
{
    const SeqFileRecord record = readSequence(head + "1,7,0,0,0\n2,0.25,0,0,0,\n3,1E-06,0,0,0\n4,0.02,0,0,0,1 ms\n");
    EXPECT_EQ(record.Points[0].TimeBaseCode, 11);
    EXPECT_EQ(record.DurationCount[0], 7);
    EXPECT_EQ(record.Points[1].TimeBaseCode, 9);
    EXPECT_EQ(record.DurationCount[1], 25);
    EXPECT_EQ(record.Points[2].TimeBaseCode, 5);
    EXPECT_EQ(record.DurationCount[2], 1);
    EXPECT_EQ(record.Points[3].TimeBaseCode, 8);
    EXPECT_EQ(record.DurationCount[3], 20);
}

TEST(SequenceTextTest, AWrongCellOfAPointIsAnErrorWithItsPlace)
{
    const std::pair<const char*, const char*> cases[] = {
        {"2,1,0,0,0", "line 4, column 1: point 1 is expected, not \"2\""},
        {"1,-1,0,0,0", "line 4, column 2: \"-1\" is no number from 0 to 2147483647"},
        {"1,2147483648,0,0,0", "line 4, column 2: \"2147483648\" is no number from 0 to 2147483647"},
        {"1,3000,0,0,0,1 us", "line 4, column 2: \"3000\" is no number from 0 to 2147.483647"},
        {"1,1,327.68,0,0", "line 4, column 3: \"327.68\" is no number from 0 to 327.67"},
        {"1,1,1,5 A,0", "line 4, column 4: \"5 A\" is no number from 0 to 209.7088"},
        {"1,1,1,1", "line 4, column 5: \"\" is no number from 0 to 209.7088"},
        {"1,1,1,1,1,2 ms", "line 4, column 6: \"2 ms\" is none of 1 us, 10 us, 100 us, 1 ms, 10 ms, 100 ms, 1 s"},
        {"1,1,1,1,1,1 s,x", "line 4, column 7: \"x\" is one cell too many"},
        {"1,raw 5,1,1,1", "line 4, column 6: a raw duration needs a time base"},
        {"1,5,1,1,1,raw 4", "line 4, column 2: \"5\" is not raw: the time base is raw"},
        {"1,1,raw 32768,1,1", "line 4, column 3: raw 32768 is no number from raw -32768 to raw 32767"},
    };
    for (const auto& [cells, error] : cases)
        EXPECT_EQ(errorOfPoint(cells), error);
}

TEST(SequenceTextTest, AModuleWithoutKnownStepsTakesRawNumbersAlone)
{
    const std::string table = "\nPoint,Duration (s),Current (A),Rise (A/us),Fall (A/us)\n1,1,";
    EXPECT_EQ(
        errorOf("Load module,K15\nRange,Low" + table + "2,0,0\n"),
        "line 4, column 3: \"2\" is not raw: the steps of this module, mode and range are not known (K15, CC, Low)");
    EXPECT_EQ(
        errorOf("Load module,K12A\nRange,Low" + table + "2,0,0\n"),
        "line 4, column 3: \"2\" is not raw: the steps of this module, mode and range are not known (K12A, CC, Low)");
    EXPECT_EQ(
        errorOf("Load module,K12B\nRange,Low\nMode,CV" + table + "2,0,0\n"),
        "line 5, column 3: \"2\" is not raw: the steps of this module, mode and range are not known (K12B, CV, Low)");
    const SeqFileRecord record = readSequence("Load module,K15\nRange,Low" + table + "raw 2,raw 3,raw -4\n");
    EXPECT_EQ(record.Points[0].CurrentRaw, 2);
    EXPECT_EQ(record.Points[0].SlewDownRaw, -4);
}

TEST(SequenceTextTest, AWrongSettingIsAnErrorWithItsPlace)
{
    const std::string point = "1,1,0,0,0\n";
    const std::pair<std::string, const char*> cases[] = {
        {"Load modul,K12B\n", "line 1, column 1: no setting is called \"Load modul\""},
        {"Load module,K13\n", "line 2, column 1: \"Load module\" has been set in line 1"},
        {"Voltage range (V),48\n", "line 1, column 2: \"48\" is none of 16, 80"},
        {"Mode\n", "line 1, column 2: \"\" is none of CC, CR, CV"},
        {"Mode,CC,CR\n", "line 1, column 3: \"CR\" is one cell too many"},
        {"Mode,CC\nMODE,CV\n", "line 2, column 1: \"Mode\" has been set in line 1"},
        {"Loop end,2\n", "line 1, column 2: the loop ends at point 2, and the last point is 1"},
        {"Loop end,121\n", "line 1, column 2: \"121\" is no whole number from 1 to 120"},
        {"Loop end,1\nLoop start,2\n", "line 2, column 2: the loop starts after its end"},
        {"Repeat count,-1\n", "line 1, column 2: \"-1\" is no whole number from 0 to 32767"},
        {"On end of sequence,32768\n", "line 1, column 2: \"32768\" is no whole number from -32768 to 32767"},
        {"Sequence version,1.00\n", "line 1, column 2: \"1.00\" is not 3 characters"},
    };
    const std::string rest = head + point;
    for (const auto& [settings, error] : cases)
        EXPECT_EQ(errorOf(settings + rest), error);
    EXPECT_EQ(errorOf("Load module,K11\n" + head.substr(head.find('\n') + 1) + point),
              "line 1, column 2: \"K11\" is none of K11AB, K12A, K13, K14, K15, K16, K17, K12B");
}

TEST(SequenceTextTest, ASequenceHasOneToAHundredAndTwentyPoints)
{
    EXPECT_EQ(errorOf(head), "line 4, column 1: there is no point");
    EXPECT_EQ(errorOf("Load module,K12B\nRange,High\n"), "line 3, column 1: there is no line that begins with Point");
    EXPECT_EQ(errorOf(""), "line 1, column 1: there is no line that begins with Point");
    std::string rows;
    for (int point = 1; point <= 120; ++point)
        rows += std::to_string(point) + ",1,0,0,0\n";
    EXPECT_EQ(readSequence(head + rows).LoopEnd, 119);
    EXPECT_EQ(errorOf(head + rows + "121,1,0,0,0\n"), "line 124, column 1: a sequence has at most 120 points");
}

TEST(SequenceTextTest, AnotherHeadingIsAnErrorWithItsPlace)
{
    EXPECT_EQ(errorOf("Mode,CC\nPoint"), "line 2, column 2: this column is \"Duration (s)\", not \"\"");
    EXPECT_EQ(errorOf("Point,Current (A),Duration (s),Rise (A/us),Fall (A/us)\n"),
              "line 1, column 2: this column is \"Duration (s)\", not \"Current (A)\"");
    EXPECT_EQ(errorOf("Point,Duration (s),Current (A),Rise (A/us),Fall (A/us),Time base,Note\n"),
              "line 1, column 7: \"Note\" is one cell too many");
}

TEST(SequenceTextTest, ReservedBytesStandInRowsOfTheirOwn)
{
    SeqFileRecord record{};
    record.Points[0].reserved4[1] = std::byte{7};
    record.deviceBlock[0] = std::byte{255};
    const FileTable table = sequenceTable(record);
    ASSERT_EQ(table.reserved.size(), 2U);
    EXPECT_THAT(table.reserved[0], testing::ElementsAre("Reserved bytes at 16", "raw 00 07"));
    EXPECT_EQ(table.reserved[1][0], "Reserved bytes at 2912");
    EXPECT_EQ(table.reserved[1][1].size(), 4U + 32 * 3 - 1);
}

TEST(SequenceTextTest, ReservedBytesInAnotherPlaceAreAnError)
{
    const std::string point = "1,1,0,0,0\n";
    const std::pair<const char*, const char*> cases[] = {
        {"Reserved bytes at 14,raw 01", "line 5, column 1: not all of these 1 bytes are reserved"},
        {"Reserved bytes at 16,raw 01 02 03", "line 5, column 1: not all of these 3 bytes are reserved"},
        {"Reserved bytes at 4379,raw 01 02", "line 5, column 1: not all of these 2 bytes are reserved"},
        {"Reserved bytes at 4380,raw 01", "line 5, column 1: \"4380\" is no whole number from 0 to 4379"},
        {"Reserved bytes at x,raw 01", "line 5, column 1: \"x\" is no whole number from 0 to 4379"},
        {"Reserved bytes at 16,7", "line 5, column 2: \"7\" is not the word raw and bytes of two hexadecimal digits"},
        {"Reserved bytes at 16,raw 01,2", "line 5, column 3: \"2\" is one cell too many"},
    };
    for (const auto& [row, error] : cases)
        EXPECT_EQ(errorOf(head + point + row + '\n'), error);
    EXPECT_EQ(readSequence(head + point + "reserved bytes at 16,raw 01 02\n").Points[0].reserved4[1], std::byte{2});
}

TEST(SequenceTextTest, WhatASpreadsheetWritesIsRead)
{
    const SeqFileRecord record = readSequence("\xEF\xBB\xBFLoad module,K12B,,,,\r\n\r\n\"Range\",\"High\",,,,\r\n"
                                              "Point,Duration (s),Current (A),Rise (A/us),Fall (A/us),\r\n"
                                              "1,\"0.5\",1.50,1.6,1.6,\r\n,,,,,\r\n");
    EXPECT_EQ(record.Points[0].CurrentRaw, 150);
    EXPECT_EQ(record.DurationCount[0], 5);
}

} // namespace
} // namespace orb
