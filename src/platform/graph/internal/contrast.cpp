// SPDX-License-Identifier: GPL-3.0-or-later
#include "contrast.h"

#include <cmath>
#include <utility>

namespace orb {

namespace {

constexpr double enoughForALine = 3;

double linear(double channel)
{
    return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double luminance(const QColor& color)
{
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

} // namespace

double contrast(const QColor& one, const QColor& other)
{
    double light = luminance(one);
    double dark = luminance(other);
    if (light < dark)
        std::swap(light, dark);
    return (light + 0.05) / (dark + 0.05);
}

QColor textOn(const QColor& ground)
{
    const QColor light(226, 231, 238);
    const QColor dark(22, 26, 32);
    return contrast(light, ground) > contrast(dark, ground) ? light : dark;
}

QColor edgeFor(const QColor& line, const QColor& ground)
{
    if (contrast(line, ground) >= enoughForALine)
        return {};
    return mixed(line, textOn(ground), 0.6);
}

QColor mixed(const QColor& one, const QColor& other, double share)
{
    const auto blend = [share](int a, int b) { return static_cast<int>(std::lround(a * share + b * (1 - share))); };
    return {blend(one.red(), other.red()), blend(one.green(), other.green()), blend(one.blue(), other.blue())};
}

} // namespace orb
