// SPDX-License-Identifier: GPL-3.0-or-later
#include "cursor_file.h"

#include <QBuffer>
#include <QDataStream>

namespace orb::drawing {

namespace {

enum class Kind : quint16 { Icon = 1, Cursor = 2 };

struct Entry {
    QSize size;
    quint16 planesOrHotX = 0; ///< an icon's color planes, a cursor's hot spot
    quint16 depthOrHotY = 0;
    QByteArray picture;
};

constexpr int directorySize = 6;
constexpr int entrySize = 16;

/// 256 is written as 0 in the one byte that there is.
quint8 sizeByte(int pixels)
{
    return static_cast<quint8>(pixels % 256);
}

QByteArray container(Kind kind, const QList<Entry>& entries)
{
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out.setByteOrder(QDataStream::LittleEndian);
    out << quint16(0) << quint16(kind) << quint16(entries.size());
    auto offset = quint32(directorySize + entrySize * entries.size());
    for (const Entry& entry : entries) {
        out << sizeByte(entry.size.width()) << sizeByte(entry.size.height()) << quint8(0) << quint8(0);
        out << entry.planesOrHotX << entry.depthOrHotY << quint32(entry.picture.size()) << offset;
        offset += quint32(entry.picture.size());
    }
    for (const Entry& entry : entries)
        bytes += entry.picture;
    return bytes;
}

/// Rows run from the bottom up; a set bit of the mask keeps what lies under the cursor.
void writeColors(QDataStream& out, const QImage& image)
{
    for (int y = image.height() - 1; y >= 0; --y)
        for (int x = 0; x < image.width(); ++x)
            out << quint32(image.pixel(x, y));
}

void writeMask(QDataStream& out, const QImage& image)
{
    const int bits = (image.width() + 31) / 32 * 32;
    for (int y = image.height() - 1; y >= 0; --y) {
        for (int byte = 0; byte < bits / 8; ++byte) {
            quint8 mask = 0;
            for (int bit = 0; bit < 8; ++bit) {
                const int x = byte * 8 + bit;
                const bool clear = x >= image.width() || qAlpha(image.pixel(x, y)) == 0;
                mask = static_cast<quint8>(mask << 1 | (clear ? 1 : 0));
            }
            out << mask;
        }
    }
}

/// A bitmap without its file header. Its height counts the mask too, so it is twice the picture's.
QByteArray headlessBitmap(const QImage& image)
{
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out.setByteOrder(QDataStream::LittleEndian);
    out << quint32(40) << qint32(image.width()) << qint32(2 * image.height()) << quint16(1) << quint16(32);
    for (int unused = 0; unused < 6; ++unused) // no compression; sizes and colors follow from the above
        out << quint32(0);
    writeColors(out, image);
    writeMask(out, image);
    return bytes;
}

QByteArray pngStream(const QImage& image)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return bytes;
}

} // namespace

QByteArray cursorFile(const QImage& image, const QPoint& hotSpot)
{
    const QImage colors = image.convertToFormat(QImage::Format_ARGB32);
    return container(Kind::Cursor,
                     {{colors.size(), quint16(hotSpot.x()), quint16(hotSpot.y()), headlessBitmap(colors)}});
}

QByteArray iconFile(const QList<QImage>& images)
{
    QList<Entry> entries;
    for (const QImage& image : images)
        entries.append({image.size(), 1, 32, pngStream(image)});
    return container(Kind::Icon, entries);
}

} // namespace orb::drawing
