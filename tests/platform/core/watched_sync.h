// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <functional>

namespace orb {

/// Reports every file and folder for which the program waits until the disk holds it, before it waits.
class WatchedSync {
public:
    explicit WatchedSync(std::function<void(const QString& path)> onSync);
    ~WatchedSync();
    WatchedSync(const WatchedSync&) = delete;
    WatchedSync& operator=(const WatchedSync&) = delete;
};

} // namespace orb
