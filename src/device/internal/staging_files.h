// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace orb {

/// The staging files (see `staging`) stand in a folder of the user's own, mode 0700, which is created where it is
/// missing. A folder that is a link or belongs to another user is not used. A staging file is a regular file of the
/// user's own that others can't write to; whatever else has its name is replaced and never read.

/// Writes a staging file by way of a temporary file, so that it is either whole and new, or what it was. False where
/// it can't be written.
bool writeStagingFile(const QString& literal, const QByteArray& data) noexcept;

/// The content of a staging file; nothing where it can't be read or has more than `longest` bytes.
std::optional<QByteArray> readStagingFile(const QString& literal, qint64 longest) noexcept;

/// True for a whole Windows bitmap that can be shown: its headers state the length that the data have, a picture of at
/// most 4096 by 4096 pixels, and pixels that are all there.
bool isBitmap(const QByteArray& data);

} // namespace orb
