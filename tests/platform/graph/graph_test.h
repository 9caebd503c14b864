// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "form_test.h"
#include "graph.h"

#include <QCoreApplication>
#include <QMouseEvent>
#include <QWheelEvent>

namespace orb {

constexpr double second = 1 / 86'400.0;

/// Two channels over a time axis, voltage at the left and current at the right.
inline GraphPlan twoChannels()
{
    GraphPlan plan;
    plan.axes = {{"X-Axis", AxisSide::Bottom, "Elapsed Time", 0, 1 / 24.0, "h:nn", 6},
                 {"Y-Axis", AxisSide::Left, "Voltage", 0, 30},
                 {"YAxis-A", AxisSide::Right, "Amp", 0, 30}};
    plan.plots = {{"Plot-1", 2, QColor(0, 255, 0), false},
                  {"Plot-2", 3, QColor(0, 255, 0), true},
                  {"Plot-3", 2, QColor(0, 0, 255), false},
                  {"Plot-4", 3, QColor(0, 0, 255), true}};
    plan.cursors = 4;
    return plan;
}

/// A graph on the screen, and a mouse over it.
class GraphTest : public FormTest {
protected:
    GraphTest()
    {
        graph.setGeometry(0, 0, 740, 420);
        form.resize(740, 420);
        form.show();
        graph.repaintNow();
    }

    /// The pixel of a place in the units of axis 1 and a value axis.
    QPoint pixel(double x, double y, int valueAxis = 2) const
    {
        const QRect area = graph.plotArea();
        const GraphAxis& across = graph.axis(1);
        const GraphAxis& up = graph.axis(valueAxis);
        const double right = (x - across.minimum()) / (across.maximum() - across.minimum()) * area.width();
        const double above = (y - up.minimum()) / (up.maximum() - up.minimum()) * area.height();
        return {area.left() + qRound(right), area.top() + area.height() - qRound(above)};
    }

    void mouse(QEvent::Type type, const QPoint& at, Qt::MouseButton button = Qt::LeftButton)
    {
        const bool moving = type == QEvent::MouseMove;
        QMouseEvent event(type, at, graph.mapToGlobal(QPointF(at)), moving ? Qt::NoButton : button,
                          type == QEvent::MouseButtonRelease ? Qt::NoButton : button, Qt::NoModifier);
        QCoreApplication::sendEvent(&graph, &event);
    }
    void click(const QPoint& at)
    {
        mouse(QEvent::MouseButtonPress, at);
        mouse(QEvent::MouseButtonRelease, at);
    }
    void drag(const QPoint& from, const QPoint& to)
    {
        mouse(QEvent::MouseButtonPress, from);
        mouse(QEvent::MouseMove, (from + to) / 2);
        mouse(QEvent::MouseMove, to);
        mouse(QEvent::MouseButtonRelease, to);
    }
    void wheel(const QPoint& at, int notches)
    {
        QWheelEvent event(at, graph.mapToGlobal(QPointF(at)), QPoint(), QPoint(0, 120 * notches), Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&graph, &event);
    }

    /// The ranges in view, axis by axis: "0..1 0..30 0..30".
    std::string ranges() const
    {
        QStringList all;
        for (int i = 1; i <= graph.axisCount(); ++i)
            all << QStringLiteral("%1..%2")
                       .arg(graph.axis(i).minimum(), 0, 'g', 4)
                       .arg(graph.axis(i).maximum(), 0, 'g', 4);
        return all.join(u' ').toStdString();
    }

    /// The number of the failure that `act` throws; 0 for none.
    template <typename Act> static int failureOf(Act act)
    {
        try {
            act();
        } catch (const RuntimeFailure& failure) {
            return failure.number();
        }
        return 0;
    }

    Graph graph{twoChannels(), &form};
};

} // namespace orb
