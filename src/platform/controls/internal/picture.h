// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QIcon>
#include <QPixmap>

namespace orb {

/// The picture in the file that `literal` means (see `realPath`). Throws `RuntimeFailure` 53 where there is no such
/// file, 481 where it holds no picture. Where "NAME@2x.png" stands beside "NAME.png", it is read instead, as a picture of
/// the same size with twice the pixels.
QPixmap loadPicture(const QString& literal);

/// The picture as an icon, which reads its file when it is first painted: pages that no one opens cost nothing. Throws
/// as `loadPicture` does where the file does not begin as a picture; one that is damaged further on paints nothing.
QIcon pictureIcon(const QString& literal);

} // namespace orb
