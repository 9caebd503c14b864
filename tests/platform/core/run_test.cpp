// SPDX-License-Identifier: GPL-3.0-or-later
#include "form_test.h"
#include "press.h"

using namespace orb;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class RunTest : public FormTest {};

TEST_F(RunTest, AFailureThatNothingCatchesIsReportedWithItsNumberAndDescription)
{
    run.enter([] { throw RuntimeFailure(failure::Overflow); });

    EXPECT_THAT(processExit.reports, ElementsAre("Run-time error '6':\n\nOverflow"));
    EXPECT_TRUE(run.isOver());
}

TEST_F(RunTest, AnyOtherExceptionIsReportedWithItsTextAndEndsTheRun)
{
    run.enter([] { throw std::out_of_range("no such element"); });

    EXPECT_THAT(processExit.reports, ElementsAre("Unexpected error:\n\nno such element"));
    EXPECT_TRUE(run.isOver());
}

TEST_F(RunTest, AnExceptionWithoutATextIsReportedToo)
{
    run.enter([] { throw 7; });

    EXPECT_THAT(processExit.reports, ElementsAre("Unexpected error"));
    EXPECT_TRUE(run.isOver());
}

TEST_F(RunTest, NoHandlerRunsOnceTheRunIsOver)
{
    bool ran = false;
    run.enter([] { throw RuntimeFailure(failure::TypeMismatch); });

    run.enter([&] { ran = true; });

    EXPECT_FALSE(ran);
}

TEST_F(RunTest, AFailureThreeHandlersDeepUnderANestedYieldEndsTheRunOnceAndRunsNothingAfterIt)
{
    std::vector<QString> ran;
    PictureButton first, second, third;
    put(first).onClick = [&] {
        ran.push_back("first");
        clock.at(1, [&] { press(second); });
        clock.at(5, [&] { ran.push_back("user input"); });
        clock.yield();
        ran.push_back("after the first yield");
    };
    put(second).onClick = [&] {
        ran.push_back("second");
        clock.at(2, [&] { press(third); });
        clock.yield();
        ran.push_back("after the second yield");
    };
    put(third).onClick = [&] {
        ran.push_back("third");
        throw RuntimeFailure(failure::SubscriptOutOfRange);
    };

    press(first);
    press(first);

    EXPECT_THAT(ran, ElementsAre("first", "second", "third"));
    EXPECT_THAT(processExit.reports, ElementsAre("Run-time error '9':\n\nSubscript out of range"));
    EXPECT_EQ(processExit.exits, 0);
}

TEST_F(RunTest, EndingOnTheSpotUnwindsTheHandlerWithoutAReport)
{
    bool wentOn = false;

    run.enter([&] {
        run.end();
        wentOn = true;
    });

    EXPECT_FALSE(wentOn);
    EXPECT_EQ(processExit.exits, 1);
    EXPECT_THAT(processExit.reports, IsEmpty());
}

TEST_F(RunTest, ALoopEndsAtTheYieldInWhichTheMainFormWasClosed)
{
    int rounds = 0;
    form.onUnload = [&] { run.endAtNextYield(); };
    clock.at(3, [&] { form.close(); });

    run.enter([&] {
        while (true) {
            ++rounds;
            clock.yield();
        }
    });

    EXPECT_EQ(rounds, 3);
    EXPECT_EQ(processExit.exits, 1);
}

TEST_F(RunTest, AnEventOfAControlThatStandsOnNoFormRunsNoPageLogic)
{
    bool ran = false;
    PictureButton stray;
    stray.onClick = [&] { ran = true; };

    stray.click();

    EXPECT_FALSE(ran);
}

TEST_F(RunTest, AHandlerThatYieldedIsNotBusyAndOneInADialogIs)
{
    std::vector<bool> busy;
    clock.at(1, [&] { busy.push_back(run.isBusy()); });

    run.enter([&] {
        busy.push_back(run.isBusy());
        clock.yield();
        busy.push_back(run.isBusy());
    });

    EXPECT_THAT(busy, ElementsAre(true, false, true));
    EXPECT_FALSE(run.isBusy());
}

} // namespace
