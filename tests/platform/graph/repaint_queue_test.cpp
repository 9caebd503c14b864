// SPDX-License-Identifier: GPL-3.0-or-later
#include "graph_test.h"
#include "repaint_queue.h"

namespace orb {
namespace {

using testing::ElementsAre;

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

TEST_F(RepaintQueueTest, PaintingHappensFromTheEventQueueOnly)
{
    queue.setAsleep(false);
    queue.ask();
    EXPECT_TRUE(painted.empty());
    awaitOneMore();
    EXPECT_THAT(painted, ElementsAre(true));
}

TEST_F(RepaintQueueTest, EverythingIsPaintedIfOneRequestAsksForIt)
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

TEST_F(RepaintQueueTest, ARequestIsKeptUntilTheQueueWakes)
{
    queue.ask();
    QCoreApplication::processEvents();
    EXPECT_TRUE(painted.empty());
    queue.setAsleep(false);
    awaitOneMore();
    EXPECT_THAT(painted, ElementsAre(true));
}

TEST_F(RepaintQueueTest, ARequestUnderWayIsHeldBackWhenTheQueueFallsAsleep)
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

TEST_F(RepaintQueueTest, TwoRepaintsAreNeverCloserThanAnInterval)
{
    EXPECT_EQ(1000 / RepaintQueue::interval, 25);
    EXPECT_EQ(RepaintQueue::delay(0), 40);
    EXPECT_EQ(RepaintQueue::delay(39), 1);
    EXPECT_EQ(RepaintQueue::delay(40), 0);
    EXPECT_EQ(RepaintQueue::delay(1000), 0);
    queue.setAsleep(false);
    queue.ask();
    awaitOneMore();
    QElapsedTimer timer;
    timer.start();
    queue.ask();
    queue.askOverlay();
    awaitOneMore();
    EXPECT_GE(timer.elapsed(), RepaintQueue::interval - 2);
    EXPECT_THAT(painted, ElementsAre(true, true));
}

TEST_F(RepaintQueueTest, PaintingAtOnceAnswersTheRequestUnderWay)
{
    queue.setAsleep(false);
    queue.askOverlay();
    queue.paintNow();
    EXPECT_THAT(painted, ElementsAre(true));
    queue.setAsleep(true);
    queue.setAsleep(false);
    QCoreApplication::processEvents();
    EXPECT_THAT(painted, ElementsAre(true));
}

TEST_F(RepaintQueueTest, NothingIsPaintedAtOnceWhileAsleep)
{
    queue.paintNow();
    EXPECT_TRUE(painted.empty());
}

TEST_F(GraphTest, AThousandPointsArePaintedOnceAndTheLastIsShown)
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

TEST_F(GraphTest, NothingIsPaintedWhileTheGraphIsHidden)
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
