// SPDX-License-Identifier: GPL-3.0-or-later
#include "form_test.h"
#include "real_clock.h"

#include <QEventLoop>
#include <QTimer>

using namespace orb;
using testing::ElementsAre;

namespace {

/// The contract of timers, sleeps and yields, which the program's clock and the tests' clock keep alike.
template <typename Clock> class ClockTest : public testing::Test {
protected:
    /// Yields inside a handler until then, for five seconds at most.
    void yieldUntil(const std::function<bool()>& isDone)
    {
        const qint64 limit = clock.elapsed() + 5000;
        run.enter([&] {
            while (!isDone() && clock.elapsed() < limit)
                clock.yield();
        });
    }

    /// Until a timer of this interval has ticked.
    void yieldFor(int interval)
    {
        bool isOver = false;
        Timer other(clock);
        other.onTick = [&] { isOver = true; };
        other.setInterval(interval);
        other.setEnabled(true);
        yieldUntil([&] { return isOver; });
        EXPECT_TRUE(isOver);
    }

    RecordedExit processExit;
    orb::Run run{processExit};
    Clock clock{run};
    int ticks = 0;
    Timer timer{clock};
};

using Clocks = testing::Types<RealClock, VirtualClock>;
TYPED_TEST_SUITE(ClockTest, Clocks);

TYPED_TEST(ClockTest, ATimerTicksAgainAndAgainUntilItIsDisabled)
{
    this->timer.onTick = [&] { ++this->ticks; };
    this->timer.setInterval(1);
    this->timer.setEnabled(true);

    this->yieldUntil([&] { return this->ticks >= 3; });
    this->timer.setEnabled(false);
    const int before = this->ticks;
    this->yieldFor(5);

    EXPECT_GE(before, 3);
    EXPECT_EQ(this->ticks, before);
}

TYPED_TEST(ClockTest, ATimerIsCreatedDisabledAndNeverTicksWithoutAnInterval)
{
    EXPECT_FALSE(this->timer.enabled());
    EXPECT_EQ(this->timer.interval(), 0);
    this->timer.onTick = [&] { ++this->ticks; };
    this->timer.setEnabled(true);

    this->yieldFor(5);

    EXPECT_EQ(this->ticks, 0);
}

TYPED_TEST(ClockTest, AnIntervalBelowZeroIsRefused)
{
    this->timer.setInterval(7);
    try {
        this->timer.setInterval(-1);
        FAIL();
    } catch (const RuntimeFailure& failure) {
        EXPECT_EQ(failure.number(), failure::InvalidPropertyValue);
    }
    EXPECT_EQ(this->timer.interval(), 7);
}

TYPED_TEST(ClockTest, ATimerMaySwitchItselfOffAndAnotherOnInItsTick)
{
    std::vector<QString> order;
    Timer second(this->clock);
    this->timer.onTick = [&] {
        order.push_back("first");
        this->timer.setEnabled(false);
        second.setEnabled(true);
    };
    second.onTick = [&] { order.push_back("second"); };
    this->timer.setInterval(1);
    second.setInterval(1);
    this->timer.setEnabled(true);

    this->yieldUntil([&] { return order.size() >= 3; });

    order.resize(3);
    EXPECT_THAT(order, ElementsAre("first", "second", "second"));
}

TYPED_TEST(ClockTest, ADestroyedTimerDoesNotTick)
{
    {
        Timer shortLived(this->clock);
        shortLived.onTick = [&] { ++this->ticks; };
        shortLived.setInterval(1);
        shortLived.setEnabled(true);
    }
    this->yieldFor(5);

    EXPECT_EQ(this->ticks, 0);
}

TYPED_TEST(ClockTest, NoTickComesInASleepAndThoseMissedComeAsOneInTheNextYield)
{
    this->timer.onTick = [&] {
        ++this->ticks;
        this->timer.setInterval(60'000); // so that no further one falls due
    };
    this->timer.setInterval(1);
    this->timer.setEnabled(true);

    this->run.enter([&] {
        this->clock.sleep(5);
        EXPECT_EQ(this->ticks, 0);
        this->clock.yield();
        EXPECT_EQ(this->ticks, 1);
        this->clock.yield();
    });

    EXPECT_EQ(this->ticks, 1);
}

TYPED_TEST(ClockTest, ASleepLastsAsLongAsItSaysAndNoneOfZeroOrLess)
{
    const qint64 start = this->clock.elapsed();
    this->clock.sleep(0);
    this->clock.sleep(-5);
    this->clock.sleep(2);
    EXPECT_GE(this->clock.elapsed() - start, 2);
}

TYPED_TEST(ClockTest, ATickRunsInsideTheYieldOnTopOfTheHandler)
{
    std::vector<QString> order;
    this->timer.onTick = [&] {
        order.push_back("tick");
        this->timer.setEnabled(false);
    };
    this->timer.setInterval(1);
    this->timer.setEnabled(true);

    this->run.enter([&] {
        this->clock.sleep(3);
        order.push_back("before the yield");
        this->clock.yield();
        order.push_back("after the yield");
    });

    EXPECT_THAT(order, ElementsAre("before the yield", "tick", "after the yield"));
}

TYPED_TEST(ClockTest, AFailureInATickEndsTheRunAndTheHandlerWhoseYieldItRanIn)
{
    bool wentOn = false;
    this->timer.onTick = [] { throw RuntimeFailure(failure::Overflow); };
    this->timer.setInterval(1);
    this->timer.setEnabled(true);

    this->run.enter([&] {
        this->clock.sleep(3);
        this->clock.yield();
        wentOn = true;
    });

    EXPECT_FALSE(wentOn);
    EXPECT_THAT(this->processExit.reports, ElementsAre("Run-time error '6':\n\nOverflow"));
}

TYPED_TEST(ClockTest, AYieldAfterTheMainFormWasClosedEndsTheRunWithoutATick)
{
    bool wentOn = false;
    this->timer.onTick = [&] { ++this->ticks; };
    this->timer.setInterval(1);
    this->timer.setEnabled(true);

    this->run.enter([&] {
        this->clock.sleep(3);
        this->run.endAtNextYield();
        this->clock.yield();
        wentOn = true;
    });

    EXPECT_FALSE(wentOn);
    EXPECT_EQ(this->ticks, 0);
    EXPECT_EQ(this->processExit.exits, 1);
}

TYPED_TEST(ClockTest, AYieldInWhichTheMainFormIsClosedDoesNotReturn)
{
    bool wentOn = false;
    this->timer.onTick = [&] { this->run.endAtNextYield(); };
    this->timer.setInterval(1);
    this->timer.setEnabled(true);

    this->run.enter([&] {
        this->clock.sleep(3);
        this->clock.yield();
        wentOn = true;
    });

    EXPECT_FALSE(wentOn);
    EXPECT_EQ(this->processExit.exits, 1);
}

class VirtualClockTest : public FormTest {};

TEST_F(VirtualClockTest, ASleepIsRecordedAndMovesTheVirtualTimeOn)
{
    run.enter([&] {
        clock.sleep(100);
        clock.sleep(200);
    });

    EXPECT_THAT(clock.sleeps, ElementsAre(100, 200));
    EXPECT_EQ(clock.now(), QDateTime({2024, 1, 31}, {10, 15, 0, 300}));
}

TEST_F(VirtualClockTest, NoEventRunsInASleep)
{
    bool ran = false;
    clock.at(50, [&] { ran = true; });

    run.enter([&] { clock.sleep(100); });
    EXPECT_FALSE(ran);

    run.enter([&] { clock.yield(); });
    EXPECT_TRUE(ran);
}

TEST_F(VirtualClockTest, ATimerTicksAtEachIntervalWhileItIsEnabled)
{
    std::vector<qint64> ticks;
    Timer timer(clock);
    timer.onTick = [&] { ticks.push_back(clock.elapsed()); };
    timer.setInterval(200);
    clock.advance(300);
    timer.setEnabled(true);

    clock.advance(650);
    timer.setEnabled(false);
    clock.advance(1000);

    EXPECT_THAT(ticks, ElementsAre(500, 700, 900));
}

TEST_F(VirtualClockTest, TicksMissedDuringASleepComeAsOneAtTheNextYield)
{
    int ticks = 0;
    Timer timer(clock);
    timer.onTick = [&] { ++ticks; };
    timer.setInterval(100);
    timer.setEnabled(true);

    run.enter([&] {
        clock.sleep(1000);
        EXPECT_EQ(ticks, 0);
        clock.yield();
    });

    EXPECT_EQ(ticks, 1);
}

TEST_F(VirtualClockTest, AnHourOfVirtualTimeThatTheTestDidNotAllowEndsTheRun)
{
    int overruns = 0;
    clock.onOverrun = [&] { ++overruns; };

    run.enter([&] {
        while (true)
            clock.sleep(1000);
    });

    EXPECT_EQ(overruns, 1);
    EXPECT_TRUE(run.isOver());
}

TEST_F(VirtualClockTest, SwitchingOnWhatIsOnChangesNothingAndAnIntervalBeginsAnew)
{
    std::vector<qint64> ticks;
    Timer timer(clock);
    timer.onTick = [&] { ticks.push_back(clock.elapsed()); };
    timer.setInterval(100);
    timer.setEnabled(true);

    clock.advance(60);
    timer.setEnabled(true);
    clock.advance(50);
    timer.setInterval(100);
    clock.advance(100);

    EXPECT_THAT(ticks, ElementsAre(100, 210));
}

TEST_F(VirtualClockTest, SecondsSinceMidnightAreOfSinglePrecision)
{
    clock.setNow(QDateTime({2024, 1, 31}, {23, 59, 59, 999}));
    EXPECT_EQ(clock.secondsSinceMidnight(), 86399.999F);
    clock.setNow(QDateTime({2024, 2, 1}, {0, 0, 1, 500}));
    EXPECT_EQ(clock.secondsSinceMidnight(), 1.5F);
}

TEST(RealClockTest, ATickWaitsForTheEndOfAHandlerThatDoesNotYield)
{
    RecordedExit processExit;
    orb::Run run(processExit);
    RealClock clock(run);
    Timer timer(clock);
    QEventLoop dialog;
    std::vector<QString> order;
    timer.onTick = [&] {
        order.push_back("tick");
        timer.setEnabled(false);
    };
    timer.setInterval(1);
    timer.setEnabled(true);

    run.enter([&] {
        QTimer::singleShot(20, &dialog, &QEventLoop::quit); // as a message box that is answered
        dialog.exec();
        order.push_back("handler");
        while (timer.enabled())
            clock.yield();
    });

    EXPECT_THAT(order, ElementsAre("handler", "tick"));
}

} // namespace
