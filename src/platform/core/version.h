// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace orb {

/// The version of this program, such as "1.3.2", as the top CMakeLists.txt states it.
QString programVersion();

} // namespace orb
