// SPDX-License-Identifier: GPL-3.0-or-later
#include "file_checksum.h"

#include <numeric>

namespace orb {

quint32 fileSum(std::span<const std::byte> image)
{
    const auto summed = image.subspan(sizeof(quint32));
    return std::accumulate(summed.begin(), summed.end(), quint32{0},
                           [](quint32 sum, std::byte byte) { return sum + std::to_integer<quint32>(byte); });
}

} // namespace orb
