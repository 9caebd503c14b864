// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

namespace orb {

/// Switches the keepalive of a connected TCP socket on, so that the connection fails within some ten seconds when the
/// remote end is gone. Where these times can't be set, the system's own are used.
void keepAlive(qintptr descriptor);

} // namespace orb
