// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace orb {

/// The folder of the whole project, without a slash at its end.
QString sourceDirectory();

/// The folder of the programs that this build made, with the files that stand beside them.
QString binaryDirectory();

} // namespace orb
