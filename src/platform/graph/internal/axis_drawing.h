// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "axis_scale.h"
#include "graph_axis.h"
#include "graph_plan.h"

namespace orb {

class RepaintQueue;

/// An axis in the drawing, as the source of its ticks and labels: equal divisions of the range last set, labels in the
/// format set, as many of them as fit. QCustomPlot's own tickers put ticks at round values only, and let labels touch.
class GraphAxis::Drawing final : public QCPAxisTicker {
public:
    /// A new one, which belongs to `drawnAxis`. `queue` must outlive the axis.
    static Drawing& of(QCPAxis& drawnAxis, const GraphAxisPlan& start, RepaintQueue& queue);

    QCPAxis& axis;
    GraphAxisPlan plan; // minimum and maximum are the range last set
    RepaintQueue& repaints;

    /// See `GraphAxis::SetMinMax`.
    void setHome(double minimum, double maximum);
    /// Sets the range to round values around the data from `lowest` to `highest`.
    void fit(double lowest, double highest);
    /// Shows another part, as the operator's zoom and pan do. A range too narrow to differ from a point,
    /// or a million times as wide as the range last set, changes nothing and returns false.
    bool view(double minimum, double maximum);
    /// Back to the range last set.
    void restore();

    /// The labels as they are drawn at the axis's present length, from the minimum on; empty where one was left out
    /// because it would touch its neighbour.
    QStringList labels();

    void generate(const QCPRange& range, const QLocale& locale, QChar formatChar, int precision, QVector<double>& ticks,
                  QVector<double>* subTicks, QVector<QString>* tickLabels) override;

private:
    Drawing(QCPAxis& drawnAxis, const GraphAxisPlan& start, RepaintQueue& queue);
    QCPRange home() const { return {plan.minimum, plan.maximum}; }
    QVector<QString> labelsOf(const AxisScale& scale, const std::vector<std::int64_t>& numbers, double span) const;
    double roomFor(const QVector<QString>& labels) const;
};

} // namespace orb
