// SPDX-License-Identifier: GPL-3.0-or-later
// What the whole program does not do while nobody asks for it.
#include "program_test.h"

namespace orb {

namespace {
using testing::Contains;
using testing::IsEmpty;

constexpr qint64 aMinuteMs = 60'000;
constexpr int watchTicks = 120; ///< the bar that is on every page looks at the link every 500 ms
} // namespace

class SilenceTest : public ProgramTest {
protected:
    SilenceTest()
    {
        clock.allow(10'000'000);
        connect();
    }

    struct Minute {
        QStringList sent;
        int ticks = 0;
    };
    /// What goes out in a minute without a user, and how often a timer ticks.
    Minute aMinute()
    {
        journal.clear();
        const int before = clock.ticks;
        clock.advance(aMinuteMs);
        return {sent(), clock.ticks - before};
    }
};

TEST_F(SilenceTest, NothingGoesOutAndNoTimerOfAPageTicksWhileItIsNotShown)
{
    for (PictureButton* page : {&form().pageCommand, &form().pageWave, &form().pageSequence, &form().PageProgram}) {
        press(form().pageControl);
        clock.advance(1000);
        press(*page);

        const Minute minute = aMinute();

        EXPECT_THAT(minute.sent, IsEmpty()) << page->caption().toStdString();
        EXPECT_EQ(minute.ticks, watchTicks) << page->caption().toStdString();
    }
}

TEST_F(SilenceTest, TheControlPageAsksAgainWhenItIsShownAgain)
{
    press(form().pageCommand);
    EXPECT_THAT(aMinute().sent, IsEmpty());
    press(form().pageControl);
    EXPECT_THAT(aMinute().sent, Contains(":FETC:ALLV?;:FETC:ALLC?;:FETC:ALLP?;:LOAD:ALL?"));
}

TEST_F(SilenceTest, NothingGoesOutWhileTheWindowIsMinimized)
{
    press(form().pageControl);
    clock.advance(1000);
    form().showMinimized();
    EXPECT_THAT(aMinute().sent, IsEmpty());
}

TEST_F(SilenceTest, WithoutALinkNothingTicksOnAnyPageButTheControl)
{
    line.close();
    clock.advance(1000);
    ASSERT_FALSE(CORB().IsConnected());
    for (PictureButton* page : {&form().pageCommand, &form().pageWave, &form().pageSequence, &form().PageProgram}) {
        press(*page);
        clock.advance(1000);
        EXPECT_EQ(aMinute().ticks, 0) << page->caption().toStdString();
    }
}

} // namespace orb
