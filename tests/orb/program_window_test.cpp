// SPDX-License-Identifier: GPL-3.0-or-later
#include "program_test.h"

namespace orb {

using ProgramWindowTest = ProgramTest;

TEST_F(ProgramWindowTest, TheWindowHasTheProgramsIconInTheSizesOfADesktop)
{
    const QList<QSize> sizes = form().windowIcon().availableSizes();
    for (const int size : {16, 32, 48, 256})
        EXPECT_TRUE(sizes.contains(QSize(size, size))) << size;
}

} // namespace orb
