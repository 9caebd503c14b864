// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

#include <cstddef>
#include <span>

namespace orb {

/// The sum of the bytes of an instrument file without its first four, which store that sum as a big-endian number.
/// `image` has at least four bytes.
quint32 fileSum(std::span<const std::byte> image);

} // namespace orb
