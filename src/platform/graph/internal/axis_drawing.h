// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "axis_scale.h"
#include "curve.h"
#include "graph_axis.h"
#include "graph_plan.h"

#include <optional>

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
    /// The same for the view alone: the range last set stays. Without an extent nothing changes.
    void show(const Extent& data);
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
    /// Round values around the data; nothing where it can't be drawn.
    std::optional<QCPRange> around(double lowest, double highest) const;
    QCPRange home() const { return {plan.minimum, plan.maximum}; }
    QVector<QString> labelsOf(const AxisScale& scale, const std::vector<std::int64_t>& numbers, double span) const;
    double roomFor(const QVector<QString>& labels) const;
};

} // namespace orb
