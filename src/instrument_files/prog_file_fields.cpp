// SPDX-License-Identifier: GPL-3.0-or-later
#include "prog_file_fields.h"

#include "record_file.h"
#include "values.h"

namespace orb {

QString secondsText(int tenths)
{
    return QString::number(tenths * 0.1, 'f', 1);
}

quint8 packedSeconds(const QString& text)
{
    return toByte(numericValue(text) * 10);
}

bool finishImage(ProgFileRecord& record)
{
    const quint32 sum = computedCheckSum(record);
    const auto image = imageOf(record);
    quint32 rest = sum;
    for (std::size_t pass = sizeof record.CheckSum; pass-- > 0;) {
        const quint32 byte = rest % 256;
        image[pass] = static_cast<std::byte>(byte);
        rest = (rest - byte) / 256;
    }
    return record.CheckSum == sum;
}

} // namespace orb
