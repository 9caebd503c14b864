// SPDX-License-Identifier: GPL-3.0-or-later
#include "picture.h"

#include "failure.h"
#include "paths.h"

#include <QImageReader>

namespace orb {

QPixmap loadPicture(const QString& literal)
{
    if (!fileExists(literal))
        throw RuntimeFailure(failure::FileNotFound);
    QImageReader reader(realPath(literal));
    reader.setDecideFormatFromContent(true);
    const QImage image = reader.read();
    if (image.isNull())
        throw RuntimeFailure(failure::InvalidPicture);
    return QPixmap::fromImage(image);
}

void savePicture(const QPixmap& picture, const QString& literal)
{
    if (!picture.save(realPath(literal), "BMP"))
        throw RuntimeFailure(failure::PathFileAccessError);
}

} // namespace orb
