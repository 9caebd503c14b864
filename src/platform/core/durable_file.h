// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace orb {

/// Waits until the disk holds what was written to the file at `path`. Throws `RuntimeFailure` 61 where the disk is full,
/// 57 on any other error.
void syncFile(const QString& path);

/// Gives the file at `from` the name `to` in the same folder, and waits until the disk holds the new name. What has that
/// name already stays: false then. Throws `RuntimeFailure` 57 on any error.
bool renameDurably(const QString& from, const QString& to);

} // namespace orb
