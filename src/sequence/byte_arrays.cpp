// SPDX-License-Identifier: GPL-3.0-or-later
#include "byte_arrays.h"

#include "failure.h"

#include <QtEndian>

#include <algorithm>

namespace orb {

std::int32_t ByteArrayToLong(std::span<const quint8> bytes)
{
    if (bytes.size() < sizeof(std::int32_t))
        throw RuntimeFailure(failure::SubscriptOutOfRange);
    return qFromLittleEndian<std::int32_t>(bytes.data());
}

QString ByteArrayToString(std::span<const quint8> bytes)
{
    const auto length = std::ranges::find(bytes, 0) - bytes.begin();
    return QString::fromLocal8Bit(reinterpret_cast<const char*>(bytes.data()), length);
}

} // namespace orb
