// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace orb {

/// The numbers of one point as the table holds them.
struct PointValues {
    double seconds;
    double amperes;
    double rise;
    double fall;
};

/// `value` with at least one decimal and at most so many, rounded.
QString decimals(double value, int most);

/// Inserts a row of the settings, with the same value as loaded and to send.
QString headInsert(const QString& label, int value);

/// Inserts point `index`, counted from 1. Times are held to three decimals, currents to two; the slew rates keep all.
QString pointInsert(int index, const PointValues& values);

} // namespace orb
