// SPDX-License-Identifier: GPL-3.0-or-later
#include "picture.h"

#include "failure.h"
#include "paths.h"

#include <QFileInfo>
#include <QImageReader>

namespace orb {

QPixmap loadPicture(const QString& literal)
{
    QImageReader reader(pictureFile(literal));
    reader.setDecideFormatFromContent(true);
    const QImage image = reader.read();
    if (image.isNull())
        throw RuntimeFailure(failure::InvalidPicture);
    return QPixmap::fromImage(image);
}

QString pictureFile(const QString& literal)
{
    const QString path = realPath(literal);
    if (!QFileInfo(path).isFile())
        throw RuntimeFailure(failure::FileNotFound);
    QImageReader reader(path);
    reader.setDecideFormatFromContent(true);
    if (!reader.size().isValid())
        throw RuntimeFailure(failure::InvalidPicture);
    return path;
}

void savePicture(const QPixmap& picture, const QString& literal)
{
    if (!picture.save(realPath(literal), "BMP"))
        throw RuntimeFailure(failure::PathFileAccessError);
}

} // namespace orb
