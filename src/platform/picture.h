// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPixmap>

namespace orb {

/// The picture in the file that `literal` means (see `realPath`). Throws `RuntimeFailure` 53 where there is no such
/// file, 481 where it holds no picture.
QPixmap loadPicture(const QString& literal);

/// The file that `literal` means, once it is known to begin as a picture does. Throws as `loadPicture` does, but does
/// not read the whole of it.
QString pictureFile(const QString& literal);

/// Writes `picture` as a Windows bitmap, whatever the name's ending is. Throws `RuntimeFailure` 75 where that fails.
void savePicture(const QPixmap& picture, const QString& literal);

} // namespace orb
