// SPDX-License-Identifier: GPL-3.0-or-later
#include "control_fixture.h"
#include "label.h"

using namespace orb;

namespace {

class LabelTest : public FormTest {};

TEST_F(LabelTest, AProgressBarRefusesAValueOutsideOfItsRange)
{
    ProgressBar bar(12);
    bar.setValue(12);
    EXPECT_EQ(failureOf([&] { bar.setValue(13); }), failure::InvalidPropertyValue);
    EXPECT_EQ(bar.value(), 12);
}

} // namespace
