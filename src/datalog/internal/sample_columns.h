// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace orb {

/// The columns of a sample, in the order in which the copies to and from the saved logs name them.
inline const QString sampleColumns = QStringLiteral("SeqNo, RecTime,PVal1,SVal1,PVal2,SVal2,PVal3,SVal3,PVal4,SVal4,"
                                                    "PVal5,SVal5,PVal6,SVal6,PVal7,SVal7,PVal8,SVal8,Reason3,Comment,"
                                                    "TimeTick,DiffLastTime");

} // namespace orb
