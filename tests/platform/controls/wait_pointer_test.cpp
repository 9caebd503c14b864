// SPDX-License-Identifier: GPL-3.0-or-later
#include "wait_pointer.h"

#include <gtest/gtest.h>

using namespace orb;

namespace {

TEST(WaitPointerTest, TheWaitPointerIsShownUntilItsEnd)
{
    {
        const WaitPointer outer;
        {
            WaitPointer pointer;
            ASSERT_TRUE(QApplication::overrideCursor());
            EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
            pointer.end();
        }
        EXPECT_TRUE(QApplication::overrideCursor()) << "the pointer is restored once";
    }
    EXPECT_FALSE(QApplication::overrideCursor());
}

} // namespace
