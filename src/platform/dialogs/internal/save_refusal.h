// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace orb {

/// True where a file can be made in the folder: permissions tell too little, since the file system may be read-only, or
/// the user one whom they do not bind. The file does not stay.
bool takesFiles(const QString& folder);

/// The bytes that can still be written where `folder` is; nothing is known where the result is negative.
qint64 bytesAvailableIn(const QString& folder);

/// Why no file can be written at `path`, as a sentence for the operator; empty where nothing is known against it. An
/// existing file is opened and not changed. `bytesAvailable` is what is left on its disk, negative where that is not
/// known.
QString saveRefusal(const QString& path, qint64 bytesAvailable);

} // namespace orb
