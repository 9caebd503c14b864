// SPDX-License-Identifier: GPL-3.0-or-later
#include "record_file.h"

#include "input_file.h"
#include "text_file.h"

#include <algorithm>

namespace orb {

void readImage(const QString& literal, std::span<std::byte> image)
{
    const QByteArray content = readBytes(literal, static_cast<qint64>(image.size()));
    std::ranges::copy(std::as_bytes(std::span(content)), image.begin());
}

void writeImage(const QString& literal, std::span<const std::byte> image)
{
    OutputFile file(literal);
    file.write({reinterpret_cast<const char*>(image.data()), image.size()});
    file.close();
}

} // namespace orb
