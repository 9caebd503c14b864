// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>
#include <QString>

namespace orb {

/// One axis of a graph. A time axis counts in days, so a second is 1/86400.
class GraphAxis {
public:
    /// What the graph alone knows of the axis.
    class Drawing;

    explicit GraphAxis(Drawing& drawing) : drawing_(drawing) {}
    GraphAxis(const GraphAxis&) = delete;
    GraphAxis& operator=(const GraphAxis&) = delete;

    const QString& name() const;

    QString caption() const;
    void setCaption(const QString& caption);

    /// The unit of a value axis, as in "V"; empty where its plan names none.
    const QString& unit() const;

    /// Sets the range, to which a double click of the operator returns too, and ends a range that followed the data.
    /// Throws `RuntimeFailure` 380 unless both are finite and `minimum` is the lesser. A value beyond 1E+249 counts
    /// as that.
    void SetMinMax(double minimum, double maximum);
    /// The same with times: "h:n" or "h:n:s", each part with any number of digits, the seconds with or without a
    /// fraction. "0:5:00" is five minutes, "1:00" one hour. Throws 13 for any other text, and for minutes or seconds of
    /// 60 and more.
    void SetMinMax(const QString& minimum, const QString& maximum);

    /// The range in view: the one last set, unless the operator has zoomed or panned since.
    double minimum() const;
    double maximum() const;

    /// The format of the labels: "h:nn", "dd h:n" and the like, with d for days, h for hours, n for minutes and s for
    /// seconds, a doubled letter for a leading zero; plain numbers where it names no time.
    const QString& FormatString() const;
    void setFormatString(const QString& format);

    /// Into how many equal parts the ticks divide the range last set. Refuses a number outside of 1 to 100 with 380.
    int MajorDivisions() const;
    void setMajorDivisions(int divisions);

    /// The color of the grid lines at the ticks. Axis 1 and axis 2 draw a grid; the others keep the color only.
    QColor gridColor() const;
    void setGridColor(const QColor& color);

    Drawing& drawing() const { return drawing_; }

private:
    Drawing& drawing_;
};

} // namespace orb
