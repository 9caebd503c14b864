// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <vector>

namespace orb {

/// One column that a refresh reads, and the series, from 0, that it fills.
struct SeriesColumn {
    QString column;
    int series;

    bool isCurrent() const { return series % 2 == 0; }
    bool operator==(const SeriesColumn&) const = default;
};

/// The columns that a refresh reads for a log of so many channels. The gaps are intended: with seven channels `PVal7` is
/// not read, with eight nothing is.
std::vector<SeriesColumn> refreshColumns(int channels);

/// The highest `PVal` and the highest `SVal` of all channels, to which a refresh scales the value axes.
struct HighestValues {
    double PVal = -1000000000;
    double SVal = -1000000000;
};

/// True where `refreshColumns` has both columns of every channel.
bool readsEveryChannel(int channels);

/// The query for the highest and the lowest `PVal` and `SVal` of each channel.
QString extremesSelect(int channels);

/// The end of a value axis that starts at zero: the first of the decades from 0.000001 up that is not less than
/// `highest`. The decades are made by repeated multiplication.
double decadeAbove(double highest);

} // namespace orb
