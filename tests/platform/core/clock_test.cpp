// SPDX-License-Identifier: GPL-3.0-or-later
#include "form_test.h"
#include "real_clock.h"

#include <QEventLoop>

using namespace orb;
using testing::ElementsAre;

namespace {

class VirtualClockTest : public FormTest {};

TEST_F(VirtualClockTest, ASleepCostsNothingIsWrittenDownAndMovesTheTimeOn)
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
    bool heard = false;
    clock.at(50, [&] { heard = true; });

    run.enter([&] { clock.sleep(100); });
    EXPECT_FALSE(heard);

    run.enter([&] { clock.yield(); });
    EXPECT_TRUE(heard);
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

TEST_F(VirtualClockTest, ATimerWithoutAnIntervalNeverTicks)
{
    int ticks = 0;
    Timer timer(clock);
    timer.onTick = [&] { ++ticks; };
    timer.setEnabled(true);

    clock.advance(10'000);

    EXPECT_EQ(ticks, 0);
}

TEST_F(VirtualClockTest, ATimerMaySwitchItselfOffAndAnotherOnInItsTick)
{
    std::vector<QString> ticks;
    Timer first(clock), second(clock);
    first.onTick = [&] {
        ticks.push_back("first");
        first.setEnabled(false);
        second.setEnabled(true);
    };
    second.onTick = [&] { ticks.push_back("second"); };
    first.setInterval(10);
    second.setInterval(10);
    first.setEnabled(true);

    clock.advance(30);

    EXPECT_THAT(ticks, ElementsAre("first", "second", "second"));
}

TEST_F(VirtualClockTest, AnIntervalBelowZeroIsRefused)
{
    Timer timer(clock);
    EXPECT_THROW(timer.setInterval(-1), RuntimeFailure);
}

TEST_F(VirtualClockTest, AnHourOfVirtualTimeThatNoOneAllowedEndsTheRun)
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
        QTimer::singleShot(60, &dialog, &QEventLoop::quit); // as a message box that is answered
        dialog.exec();
        order.push_back("handler");
        while (timer.enabled())
            clock.yield();
    });

    EXPECT_THAT(order, ElementsAre("handler", "tick"));
}

TEST(RealClockTest, AYieldLetsTheEventQueueRunAndASleepDoesNot)
{
    RecordedExit processExit;
    orb::Run run(processExit);
    RealClock clock(run);
    QObject receiver;
    bool heard = false;
    QMetaObject::invokeMethod(
        &receiver, [&] { heard = true; }, Qt::QueuedConnection);

    run.enter([&] {
        clock.sleep(1);
        EXPECT_FALSE(heard);
        clock.yield();
        EXPECT_TRUE(heard);
    });
}

} // namespace
