// SPDX-License-Identifier: GPL-3.0-or-later
#include "pointer_file.h"

#include "failure.h"
#include "input_file.h"

#include <QPixmap>
#include <QtEndian>

namespace orb {

namespace {

constexpr qsizetype headerSize = 22; // of the file and of its first picture
constexpr int pointerType = 2;       // 1 is an icon, which has no hot spot

int word(const QByteArray& bytes, qsizetype at)
{
    return qFromLittleEndian<quint16>(bytes.constData() + at);
}

} // namespace

QCursor loadPointer(const QString& literal)
{
    const QByteArray bytes = readBytes(literal);
    const bool isPointer = bytes.size() > headerSize && word(bytes, 2) == pointerType;
    const QImage image = isPointer ? QImage::fromData(bytes, "ICO") : QImage();
    if (image.isNull())
        throw RuntimeFailure(failure::InvalidPicture);
    return QCursor(QPixmap::fromImage(image), word(bytes, 10), word(bytes, 12));
}

} // namespace orb
