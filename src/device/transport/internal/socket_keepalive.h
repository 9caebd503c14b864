// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

namespace orb {

/// Lets the system ask a silent peer now and then whether it is still there, so that the connection fails within some
/// ten seconds when it is not. Where the system can't be told the times its own are used. `descriptor` is a connected
/// TCP socket's.
void keepAlive(qintptr descriptor);

} // namespace orb
