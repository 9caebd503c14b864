// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>
#include <QString>

namespace orb {

class GraphPlot;

/// A cross of two lines that the operator drags to read a curve off. Starts hidden, at 0, on no plot.
class GraphCursor {
public:
    /// What the graph alone knows of the cursor.
    class Drawing;

    explicit GraphCursor(Drawing& drawing) : drawing_(drawing) {}
    GraphCursor(const GraphCursor&) = delete;
    GraphCursor& operator=(const GraphCursor&) = delete;

    /// "Cursor-1" and so on.
    const QString& name() const;

    bool visible() const;
    /// A cursor that is shown while it is outside of the x range in view moves to the middle of that range.
    void setVisible(bool visible);

    /// The plot whose samples the cursor follows, or null.
    const GraphPlot* plot() const;
    /// `plot` must outlive the cursor.
    void setPlot(const GraphPlot& plot);

    QColor color() const;
    void setColor(const QColor& color);

    /// The place, in the units of the x axis and of the plot's value axis.
    double xPosition() const;
    double yPosition() const;
    void setXPosition(double x);
    void setYPosition(double y);

    Drawing& drawing() const { return drawing_; }

private:
    Drawing& drawing_;
};

} // namespace orb
