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

TEST_F(GraphTest, EveryChangeIsPainted)
{
    const std::vector<std::function<void()>> changes{
        [&] {
            graph.plot(1).ChartY(10, 0.02);
            graph.plot(1).ChartY(20, 0.02);
        },
        [&] {
            graph.plot(1).PlotY({20, 10}, "0:00", 0.02);
        },
        [&] { graph.plot(1).setLineColor(Qt::red); },
        [&] { graph.plot(1).setVisible(false); },
        [&] { graph.axis(1).setCaption("Time"); },
        [&] { graph.axis(1).setFormatString("h:nn:ss"); },
        [&] { graph.axis(1).setMajorDivisions(3); },
        [&] { graph.axis(1).setGridColor(Qt::yellow); },
        [&] { graph.axis(1).SetMinMax(0, 2); },
        [&] { graph.setFrameColor(Qt::white); },
        [&] { graph.setPlotAreaColor(Qt::blue); },
        [&] { graph.setElementVisible("Graph Frame", false); },
        [&] { graph.cursor(1).setVisible(true); },
        [&] { graph.cursor(1).setXPosition(0.5); },
        [&] { graph.cursor(1).setYPosition(15); },
        [&] { graph.cursor(1).setColor(Qt::red); },
        [&] { graph.axis(3).SetMinMax(0, 20); },
        [&] { graph.cursor(1).setPlot(graph.plot(2)); },
        [&] { graph.cursor(1).setVisible(false); },
    };
    for (std::size_t i = 0; i < changes.size(); ++i) {
        const QImage before = graph.grab().toImage();
        changes[i]();
        QElapsedTimer waited;
        waited.start();
        while (graph.grab().toImage() == before && waited.elapsed() < 5000)
            QCoreApplication::processEvents(QEventLoop::AllEvents);
        EXPECT_NE(graph.grab().toImage(), before) << "change " << i;
    }
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
