// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

namespace orb {

/// The duration of a point: a number of counts of a time base.
struct PointDuration {
    int timeBaseCode = 0;
    qint32 count = 0;
};

/// The coarsest time base that gives the duration, 0 to 2147483647 s, exactly. Where several do not show a long duration
/// alike in an editor, which computes with single precision, the one that is shown nearest to the millisecond.
PointDuration pointDuration(double seconds);

} // namespace orb
