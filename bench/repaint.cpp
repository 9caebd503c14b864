// SPDX-License-Identifier: GPL-3.0-or-later
// One repaint of a day of sixteen curves, against the same curves in a bare QCustomPlot of the same size.
#include "bench.h"
#include "form.h"
#include "graph.h"
#include "graph_log.h"
#include "plotting.h"

#include <QApplication>

#include <cmath>
#include <random>

using namespace orb;

namespace {

constexpr int points = 86'400;
constexpr int rounds = 15;
constexpr QSize size(900, 480);

/// A load that is switched now and then, with the noise of its converter.
std::vector<double> samples(int curve)
{
    std::mt19937 random(static_cast<unsigned>(curve));
    std::normal_distribution<double> noise(0, curve % 4 == 0 ? 0.5 : 0.02);
    std::vector<double> values(points);
    for (int i = 0; i < points; ++i) {
        const bool on = i / (3000 + 700 * curve) % 2 == 0;
        values[static_cast<std::size_t>(i)] = 2.5 * curve + (on ? 4 + std::sin(i * 0.001) : 0) + noise(random);
    }
    return values;
}

void fill(Graph& graph)
{
    graph.axis(1).SetMinMax(0, 1);
    graph.axis(2).SetMinMax(0, 50);
    graph.axis(3).SetMinMax(0, 50);
    for (int i = 0; i < graph.plotCount(); ++i)
        graph.plot(i + 1).PlotY(samples(i), QStringLiteral("0:00"), 1 / 86'400.0);
}

void fillBare(QCustomPlot& plot, const GraphPlan& plan)
{
    plot.xAxis->setRange(0, 1);
    plot.yAxis->setRange(0, 50);
    plot.yAxis2->setRange(0, 50);
    plot.yAxis2->setVisible(true);
    QVector<double> x(points);
    for (int i = 0; i < points; ++i)
        x[i] = i / 86'400.0;
    for (std::size_t i = 0; i < plan.plots.size(); ++i) {
        const std::vector<double> values = samples(static_cast<int>(i));
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
    Graph graph(graphLogPlan(), &form);
    graph.resize(size);
    fill(graph);
    form.show();
    QCustomPlot bare;
    bare.resize(size);
    fillBare(bare, graphLogPlan());
    bare.show();
    QApplication::processEvents();

    std::vector<double> ours;
    std::vector<double> theirs;
    for (int i = 0; i < rounds; ++i) { // in turns, so that what else the machine does meets both
        ours.push_back(bench::seconds([&] { graph.repaintNow(); }, 1));
        theirs.push_back(bench::seconds([&] { bare.replot(QCustomPlot::rpImmediateRefresh); }, 1));
    }
    return bench::report("repaint 16x86400", bench::median(ours) / bench::median(theirs), 1.2);
}
