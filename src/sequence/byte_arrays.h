// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <cstdint>
#include <span>

namespace orb {

/// The signed number in the first four bytes, the lowest byte first. Throws `RuntimeFailure` 9 where there are fewer.
std::int32_t ByteArrayToLong(std::span<const quint8> bytes);

/// The text in the system's code page up to the first NUL, or all of it where there is none.
QString ByteArrayToString(std::span<const quint8> bytes);

} // namespace orb
