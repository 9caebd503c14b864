// SPDX-License-Identifier: GPL-3.0-or-later
#include "csv_export.h"

#include "printing.h"

#include <gmock/gmock.h>

using namespace orb;

namespace {

TEST(CsvExportTest, TheQueryNamesTheColumnsAndNoOrder)
{
    EXPECT_EQ(csvSelect(1), "select SeqNo ,RecTime,PVal1,SVal1,timetick from DataMeasure");
    EXPECT_EQ(csvSelect(3), "select SeqNo ,RecTime,PVal1,SVal1,PVal2,SVal2,PVal3,SVal3,timetick from DataMeasure");
}

TEST(CsvExportTest, TheHeaderOfUnsavedRowsCallsTheFirstColumnOfAChannelAAndTheSecondV)
{
    EXPECT_EQ(unsavedCsvHeader(0), "No.,Time");
    EXPECT_EQ(unsavedCsvHeader(2), "No.,Time,Ch1A,Ch1V,Ch2A,Ch2V");
}

TEST(CsvExportTest, TheHeaderCallsTheFirstColumnOfAChannelVAndTheSecondA)
{
    EXPECT_EQ(csvHeader(0), "No.,Time");
    EXPECT_EQ(csvHeader(1), "No.,Time,Ch1V,Ch1A");
    EXPECT_EQ(csvHeader(2), "No.,Time,Ch1V,Ch1A,Ch2V,Ch2A");
}

} // namespace
