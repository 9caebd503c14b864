// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace orb {

/// Starts the program in the application folder `folder` as the real one starts, prints "started", and records under
/// accelerated time until the process is killed: a second takes as long as its row takes to be written. The first
/// channel's current is `run`, its voltage the number of the sample. Before each sample it prints how many rows are
/// shown. Now and then it saves the log.
int record(const QString& folder, int run);

/// Starts the program in the same way and ends.
int startOnly(const QString& folder);

} // namespace orb
