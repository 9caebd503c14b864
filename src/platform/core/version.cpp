// SPDX-License-Identifier: GPL-3.0-or-later
#include "version.h"

namespace orb {

QString programVersion()
{
    return QStringLiteral(ORB_VERSION);
}

} // namespace orb
