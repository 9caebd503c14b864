// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "control.h"
#include "graph_axis.h"
#include "graph_cursor.h"
#include "graph_plan.h"
#include "graph_plot.h"

#include <QImage>

namespace orb {

/// A graph of curves over one x axis. Axes, plots and cursors are numbered from 1, and a number that none has is
/// refused with `RuntimeFailure` 9.
///
/// Changes are painted from the event queue, at most 25 times a second; a hidden graph is not painted.
/// The wheel zooms at the mouse, over an axis that axis alone; a double click returns to the ranges last set. Neither
/// works while `TrackMode` is `TrackNone`. The right button and the menu key open a menu that fits the ranges to the curves,
/// and copies and saves the picture; neither changes what the left button does.
class Graph : public Control<QWidget> {
public:
    /// What a drag of the mouse does.
    enum TrackModes : int {
        TrackNone = 0,
        TrackCursor = 2, ///< moves the nearest visible cursor along its curve
        TrackPan = 3,    ///< shifts all axes
        TrackZoom = 6    ///< draws a rectangle that then fills the plot area
    };

    /// The operator moved a cursor; its place, in the units of the axes.
    std::function<void(double x, double y)> onCursorChange;
    /// The operator pressed and released the mouse without a drag.
    std::function<void()> onClick;
    /// The operator asked for a file with the picture. The menu offers it only where this is set.
    std::function<void()> onSavePicture;

    explicit Graph(const GraphPlan& plan, QWidget* parent = nullptr);
    ~Graph() override;

    int axisCount() const;
    int plotCount() const;
    int cursorCount() const;
    GraphAxis& axis(int number) const;
    GraphPlot& plot(int number) const;
    GraphCursor& cursor(int number) const;

    /// All plots lose their data. Ranges, colors and cursors stay.
    void ClearData();

    int TrackMode() const;
    /// Refuses a number that is no `TrackModes` with 380.
    void setTrackMode(int mode);

    /// The surface around the plot area, with the captions and labels; these get a color that can be read on it.
    QColor frameColor() const;
    void setFrameColor(const QColor& color);
    /// The background of the curves. A curve too dark or too light for it gets an edge in a color that differs from it.
    QColor plotAreaColor() const;
    void setPlotAreaColor(const QColor& color);

    /// The named elements of the drawing: "Graph Frame" is the bezel. Another name is refused with 9.
    bool elementVisible(const QString& name) const;
    void setElementVisible(const QString& name, bool visible);

    /// Shows all that the visible plots have. The ranges last set stay, and a double click returns to them.
    void showAll();
    /// Shows, on a value axis, all that the visible plots have in the x range in view.
    void fitAxis(int number);

    /// What the graph shows, in a sentence: which curves, from when to when, and their smallest and largest values in the
    /// x range in view.
    QString description() const;

    /// A picture of the graph as it is now, whether or not it is on the screen: at 192 dpi at least, for paper.
    QImage ControlImage() const;

    /// Paints at once, whatever is queued, if the graph is on the screen.
    void repaintNow();
    /// How often the curves were painted on the screen.
    int repaintCount() const;
    /// The part of the widget in which the curves are drawn.
    QRect plotArea() const;

    QSize sizeHint() const override { return {720, 420}; }

protected:
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    struct Parts;
    void reportCursor(const GraphCursor* cursor);
    void showFocus(bool focused);
    bool hasData(int axis) const;

    std::unique_ptr<Parts> parts_;
};

} // namespace orb
