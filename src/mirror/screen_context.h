// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace orb {

/// A handle of the whole screen's device context. Only Windows has one; it is null elsewhere.
using ScreenContext = void*;

ScreenContext getScreenContext();
/// Does nothing for null.
void deleteScreenContext(ScreenContext context);

} // namespace orb
