// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace orb {

/// Runs the body of a member. The members never throw: one that fails returns false, 0 or an empty text.
template <typename Body> auto guarded(const Body& body) noexcept
{
    using Result = decltype(body());
    try {
        return body();
    } catch (...) {
        return Result();
    }
}

} // namespace orb
