// SPDX-License-Identifier: GPL-3.0-or-later
#include "directories.h"

namespace orb {

QString sourceDirectory()
{
    return QStringLiteral(ORB_SOURCE_DIR);
}

QString binaryDirectory()
{
    return QStringLiteral(ORB_BINARY_DIR);
}

} // namespace orb
