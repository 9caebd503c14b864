// SPDX-License-Identifier: GPL-3.0-or-later
#include "mark_painter.h"

#include "contrast.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace orb {

namespace {

// In pixels at 96 dpi.
constexpr double discRadius = 6.5;
constexpr double discRim = 1.3;
constexpr int markHeight = 9;
constexpr double exitWidth = 11;
constexpr double exitHeight = 8;

/// The corners of a triangle that points to the upper edge at its top.
const std::array<QPointF, 3> triangle{QPointF(0, 0), QPointF(exitWidth / 2, exitHeight),
                                      QPointF(-exitWidth / 2, exitHeight)};

double angleOf(CurveExit::Edge edge)
{
    switch (edge) {
    case CurveExit::Right:
        return 90;
    case CurveExit::Bottom:
        return 180;
    case CurveExit::Left:
        return 270;
    default:
        return 0;
    }
}

QPointF pointAt(const CurveExit& exit, const QSizeF& area)
{
    switch (exit.edge) {
    case CurveExit::Right:
        return {area.width(), exit.at};
    case CurveExit::Bottom:
        return {exit.at, area.height()};
    case CurveExit::Left:
        return {0, exit.at};
    default:
        return {exit.at, 0};
    }
}

} // namespace

void paintMark(QPainter& painter, const QPointF& at, const QString& mark, const CurveColors& colors, double scale)
{
    const double radius = discRadius * scale;
    const QRectF disc(at.x() - radius, at.y() - radius, 2 * radius, 2 * radius);
    QFont font = painter.font();
    font.setPixelSize(static_cast<int>(std::lround(markHeight * scale)));
    font.setBold(true);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setFont(font);
    painter.setBrush(colors.ground);
    painter.setPen(QPen(colors.edge.isValid() ? colors.edge : colors.line, discRim * scale));
    painter.drawEllipse(disc);
    painter.setPen(textOn(colors.ground));
    painter.drawText(disc, Qt::AlignCenter, mark);
}

void ExitPainter::paint(const CurveExit& exit, const CurveColors& colors)
{
    const double at = freePlace(exit.edge, exit.at);
    painter_.save();
    painter_.setRenderHint(QPainter::Antialiasing);
    painter_.translate(pointAt({exit.edge, at}, area_));
    painter_.rotate(angleOf(exit.edge));
    painter_.scale(scale_, scale_);
    painter_.setBrush(colors.line);
    painter_.setPen(QPen(colors.edge.isValid() ? colors.edge : colors.ground, 1));
    painter_.drawPolygon(triangle.data(), static_cast<int>(triangle.size()));
    painter_.restore();
}

/// The place nearest to `at` at which a whole triangle stands in the area. At the upper and the lower edge it is one, from
/// there on, that no other has taken; at the sides the height says which curve it belongs to.
double ExitPainter::freePlace(CurveExit::Edge edge, double at)
{
    const bool across = edge == CurveExit::Top || edge == CurveExit::Bottom;
    const double width = exitWidth * scale_;
    const double last = (across ? area_.width() : area_.height()) - width / 2;
    at = std::clamp(at, width / 2, std::max(last, width / 2));
    if (!across)
        return at;
    std::vector<double>& taken = taken_.at(edge);
    std::sort(taken.begin(), taken.end());
    for (const double other : taken)
        if (std::abs(other - at) < width)
            at = std::min(other + width, last);
    taken.push_back(at);
    return at;
}

} // namespace orb
