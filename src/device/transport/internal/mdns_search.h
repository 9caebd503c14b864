// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "network_search.h"

#include <memory>

namespace orb {

/// A search by mDNS through the Avahi daemon of this machine. Where none runs, or the program was built without Avahi, it
/// fails with a sentence that says so.
std::unique_ptr<NetworkSearch> searchByMdns();

} // namespace orb
