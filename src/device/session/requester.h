// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace orb {

/// Who sends a query: the application by `SendCommand`, or the control for its own pages.
enum class Requester { Application, Control };

} // namespace orb
