// SPDX-License-Identifier: GPL-3.0-or-later
#include "instrument_error.h"

#include <gtest/gtest.h>

#include <set>

namespace orb {
namespace {

TEST(InstrumentErrorTest, EveryNumberHasItsOwnText)
{
    std::set<std::string_view> texts;
    for (const ErrorNumber number : allErrors())
        EXPECT_TRUE(texts.insert(errorText(number)).second) << static_cast<int>(number);
    EXPECT_EQ(errorEntry(ErrorNumber::NoError), "0,\"No error\"");
}

} // namespace
} // namespace orb
