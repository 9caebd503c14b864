// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAbstractSocket>

namespace orb {

/// From now on closing the socket resets its connection and drops what has not been sent yet.
void resetOnClose(QAbstractSocket& socket);

} // namespace orb
