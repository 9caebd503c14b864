// SPDX-License-Identifier: GPL-3.0-or-later
// One repaint of a day of sixteen curves, against the same curves in a bare QCustomPlot of the same size; and one of
// sixteen curves of a million points over the same time, against that of the day.
#include "bench.h"
#include "form.h"
#include "graph.h"
#include "graph_log.h"
#include "internal/plotting.h"

#include <QApplication>

#include <cmath>
#include <random>

using namespace orb;

namespace {

constexpr int dayPoints = 86'400;
constexpr int manyPoints = 1'000'000;
constexpr int rounds = 15;
constexpr QSize size(900, 480);

/// A load that is switched now and then, with the noise of its converter.
std::vector<double> samples(int curve, int points)
{
    std::mt19937 random(static_cast<unsigned>(curve));
    std::normal_distribution<double> noise(0, curve % 4 == 0 ? 0.5 : 0.02);
    std::vector<double> values(points);
    for (int i = 0; i < points; ++i) {
        const double second = i * (1.0 * dayPoints / points);
        const bool on = static_cast<int>(second) / (3000 + 700 * curve) % 2 == 0;
        values[static_cast<std::size_t>(i)] = 2.5 * curve + (on ? 4 + std::sin(second * 0.001) : 0) + noise(random);
    }
    return values;
}

void fill(Graph& graph, int points)
{
    graph.axis(1).SetMinMax(0, 1);
    graph.axis(2).SetMinMax(0, 50);
    graph.axis(3).SetMinMax(0, 50);
    for (int i = 0; i < graph.plotCount(); ++i)
        graph.plot(i + 1).PlotY(samples(i, points), QStringLiteral("0:00"), 1.0 / points);
}

void fillBare(QCustomPlot& plot, const GraphPlan& plan)
{
    plot.xAxis->setRange(0, 1);
    plot.yAxis->setRange(0, 50);
    plot.yAxis2->setRange(0, 50);
    plot.yAxis2->setVisible(true);
    QVector<double> x(dayPoints);
    for (int i = 0; i < dayPoints; ++i)
        x[i] = 1.0 * i / dayPoints;
    for (std::size_t i = 0; i < plan.plots.size(); ++i) {
        const std::vector<double> values = samples(static_cast<int>(i), dayPoints);
        QCPGraph* graph = plot.addGraph(plot.xAxis, plan.plots[i].valueAxis == 2 ? plot.yAxis : plot.yAxis2);
        graph->setPen(QPen(plan.plots[i].color));
        graph->setData(x, QVector<double>(values.begin(), values.end()), true);
    }
}

} // namespace

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    bench::FatalExit processExit;
    Run run(processExit);
    Form form(run);
    form.resize(size);
    Graph day(graphLogPlan(), &form);
    Graph many(graphLogPlan(), &form);
    for (Graph* graph : {&day, &many})
        graph->resize(size);
    fill(day, dayPoints);
    fill(many, manyPoints);
    form.show();
    QCustomPlot bare;
    bare.resize(size);
    fillBare(bare, graphLogPlan());
    bare.show();
    QApplication::processEvents();

    std::vector<double> ofDay;
    std::vector<double> ofMany;
    std::vector<double> ofBare;
    for (int i = 0; i < rounds; ++i) { // in turns, so that what else the machine does meets all
        ofDay.push_back(bench::seconds([&] { day.repaintNow(); }, 1));
        ofBare.push_back(bench::seconds([&] { bare.replot(QCustomPlot::rpImmediateRefresh); }, 1));
        ofMany.push_back(bench::seconds([&] { many.repaintNow(); }, 1));
    }
    const double day16 = bench::median(ofDay);
    return bench::report("repaint 16x86400", day16 / bench::median(ofBare), 0.7) |
           bench::report("repaint 16x1000000", bench::median(ofMany) / day16, 1.2);
}
