// SPDX-License-Identifier: GPL-3.0-or-later
#include "axis_drawing.h"

#include "axis_format.h"
#include "failure.h"
#include "repaint_queue.h"

#include <algorithm>
#include <cmath>

namespace orb {

namespace {

constexpr double farthest = 1e249;     // with which QCustomPlot can calculate
constexpr double finestView = 1e-9;    // of the distance from zero
constexpr double narrowestView = 1e-9; // of the range last set
constexpr double widestView = 1e6;
constexpr int minorParts = 5;

double distanceOf(const QCPRange& range)
{
    return std::max(std::abs(range.lower), std::abs(range.upper));
}

/// `present` may be wider than an operator's zoom gets: it was fitted to the data.
bool canBeDrawn(const QCPRange& view, const QCPRange& present, const QCPRange& home)
{
    const double distance = distanceOf(view);
    const double limit = std::max((std::abs(home.lower) + home.size()) * widestView, distanceOf(present));
    return view.size() > distance * finestView && view.size() > home.size() * narrowestView && distance < limit &&
           QCPRange::validRange(view);
}

} // namespace

GraphAxis::Drawing& GraphAxis::Drawing::of(QCPAxis& drawnAxis, const GraphAxisPlan& start, RepaintQueue& queue)
{
    const QSharedPointer<Drawing> drawing(new Drawing(drawnAxis, start, queue));
    drawnAxis.setTicker(drawing);
    return *drawing;
}

GraphAxis::Drawing::Drawing(QCPAxis& drawnAxis, const GraphAxisPlan& start, RepaintQueue& queue)
    : axis(drawnAxis), plan(start), repaints(queue)
{
    axis.setLabel(plan.caption);
    setHome(plan.minimum, plan.maximum);
}

void GraphAxis::Drawing::setHome(double minimum, double maximum)
{
    const double lower = std::clamp(minimum, -farthest, farthest);
    const double upper = std::clamp(maximum, -farthest, farthest);
    const bool isFinite = std::isfinite(minimum) && std::isfinite(maximum);
    if (!isFinite || !(lower < upper) || !QCPRange::validRange(lower, upper))
        throw RuntimeFailure(failure::InvalidPropertyValue);
    plan.minimum = lower;
    plan.maximum = upper;
    restore();
}

std::optional<QCPRange> GraphAxis::Drawing::around(double lowest, double highest) const
{
    if (!std::isfinite(lowest) || !std::isfinite(highest))
        return std::nullopt;
    const QCPRange data(std::clamp(lowest, -farthest, farthest), std::clamp(highest, -farthest, farthest));
    const QCPRange range = roundRange(data, plan.divisions, isTimeFormat(plan.format));
    return QCPRange::validRange(range) ? std::optional(range) : std::nullopt;
}

void GraphAxis::Drawing::fit(double lowest, double highest)
{
    if (const auto range = around(lowest, highest))
        setHome(range->lower, range->upper);
}

void GraphAxis::Drawing::show(const Extent& data)
{
    const auto range = around(data.lowest, data.highest);
    if (!range)
        return;
    axis.setRange(*range);
    repaints.ask();
}

bool GraphAxis::Drawing::view(double minimum, double maximum)
{
    const QCPRange range(minimum, maximum);
    if (!canBeDrawn(range, axis.range(), home()))
        return false;
    axis.setRange(range);
    repaints.ask();
    return true;
}

void GraphAxis::Drawing::restore()
{
    axis.setRange(home());
    repaints.ask();
}

QStringList GraphAxis::Drawing::labels()
{
    QVector<double> ticks;
    QVector<QString> labels;
    generate(axis.range(), QLocale::c(), u'g', 6, ticks, nullptr, &labels);
    return labels;
}

void GraphAxis::Drawing::generate(const QCPRange& range, const QLocale&, QChar, int, QVector<double>& ticks,
                                  QVector<double>* subTicks, QVector<QString>* tickLabels)
{
    const AxisScale scale = axisScale(range, home(), plan.divisions, isTimeFormat(plan.format));
    const std::vector<std::int64_t> numbers = scale.ticks(range);
    ticks.clear();
    for (const std::int64_t k : numbers)
        ticks.append(scale.at(k));
    if (subTicks) {
        const AxisScale minor{scale.origin, scale.step / minorParts};
        subTicks->clear();
        for (const std::int64_t k : minor.ticks(range))
            if (k % minorParts != 0)
                subTicks->append(minor.at(k));
    }
    if (tickLabels)
        *tickLabels = labelsOf(scale, numbers, range.size());
}

QVector<QString> GraphAxis::Drawing::labelsOf(const AxisScale& scale, const std::vector<std::int64_t>& numbers,
                                              double span) const
{
    QVector<QString> labels;
    for (const std::int64_t k : numbers)
        labels.append(axisLabel(scale.at(k), plan.format, scale.step));
    const bool across = axis.orientation() == Qt::Horizontal;
    const double length = across ? axis.axisRect()->width() : axis.axisRect()->height();
    const int stride = labelStride(roomFor(labels), scale.step / span * length);
    for (qsizetype i = 0; i < labels.size(); ++i)
        if (numbers[static_cast<std::size_t>(i)] % stride != 0)
            labels[i].clear();
    return labels;
}

double GraphAxis::Drawing::roomFor(const QVector<QString>& labels) const
{
    const QFontMetricsF metrics(axis.tickLabelFont());
    if (axis.orientation() == Qt::Vertical)
        return metrics.height();
    double widest = 0;
    for (const QString& label : labels)
        widest = std::max(widest, metrics.horizontalAdvance(label));
    return widest + 2 * metrics.horizontalAdvance(u'0');
}

} // namespace orb
