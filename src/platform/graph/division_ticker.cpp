// SPDX-License-Identifier: GPL-3.0-or-later
#include "division_ticker.h"

#include "axis_format.h"

#include <algorithm>

namespace orb {

namespace {
constexpr int minorParts = 5;
} // namespace

bool DivisionTicker::isTime() const
{
    return isTimeFormat(format);
}

void DivisionTicker::generate(const QCPRange& range, const QLocale&, QChar, int, QVector<double>& ticks,
                              QVector<double>* subTicks, QVector<QString>* tickLabels)
{
    const AxisRange view{range.lower, range.upper};
    const AxisScale scale = axisScale(view, home, divisions, isTime());
    const std::vector<std::int64_t> numbers = scale.ticks(view);
    ticks.clear();
    for (const std::int64_t k : numbers)
        ticks.append(scale.at(k));
    if (subTicks) {
        const AxisScale minor{scale.origin, scale.step / minorParts};
        subTicks->clear();
        for (const std::int64_t k : minor.ticks(view))
            if (k % minorParts != 0)
                subTicks->append(minor.at(k));
    }
    if (tickLabels)
        *tickLabels = labelsOf(scale, numbers, view.span());
}

QVector<QString> DivisionTicker::labelsOf(const AxisScale& scale, const std::vector<std::int64_t>& numbers,
                                          double span) const
{
    QVector<QString> labels;
    for (const std::int64_t k : numbers)
        labels.append(axisLabel(scale.at(k), format, scale.step));
    const bool across = axis_.orientation() == Qt::Horizontal;
    const double length = across ? axis_.axisRect()->width() : axis_.axisRect()->height();
    const int stride = labelStride(roomFor(labels), scale.step / span * length);
    for (qsizetype i = 0; i < labels.size(); ++i)
        if (numbers[static_cast<std::size_t>(i)] % stride != 0)
            labels[i].clear();
    return labels;
}

double DivisionTicker::roomFor(const QVector<QString>& labels) const
{
    const QFontMetricsF metrics(axis_.tickLabelFont());
    if (axis_.orientation() == Qt::Vertical)
        return metrics.height();
    double widest = 0;
    for (const QString& label : labels)
        widest = std::max(widest, metrics.horizontalAdvance(label));
    return widest + 2 * metrics.horizontalAdvance(u'0');
}

} // namespace orb
