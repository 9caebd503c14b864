// SPDX-License-Identifier: GPL-3.0-or-later
#include "axis_drawing.h"
#include "contrast.h"
#include "graph_test.h"

#include <QPainter>

#include <cmath>

namespace orb {
namespace {

using testing::ElementsAre;
using testing::Ge;

/// One choice of the length of the time axis.
struct TimeLength {
    double first;
    const char* format;
    int divisions;
    const char* minimum;
    const char* maximum;
    const char* labels;
};

const TimeLength timeLengths[] = {
    {60, "h:n:ss", 5, "0:0:0", "0:5:00", "0:0:00|0:1:00|0:2:00|0:3:00|0:4:00|0:5:00"},
    {120, "h:n:ss", 5, "0:0:0", "0:10:00", "0:0:00|0:2:00|0:4:00|0:6:00|0:8:00|0:10:00"},
    {240, "h:n:ss", 5, "0:0", "0:20:00", "0:0:00|0:4:00|0:8:00|0:12:00|0:16:00|0:20:00"},
    {360, "h:n:ss", 5, "0:00", "0:30:00", "0:0:00|0:6:00|0:12:00|0:18:00|0:24:00|0:30:00"},
    {720, "h:n:ss", 6, "0:0:0", "1:0:00", "0:0:00|0:10:00|0:20:00|0:30:00|0:40:00|0:50:00|1:0:00"},
    {60, "h:nn", 6, "0:00", "1:00", "0:00|0:10|0:20|0:30|0:40|0:50|1:00"},
    {180, "h:nn", 6, "0:00", "3:00", "0:00|0:30|1:00|1:30|2:00|2:30|3:00"},
    {360, "h:nn", 6, "0:0", "6:00", "0:00|1:00|2:00|3:00|4:00|5:00|6:00"},
    {720, "h:nn", 6, "0:00", "12:00", "0:00|2:00|4:00|6:00|8:00|10:00|12:00"},
    {1440, "hh:nn", 6, "0:00", "23:59", "00:00|03:59|07:59|11:59|15:59|19:59|23:59"},
    {2880, "dd h:nn", 6, nullptr, nullptr, "00 0:00|480 0:00|960 0:00|1440 0:00|1920 0:00|2400 0:00|2880 0:00"},
    {4320, "dd h:n", 6, nullptr, nullptr, "00 0:0|720 0:0|1440 0:0|2160 0:0|2880 0:0|3600 0:0|4320 0:0"},
    {5760, "dd h:n", 6, nullptr, nullptr, "00 0:0|960 0:0|1920 0:0|2880 0:0|3840 0:0|4800 0:0|5760 0:0"},
};

void choose(GraphAxis& axis, const TimeLength& length)
{
    axis.SetMinMax(0, length.first);
    axis.setFormatString(length.format);
    axis.setMajorDivisions(length.divisions);
    if (length.minimum)
        axis.SetMinMax(QString(length.minimum), QString(length.maximum));
}

/// Whether the labels of the time axis, drawn as they are at its ticks, are apart from each other and inside of the graph.
void expectLabelsApart(const Graph& graph)
{
    const QFontMetricsF metrics(graph.font());
    const QStringList labels = graph.axis(1).drawing().labels();
    double last = 0;
    for (qsizetype i = 0; i < labels.size(); ++i) {
        if (labels[i].isEmpty())
            continue;
        const double middle = graph.plotArea().left() + graph.plotArea().width() * static_cast<double>(i) /
                                                            static_cast<double>(labels.size() - 1);
        const double half = metrics.horizontalAdvance(labels[i]) / 2;
        EXPECT_GT(middle - half, last) << labels[i].toStdString();
        last = middle + half;
    }
    EXPECT_LT(last, graph.width());
}

TEST_F(GraphTest, EveryTimeLengthIsLabeledAtItsDivisions)
{
    for (const TimeLength& length : timeLengths) {
        choose(graph.axis(1), length);
        graph.repaintNow();
        EXPECT_EQ(graph.axis(1).drawing().labels().join(u'|').toStdString(), length.labels);
        expectLabelsApart(graph);
    }
}

TEST_F(GraphTest, LabelsThatWouldTouchInANarrowGraphAreLeftOut)
{
    graph.resize(330, 200);
    for (const TimeLength& length : timeLengths) {
        choose(graph.axis(1), length);
        graph.repaintNow();
        expectLabelsApart(graph);
    }
    EXPECT_THAT(graph.axis(1).drawing().labels(),
                ElementsAre("00 0:0", "", "1920 0:0", "", "3840 0:0", "", "5760 0:0"));
}

TEST_F(GraphTest, LabelsDifferHoweverFarTheOperatorZooms)
{
    choose(graph.axis(1), timeLengths[9]);
    double span = graph.axis(1).maximum();
    while (graph.axis(1).drawing().view(0.5, 0.5 + span)) {
        graph.repaintNow();
        QStringList labels = graph.axis(1).drawing().labels();
        labels.removeAll(QString());
        ASSERT_THAT(labels.size(), Ge(2)) << span;
        ASSERT_EQ(labels.removeDuplicates(), 0) << span;
        span /= 3;
    }
    EXPECT_LT(span, 0.001 * second);
}

TEST_F(GraphTest, LabelsThatWouldTouchInAFlatGraphAreLeftOut)
{
    graph.resize(740, 120);
    graph.repaintNow();
    graph.axis(2).setMajorDivisions(30);
    graph.repaintNow();
    QStringList labels = graph.axis(2).drawing().labels();
    EXPECT_EQ(labels.size(), 31);
    labels.removeAll(QString());
    EXPECT_LT(static_cast<double>(labels.size()) * QFontMetricsF(graph.font()).height(), 120);
}

TEST_F(GraphTest, MinorTicksDivideAMajorStepIntoFive)
{
    QVector<double> ticks;
    QVector<double> minorTicks;
    graph.axis(2).drawing().generate(QCPRange(0, 12), QLocale::c(), u'g', 6, ticks, &minorTicks, nullptr);
    EXPECT_THAT(ticks, ElementsAre(0, 5, 10));
    EXPECT_THAT(minorTicks, ElementsAre(1, 2, 3, 4, 6, 7, 8, 9, 11, 12));
}

/// How many pixels of the plot area are of that color, or near to it.
int pixelsOf(const QImage& image, const QColor& color)
{
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor here = image.pixelColor(x, y);
            const int distance = std::abs(here.red() - color.red()) + std::abs(here.green() - color.green()) +
                                 std::abs(here.blue() - color.blue());
            count += distance < 12 ? 1 : 0;
        }
    }
    return count;
}

TEST_F(GraphTest, ThePictureHasTwiceTheResolutionWhetherOrNotTheGraphShows)
{
    graph.plot(1).PlotY(std::vector<double>(3600, 15.0), "0:00", second);
    graph.repaintNow();
    const QImage shown = graph.ControlImage();
    EXPECT_EQ(shown.size(), QSize(1480, 840));
    EXPECT_EQ(shown.devicePixelRatio(), 2);
    EXPECT_GT(pixelsOf(shown, QColor(0, 255, 0)), 2000);
    graph.setVisible(false);
    EXPECT_EQ(graph.ControlImage(), shown);
}

TEST(GraphDrawingTest, AGraphThatNeverWasOnTheScreenGivesItsPicture)
{
    Graph graph(twoChannels());
    graph.resize(0, 0);
    graph.plot(1).PlotY(std::vector<double>(3600, 15.0), "0:00", second);
    const QImage image = graph.ControlImage();
    EXPECT_EQ(image.size(), QSize(1440, 840));
    EXPECT_GT(pixelsOf(image, QColor(0, 255, 0)), 2000);
}

TEST(GraphDrawingTest, TheLabelsFitThePictureTheFirstTimeAlready)
{
    Graph graph(twoChannels());
    graph.resize(330, 200);
    choose(graph.axis(1), timeLengths[10]);
    const QImage first = graph.ControlImage();
    EXPECT_EQ(graph.ControlImage(), first);
}

TEST(GraphDrawingTest, TheLastLabelHasRoomWhereNoAxisStandsAtTheRight)
{
    GraphPlan plan = twoChannels();
    plan.axes.pop_back();
    plan.plots.clear();
    Graph graph(plan);
    graph.resize(740, 420);
    choose(graph.axis(1), timeLengths[12]);
    graph.ControlImage();
    expectLabelsApart(graph);
}

TEST_F(GraphTest, OnlyVisiblePlotsAreDrawn)
{
    graph.plot(1).PlotY({20, 20}, "0:00", 1);
    graph.plot(4).PlotY({10, 10}, "0:00", 1);
    EXPECT_GT(pixelsOf(graph.ControlImage(), QColor(0, 0, 255)), 500);
    graph.plot(4).setVisible(false);
    EXPECT_EQ(pixelsOf(graph.ControlImage(), QColor(0, 0, 255)), 0);
    EXPECT_GT(pixelsOf(graph.ControlImage(), QColor(0, 255, 0)), 500);
}

TEST_F(GraphTest, OnlyALineThatNeedsItHasAnEdge)
{
    const auto edgePixels = [&](const std::vector<double>& values) {
        graph.plot(1).PlotY(values, "0:00", 1.0 / 24 / static_cast<double>(values.size()));
        graph.plot(3).PlotY(values, "0:00", 1.0 / 24 / static_cast<double>(values.size()));
        graph.plot(1).setVisible(false);
        graph.plot(3).setVisible(true);
        const int blue = pixelsOf(graph.ControlImage(), edgeFor(QColor(0, 0, 255), graph.plotAreaColor()));
        graph.plot(1).setVisible(true);
        graph.plot(3).setVisible(false);
        const int green = pixelsOf(graph.ControlImage(), mixed(QColor(0, 255, 0), textOn(graph.plotAreaColor()), 0.6));
        return std::pair(blue, green);
    };
    for (const std::vector<double>& values : {std::vector<double>(100, 15.0), std::vector<double>(10'000, 15.0)}) {
        EXPECT_GT(edgePixels(values).first, 1000) << values.size();
        EXPECT_EQ(edgePixels(values).second, 0) << values.size();
    }
}

TEST_F(GraphTest, TheDrawingHasTheColorsThatAreSet)
{
    graph.plot(1).PlotY({20, 20}, "0:00", 1);
    graph.plot(1).setLineColor(Qt::black);
    graph.setFrameColor(Qt::white);
    graph.setPlotAreaColor(Qt::white);
    graph.axis(1).setGridColor(QColor(255, 0, 255));
    graph.setElementVisible("Graph Frame", false);
    const QImage image = graph.ControlImage();
    EXPECT_EQ(image.pixelColor(3, 3), QColor(Qt::white));
    EXPECT_EQ(image.pixelColor(0, 0), QColor(Qt::white));
    EXPECT_GT(pixelsOf(image, Qt::black), 1000);
    EXPECT_GT(pixelsOf(image, QColor(255, 0, 255)), 1000);
}

/// How many pixels of `part` can be read on `ground`.
int readablePixels(const QImage& image, const QRect& part, const QColor& ground)
{
    int count = 0;
    for (int y = part.top(); y <= part.bottom(); ++y)
        for (int x = part.left(); x <= part.right(); ++x)
            count += contrast(image.pixelColor(x, y), ground) > 4.5 ? 1 : 0;
    return count;
}

TEST_F(GraphTest, NumbersAndCaptionsCanBeReadOnAnyFrame)
{
    for (const QColor& ground : {QColor(Qt::white), QColor(Qt::black), QColor(0, 0, 128), QColor(255, 255, 0)}) {
        graph.setFrameColor(ground);
        const QImage image = graph.ControlImage();
        const QRect area(graph.plotArea().topLeft() * 2, graph.plotArea().size() * 2);
        const int line = 2 * QFontMetrics(graph.font()).height();
        const QRect numbers(area.left() - 10, area.bottom() + 12, area.width() + 20, line);
        const QRect caption(area.left(), image.height() - line - 14, area.width(), line);
        const QRect leftNumbers(area.left() - 40, area.top(), 34, area.height());
        const QRect rightNumbers(area.right() + 14, area.top(), 30, area.height());
        for (const QRect& part : {numbers, caption, leftNumbers, rightNumbers})
            EXPECT_GT(readablePixels(image, part, ground), 100) << ground.name().toStdString();
    }
}

TEST_F(GraphTest, TheDrawingIsAsBeforeWhenTheColorsArePutBack)
{
    graph.plot(1).PlotY({20, 25, 3}, "0:00", 0.01);
    const QImage before = graph.ControlImage();
    const QColor frame = graph.frameColor();
    const QColor area = graph.plotAreaColor();
    const QColor grid = graph.axis(1).gridColor();
    const QColor line = graph.plot(1).lineColor();
    graph.setFrameColor(Qt::white);
    graph.setPlotAreaColor(Qt::white);
    graph.axis(1).setGridColor(Qt::gray);
    graph.plot(1).setLineColor(Qt::black);
    graph.setElementVisible("Graph Frame", false);
    EXPECT_NE(graph.ControlImage(), before);
    graph.setFrameColor(frame);
    graph.setPlotAreaColor(area);
    graph.axis(1).setGridColor(grid);
    graph.plot(1).setLineColor(line);
    graph.setElementVisible("Graph Frame", true);
    EXPECT_EQ(graph.ControlImage(), before);
}

TEST_F(GraphTest, ValuesBeyondAllMeasureLeaveTheDrawingAlone)
{
    for (const double value : {5.0, 1e308, -1e308, std::nan(""), double(INFINITY), -double(INFINITY), -5.0, 5e-324}) {
        for (int i = 1; i <= 4; ++i)
            for (int k = 0; k < 300 * i; ++k)
                graph.plot(i).ChartY(k % 3 == 0 ? value : 5, second);
        graph.repaintNow();
    }
    for (const double maximum : {1e-6, 1e300}) {
        graph.axis(2).SetMinMax(0, maximum);
        graph.axis(1).SetMinMax(0, 1e-7);
        graph.repaintNow();
        graph.axis(1).SetMinMax(0, 5760);
        graph.repaintNow();
    }
    EXPECT_GT(pixelsOf(graph.ControlImage(), graph.plotAreaColor()), 1000);
}

TEST_F(GraphTest, ACursorIsACrossInItsColor)
{
    GraphCursor& cursor = graph.cursor(1);
    cursor.setColor(QColor(255, 0, 255));
    EXPECT_EQ(pixelsOf(graph.ControlImage(), QColor(255, 0, 255)), 0);
    cursor.setVisible(true);
    cursor.setYPosition(15);
    const QSize area = graph.plotArea().size() * 2;
    EXPECT_GT(pixelsOf(graph.ControlImage(), QColor(255, 0, 255)), 2 * (area.width() + area.height()) - 100);
    cursor.setVisible(false);
    EXPECT_EQ(pixelsOf(graph.ControlImage(), QColor(255, 0, 255)), 0);
}

TEST_F(GraphTest, ALegendIsPaintedLikeTheCurve)
{
    QImage image(60, 12, QImage::Format_ARGB32_Premultiplied);
    const auto drawnPixels = [&](int plot) {
        image.fill(graph.plotAreaColor());
        QPainter painter(&image);
        graph.plot(plot).paintLegend(painter, QRectF(5, 0, 50, 12));
        painter.end();
        return image.width() * image.height() - pixelsOf(image, graph.plotAreaColor());
    };
    EXPECT_EQ(drawnPixels(1), 2 * 50);
    EXPECT_EQ(drawnPixels(2), 2 * (4 * 7 + 6)); // four dashes and the beginning of a fifth
}

QImage plotAreaOf(const Graph& graph)
{
    const QImage image = graph.ControlImage();
    return image.copy({graph.plotArea().topLeft() * 2, graph.plotArea().size() * 2});
}

/// Two channels whose curves have their number as a mark.
GraphPlan markedChannels()
{
    GraphPlan plan = twoChannels();
    for (std::size_t i = 0; i < plan.plots.size(); ++i)
        plan.plots[i].mark = QString::number(i / 2 + 1);
    return plan;
}

TEST(GraphDrawingTest, MarksStandOnTheCurveAndOnItsLineInALegend)
{
    const QColor character(226, 231, 238);
    std::vector<int> counts;
    for (const GraphPlan& plan : {twoChannels(), markedChannels()}) {
        Graph graph(plan);
        graph.resize(740, 420);
        graph.plot(1).PlotY(std::vector<double>(3600, 15.0), "0:00", second);
        counts.push_back(pixelsOf(plotAreaOf(graph), character));
        QImage legend(60, 16, QImage::Format_ARGB32_Premultiplied);
        legend.fill(graph.plotAreaColor());
        QPainter painter(&legend);
        graph.plot(3).paintLegend(painter, QRectF(5, 0, 50, 16));
        counts.push_back(pixelsOf(legend, character));
    }
    EXPECT_EQ(counts[0], 0);
    EXPECT_EQ(counts[1], 0);
    EXPECT_GT(counts[2], 100);
    EXPECT_GT(counts[3], 4);
}

TEST(GraphDrawingTest, TheMarksOfTwoCurvesAtTheSameHeightStandApart)
{
    const auto rings = [](std::initializer_list<int> plots) {
        Graph graph(markedChannels());
        graph.resize(740, 420);
        graph.axis(3).SetMinMax(0, 30);
        for (const int plot : plots)
            graph.plot(plot).PlotY(std::vector<double>(3600, 15.0), "0:00", second);
        return pixelsOf(plotAreaOf(graph), QColor(226, 231, 238));
    };
    const int first = rings({1});
    const int second = rings({3});
    EXPECT_NEAR(rings({1, 3}), first + second, (first + second) / 20.0);
}

TEST_F(GraphTest, ACurveThatLeavesTheRangeIsMarkedAtTheEdge)
{
    const auto greenAtTheTop = [&](double value) {
        graph.plot(1).PlotY(std::vector<double>(3600, value), "0:00", second);
        const QRect area = graph.plotArea();
        const QImage top = graph.ControlImage().copy(2 * area.left(), 2 * area.top(), 2 * area.width(), 16);
        return pixelsOf(top, QColor(0, 255, 0));
    };
    EXPECT_EQ(greenAtTheTop(25), 0);
    EXPECT_GT(greenAtTheTop(31), 60);
    graph.plot(1).setVisible(false);
    EXPECT_EQ(greenAtTheTop(31), 0);
}

TEST_F(GraphTest, ACurveLongerThanTheTimesShownIsMarkedAtTheRight)
{
    const auto green = [&](double hours) {
        graph.plot(1).PlotY({15, 15}, "0:00", hours / 24);
        return pixelsOf(graph.ControlImage(), QColor(0, 255, 0));
    };
    const int whole = green(1);
    EXPECT_GT(green(2), whole + 20);
}

} // namespace
} // namespace orb
