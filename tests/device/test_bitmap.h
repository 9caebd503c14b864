// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QBuffer>
#include <QImage>
#include <QtEndian>

namespace orb {

/// A Windows bitmap of one color, 24 bits a pixel.
inline QByteArray testBitmap(int width, int height, const QColor& color = Qt::red)
{
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(color);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "BMP");
    return bytes;
}

/// The bitmap with another number in its headers.
template <typename Number> QByteArray withNumber(QByteArray bitmap, qsizetype at, Number number)
{
    qToLittleEndian(number, bitmap.data() + at);
    return bitmap;
}

} // namespace orb
