// SPDX-License-Identifier: GPL-3.0-or-later
#include "staging_files.h"

#include "orb_ctrl.h"
#include "paths.h"

#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QTemporaryFile>
#include <QtEndian>

#include <cstdlib>
#include <filesystem>

namespace orb {

namespace {

/// False where the folder is not the user's own. Throws where it can't be created.
bool prepareFolder()
{
    if (QFileInfo::exists(realPath(staging::folder)) && !belongsToUser(staging::folder))
        return false;
    createFolder(staging::folder); // gives an existing one its mode
    return true;
}

bool isStagingFile(const QString& path)
{
    const QFileInfo file(path);
    return file.isFile() && belongsToUser(path) && !file.permission(QFile::WriteOther);
}

constexpr qint64 fileHeader = 14;
constexpr qint64 pictureHeader = 40;
constexpr qint64 longestSide = 4096;

/// Not a QSaveFile, which waits for the disk: a staging file need not outlive a failure of the power. The old file goes
/// first, since ext4 writes a file out at once that is renamed over another. A folder in its place stays.
bool replaceFile(const QString& path, const QByteArray& data)
{
    QTemporaryFile file(path + QStringLiteral(".XXXXXX"));
    if (!file.open() || file.write(data) != data.size() || !file.flush())
        return false;
    file.close();
    QFile::remove(path);
    std::error_code failed;
    std::filesystem::rename(QFileInfo(file.fileName()).filesystemFilePath(), QFileInfo(path).filesystemFilePath(),
                            failed);
    file.setAutoRemove(bool(failed));
    return !failed;
}

struct BitmapHead {
    qint64 fileSize;
    qint64 pixelsAt;
    qint64 headerSize;
    qint64 width;
    qint64 height; ///< a picture from the top down has a negative one in the file
    int planes;
    int bits; ///< of a pixel
    quint32 compression;
};

template <typename Number> Number numberAt(const QByteArray& data, qsizetype at)
{
    return qFromLittleEndian<Number>(data.constData() + at);
}

BitmapHead readHead(const QByteArray& data)
{
    return {numberAt<quint32>(data, 2),
            numberAt<quint32>(data, 10),
            numberAt<quint32>(data, 14),
            numberAt<qint32>(data, 18),
            std::abs(static_cast<qint64>(numberAt<qint32>(data, 22))),
            numberAt<quint16>(data, 26),
            numberAt<quint16>(data, 28),
            numberAt<quint32>(data, 30)};
}

bool hasShape(const BitmapHead& head)
{
    return head.headerSize >= pictureHeader && head.width > 0 && head.width <= longestSide && head.height > 0 &&
           head.height <= longestSide && head.planes == 1;
}

/// Without compression, the pixels of one row after the other, each row filled up to whole words.
bool pixelsFit(const BitmapHead& head)
{
    const qint64 row = (head.width * head.bits + 31) / 32 * 4;
    return head.pixelsAt >= fileHeader + head.headerSize && head.pixelsAt + row * head.height <= head.fileSize;
}

/// A bitmap with a table of colors, or with compressed pixels, shows only when it is read whether it is whole.
bool hasPixels(const BitmapHead& head, const QByteArray& data)
{
    const bool isPlain = head.compression == 0;
    if (isPlain && !pixelsFit(head))
        return false;
    const bool isTrueColor = head.bits == 16 || head.bits == 24 || head.bits == 32;
    return (isPlain && isTrueColor) || !QImage::fromData(data, "BMP").isNull();
}

} // namespace

bool writeStagingFile(const QString& literal, const QByteArray& data) noexcept
{
    try {
        if (!prepareFolder())
            return false;
        return replaceFile(realPath(literal), data);
    } catch (...) {
        return false;
    }
}

std::optional<QByteArray> readStagingFile(const QString& literal, qint64 longest) noexcept
{
    try {
        QFile file(realPath(literal));
        if (!prepareFolder() || !isStagingFile(file.fileName()) || !file.open(QIODevice::ReadOnly))
            return std::nullopt;
        QByteArray content = file.read(longest + 1);
        return content.size() <= longest ? std::optional(std::move(content)) : std::nullopt;
    } catch (...) {
        return std::nullopt;
    }
}

bool isBitmap(const QByteArray& data)
{
    if (data.size() <= fileHeader + pictureHeader || !data.startsWith("BM"))
        return false;
    const BitmapHead head = readHead(data);
    return head.fileSize == data.size() && hasShape(head) && hasPixels(head, data);
}

} // namespace orb
