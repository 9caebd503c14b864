// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace orb {

/// Puts `data` into a staging file (see `staging`) and makes the folder where it is missing. The file is either whole
/// and new, or what it was. False where it can't be written.
bool writeStagingFile(const QString& literal, const QByteArray& data) noexcept;

/// The content of a staging file, `longest` bytes at most; nothing where it can't be read or is longer.
std::optional<QByteArray> readStagingFile(const QString& literal, qint64 longest) noexcept;

/// True for a whole Windows bitmap: the file's head names the length that it has.
bool isBitmap(const QByteArray& data);

} // namespace orb
