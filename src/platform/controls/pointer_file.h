// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCursor>
#include <QString>

namespace orb {

/// The mouse pointer in the Windows cursor file that `literal` means (see `realPath`), with its hot spot. Throws
/// `RuntimeFailure` 53 where there is no such file, 481 where it holds no pointer.
QCursor loadPointer(const QString& literal);

} // namespace orb
