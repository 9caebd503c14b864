// SPDX-License-Identifier: GPL-3.0-or-later
#include "graph_axis.h"

#include "axis_format.h"
#include "division_ticker.h"
#include "failure.h"
#include "repaint_queue.h"

#include <algorithm>
#include <cmath>

namespace orb {

namespace {

constexpr double farthest = 1e249;     // what the drawing can reckon with
constexpr double finestView = 1e-9;    // of the distance from zero
constexpr double narrowestView = 1e-9; // of the range last set
constexpr double widestView = 1e6;
constexpr int mostDivisions = 100;

AxisRange checked(double minimum, double maximum)
{
    if (!std::isfinite(minimum) || !std::isfinite(maximum))
        throw RuntimeFailure(failure::InvalidPropertyValue);
    const AxisRange range{std::clamp(minimum, -farthest, farthest), std::clamp(maximum, -farthest, farthest)};
    if (!(range.span() > 0) || !QCPRange::validRange(range.minimum, range.maximum))
        throw RuntimeFailure(failure::InvalidPropertyValue);
    return range;
}

bool canBeDrawn(const AxisRange& view, const AxisRange& home)
{
    const double distance = std::max(std::abs(view.minimum), std::abs(view.maximum));
    return view.span() > distance * finestView && view.span() > home.span() * narrowestView &&
           distance < (std::abs(home.minimum) + home.span()) * widestView &&
           QCPRange::validRange(view.minimum, view.maximum);
}

} // namespace

GraphAxis::GraphAxis(QCPAxis& axis, const GraphAxisPlan& plan, RepaintQueue& repaints)
    : axis_(axis), repaints_(repaints), name_(plan.name), ticker_(new DivisionTicker(axis)), autoScale_(plan.autoScale)
{
    axis_.setTicker(ticker_);
    axis_.setLabel(plan.caption);
    ticker_->format = plan.format;
    setMajorDivisions(plan.divisions);
    ticker_->home = checked(plan.minimum, plan.maximum);
    restore();
}

GraphAxis::~GraphAxis() = default;

QString GraphAxis::caption() const
{
    return axis_.label();
}

void GraphAxis::setCaption(const QString& caption)
{
    axis_.setLabel(caption);
    repaints_.ask();
}

void GraphAxis::SetMinMax(double minimum, double maximum)
{
    ticker_->home = checked(minimum, maximum);
    autoScale_ = false;
    restore();
}

void GraphAxis::SetMinMax(const QString& minimum, const QString& maximum)
{
    SetMinMax(axisTime(minimum), axisTime(maximum));
}

double GraphAxis::minimum() const
{
    return axis_.range().lower;
}

double GraphAxis::maximum() const
{
    return axis_.range().upper;
}

const QString& GraphAxis::FormatString() const
{
    return ticker_->format;
}

void GraphAxis::setFormatString(const QString& format)
{
    ticker_->format = format;
    repaints_.ask();
}

int GraphAxis::MajorDivisions() const
{
    return ticker_->divisions;
}

void GraphAxis::setMajorDivisions(int divisions)
{
    if (divisions < 1 || divisions > mostDivisions)
        throw RuntimeFailure(failure::InvalidPropertyValue);
    ticker_->divisions = divisions;
    repaints_.ask();
}

void GraphAxis::setGridColor(const QColor& color)
{
    gridColor_ = color;
    axis_.grid()->setPen(QPen(color, 1));
    axis_.grid()->setZeroLinePen(QPen(color, 1));
    repaints_.ask();
}

void GraphAxis::fit(double lowest, double highest)
{
    if (!autoScale_ || !std::isfinite(lowest) || !std::isfinite(highest))
        return;
    const AxisRange data{std::clamp(lowest, -farthest, farthest), std::clamp(highest, -farthest, farthest)};
    const AxisRange range = roundRange(data, ticker_->divisions, ticker_->isTime());
    if (!QCPRange::validRange(range.minimum, range.maximum))
        return;
    ticker_->home = range;
    restore();
}

bool GraphAxis::view(double minimum, double maximum)
{
    const AxisRange range{minimum, maximum};
    if (!canBeDrawn(range, ticker_->home))
        return false;
    show(minimum, maximum);
    return true;
}

void GraphAxis::restore()
{
    show(ticker_->home.minimum, ticker_->home.maximum);
}

void GraphAxis::show(double minimum, double maximum)
{
    axis_.setRange(minimum, maximum);
    repaints_.ask();
}

QStringList GraphAxis::labels() const
{
    QVector<double> ticks;
    QVector<QString> labels;
    ticker_->generate(axis_.range(), QLocale::c(), u'g', 6, ticks, nullptr, &labels);
    return labels;
}

} // namespace orb
