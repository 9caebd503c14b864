// SPDX-License-Identifier: GPL-3.0-or-later
#include "file_table.h"

#include <gtest/gtest.h>

namespace orb {
namespace {

const FileTable table{.settings = {{"Name", "x"}, {"Longer name", "y,z"}},
                      .heading = {"Point", "A"},
                      .rows = {{"1", "0.25"}, {"2", "10"}},
                      .reserved = {{"Reserved bytes at 4", "raw 01"}}};

TEST(FileTableTest, CommaSeparatedValuesHoldAllRows)
{
    EXPECT_EQ(csvOf(table), "Name,x\nLonger name,\"y,z\"\nPoint,A\n1,0.25\n2,10\nReserved bytes at 4,raw 01\n");
}

TEST(FileTableTest, AlignedTextHasColumnsAndNoReservedBytes)
{
    EXPECT_EQ(alignedText(table), "Name         x\n"
                                  "Longer name  y,z\n"
                                  "\n"
                                  "Point     A\n"
                                  "    1  0.25\n"
                                  "    2    10\n");
}

} // namespace
} // namespace orb
