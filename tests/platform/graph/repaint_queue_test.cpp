// SPDX-License-Identifier: GPL-3.0-or-later
#include "graph_test.h"
#include "repaint_queue.h"

namespace orb {
namespace {

using testing::ElementsAre;

TEST(RepaintPace, GrantsTheFirstAtOnce)
{
    RepaintPace pace;
    EXPECT_EQ(pace.ask(1000), 0);
}

TEST(RepaintPace, TakesAllThatAskMeanwhileForOne)
{
    RepaintPace pace;
    EXPECT_EQ(pace.ask(1000), 0);
    EXPECT_EQ(pace.ask(1000), std::nullopt);
    pace.begin(1001);
    EXPECT_EQ(pace.ask(1002), 39);
    EXPECT_EQ(pace.ask(1003), std::nullopt);
}

TEST(RepaintPace, PaintsAtMost25TimesASecond)
{
    RepaintPace pace;
    int repaints = 0;
    std::optional<qint64> due;
    for (qint64 now = 0; now < 1000; ++now) {
        if (const auto wait = pace.ask(now))
            due = now + *wait;
        if (due == now) {
            pace.begin(now);
            ++repaints;
        }
    }
    EXPECT_EQ(repaints, 25);
}

TEST(RepaintPace, GrantsAtOnceAfterAPause)
{
    RepaintPace pace;
    pace.ask(0);
    pace.begin(0);
    EXPECT_EQ(pace.ask(40), 0);
}

class RepaintQueueTest : public testing::Test {
protected:
    void awaitOneMore()
    {
        const std::size_t before = painted.size();
        while (painted.size() == before)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }

    std::vector<bool> painted;
    RepaintQueue queue{[this](bool everything) { painted.push_back(everything); }};
};

TEST_F(RepaintQueueTest, PaintsFromTheEventQueueOnly)
{
    queue.setAsleep(false);
    queue.ask();
    EXPECT_TRUE(painted.empty());
    awaitOneMore();
    EXPECT_THAT(painted, ElementsAre(true));
}

TEST_F(RepaintQueueTest, PaintsEverythingIfOneOfTheWishesAsksForIt)
{
    queue.setAsleep(false);
    queue.askOverlay();
    queue.ask();
    queue.askOverlay();
    awaitOneMore();
    queue.askOverlay();
    awaitOneMore();
    EXPECT_THAT(painted, ElementsAre(true, false));
}

TEST_F(RepaintQueueTest, KeepsAWishUntilItWakes)
{
    queue.ask();
    QCoreApplication::processEvents();
    EXPECT_TRUE(painted.empty());
    queue.setAsleep(false);
    awaitOneMore();
    EXPECT_THAT(painted, ElementsAre(true));
}

TEST_F(RepaintQueueTest, HoldsBackAWishThatIsOnItsWayWhenItFallsAsleep)
{
    queue.setAsleep(false);
    queue.ask();
    queue.setAsleep(true);
    QCoreApplication::processEvents();
    EXPECT_TRUE(painted.empty());
    queue.setAsleep(false);
    awaitOneMore();
    EXPECT_THAT(painted, ElementsAre(true));
}

TEST_F(GraphTest, PaintsOnceForAThousandPointsAndShowsTheLast)
{
    const int before = graph.repaintCount();
    for (int i = 0; i < 1000; ++i)
        graph.plot(1).ChartY(i * 0.03, second);
    EXPECT_EQ(graph.repaintCount(), before);
    while (graph.repaintCount() == before)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    EXPECT_EQ(graph.repaintCount(), before + 1);
    const QImage shown = graph.grab().toImage();
    graph.repaintNow();
    EXPECT_EQ(graph.grab().toImage(), shown);
}

TEST_F(GraphTest, PaintsNothingWhileItIsHidden)
{
    graph.setVisible(false);
    const int before = graph.repaintCount();
    graph.plot(1).ChartY(1, second);
    QCoreApplication::processEvents();
    graph.repaintNow();
    EXPECT_EQ(graph.repaintCount(), before);
    graph.setVisible(true);
    while (graph.repaintCount() == before)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

} // namespace
} // namespace orb
