// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "graph_plan.h"

#include <QSharedPointer>
#include <QStringList>

#include <memory>

class QCPAxis;

namespace orb {

class DivisionTicker;
class RepaintQueue;

/// One axis of a graph. A time axis counts in days, so a second is 1/86400.
class GraphAxis {
public:
    /// `axis` and `repaints` must outlive this.
    GraphAxis(QCPAxis& axis, const GraphAxisPlan& plan, RepaintQueue& repaints);
    ~GraphAxis();
    GraphAxis(const GraphAxis&) = delete;
    GraphAxis& operator=(const GraphAxis&) = delete;

    const QString& name() const { return name_; }

    QString caption() const;
    void setCaption(const QString& caption);

    /// Sets the range, to which a double click of the operator returns too, and ends a range that followed the data.
    /// Throws `RuntimeFailure` 380 unless both are finite and `minimum` is the lesser. A value beyond 1E+249 counts
    /// as that.
    void SetMinMax(double minimum, double maximum);
    /// The same with times, see `axisTime`. Throws 13 for a text that is none.
    void SetMinMax(const QString& minimum, const QString& maximum);

    /// The range in view: the one last set, unless the operator has zoomed or panned since.
    double minimum() const;
    double maximum() const;

    /// The format of the labels: "h:nn", "dd h:n" and the like, see `axisLabel`; plain numbers where it names no time.
    const QString& FormatString() const;
    void setFormatString(const QString& format);

    /// Into how many equal parts the ticks divide the range last set. Refuses a number outside of 1 to 100 with 380.
    int MajorDivisions() const;
    void setMajorDivisions(int divisions);

    /// The color of the grid lines at the ticks. Axis 1 and axis 2 draw a grid; the others keep the color only.
    QColor gridColor() const { return gridColor_; }
    void setGridColor(const QColor& color);

    /// True while the range follows the data.
    bool isAutoScaled() const { return autoScale_; }
    /// Sets the range to round values around the data from `lowest` to `highest`, if it follows the data.
    void fit(double lowest, double highest);

    /// Shows another part, as the operator's zoom and pan do. One that can't be told from a point, or is out of all
    /// proportion to the range last set, changes nothing and gives false.
    bool view(double minimum, double maximum);
    /// Back to the range last set.
    void restore();

    /// The labels as they are drawn at the axis's present length, from the minimum on; empty where one was left out
    /// because it would touch its neighbour.
    QStringList labels() const;

    /// The drawn axis.
    QCPAxis& drawn() const { return axis_; }

private:
    void show(double minimum, double maximum);

    QCPAxis& axis_;
    RepaintQueue& repaints_;
    QString name_;
    QSharedPointer<DivisionTicker> ticker_;
    QColor gridColor_;
    bool autoScale_;
};

} // namespace orb
