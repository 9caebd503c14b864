// SPDX-License-Identifier: GPL-3.0-or-later
#include "graph_description.h"

#include "axis_drawing.h"
#include "axis_format.h"
#include "plot_drawing.h"

namespace orb {

namespace {

QString place(double x, const GraphAxis& axis)
{
    constexpr double second = 1 / secondsPerDay;
    return isTimeFormat(axis.FormatString()) ? axisLabel(x, axis.FormatString(), second) : QString::number(x);
}

QString withUnit(double value, const GraphAxis& axis)
{
    return axis.unit().isEmpty() ? QString::number(value) : QString::number(value) + u' ' + axis.unit();
}

QString curveText(const GraphPlot& plot, const Extent& values)
{
    const GraphPlotPlan& plan = plot.drawing().plan;
    return QStringLiteral("%1 from %2 to %3")
        .arg(plan.title.isEmpty() ? plan.name : plan.title, withUnit(values.lowest, plot.valueAxis()),
             withUnit(values.highest, plot.valueAxis()));
}

} // namespace

QString graphDescription(const std::deque<GraphAxis>& axes, const std::deque<GraphPlot>& plots)
{
    const GraphAxis& x = axes.front();
    const Extent view{x.minimum(), x.maximum()};
    Extent shown;
    QStringList curves;
    for (const GraphPlot& plot : plots) {
        const Curve& curve = plot.drawing().curve;
        const Extent values = curve.extentWithin(view);
        if (!plot.visible() || values.isEmpty())
            continue;
        curves << curveText(plot, values);
        shown.add(curve.xExtent());
    }
    if (curves.isEmpty())
        return QStringLiteral("No curve is shown.");
    return QStringLiteral("Curves from %1 to %2: %3.")
        .arg(place(std::max(shown.lowest, view.lowest), x), place(std::min(shown.highest, view.highest), x),
             curves.join(QStringLiteral(", ")));
}

} // namespace orb
