// SPDX-License-Identifier: GPL-3.0-or-later
#include "graph_axis.h"

#include "axis_drawing.h"
#include "axis_format.h"
#include "failure.h"
#include "repaint_queue.h"

namespace orb {

const QString& GraphAxis::name() const
{
    return drawing_.plan.name;
}

QString GraphAxis::caption() const
{
    return drawing_.axis.label();
}

void GraphAxis::setCaption(const QString& caption)
{
    drawing_.axis.setLabel(caption);
    drawing_.repaints.ask();
}

const QString& GraphAxis::unit() const
{
    return drawing_.plan.unit;
}

void GraphAxis::SetMinMax(double minimum, double maximum)
{
    drawing_.setHome(minimum, maximum);
    drawing_.plan.autoScale = false;
}

void GraphAxis::SetMinMax(const QString& minimum, const QString& maximum)
{
    SetMinMax(axisTime(minimum), axisTime(maximum));
}

double GraphAxis::minimum() const
{
    return drawing_.axis.range().lower;
}

double GraphAxis::maximum() const
{
    return drawing_.axis.range().upper;
}

const QString& GraphAxis::FormatString() const
{
    return drawing_.plan.format;
}

void GraphAxis::setFormatString(const QString& format)
{
    drawing_.plan.format = format;
    drawing_.repaints.ask();
}

int GraphAxis::MajorDivisions() const
{
    return drawing_.plan.divisions;
}

void GraphAxis::setMajorDivisions(int divisions)
{
    constexpr int mostDivisions = 100;
    if (divisions < 1 || divisions > mostDivisions)
        throw RuntimeFailure(failure::InvalidPropertyValue);
    drawing_.plan.divisions = divisions;
    drawing_.repaints.ask();
}

QColor GraphAxis::gridColor() const
{
    return drawing_.axis.grid()->pen().color();
}

void GraphAxis::setGridColor(const QColor& color)
{
    drawing_.axis.grid()->setPen(QPen(color, 1));
    drawing_.axis.grid()->setZeroLinePen(QPen(color, 1));
    drawing_.repaints.ask();
}

} // namespace orb
