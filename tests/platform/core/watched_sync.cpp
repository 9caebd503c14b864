// SPDX-License-Identifier: GPL-3.0-or-later
#include "watched_sync.h"

#include <QFile>

#include <sys/syscall.h>
#include <unistd.h>

namespace orb {

namespace {
std::function<void(const QString& path)> watcher;
} // namespace

WatchedSync::WatchedSync(std::function<void(const QString& path)> onSync)
{
    watcher = std::move(onSync);
}

WatchedSync::~WatchedSync()
{
    watcher = nullptr;
}

} // namespace orb

/// Takes the place of the C library's function in this program.
extern "C" int fsync(int file)
{
    if (orb::watcher)
        orb::watcher(QFile::symLinkTarget(QStringLiteral("/proc/self/fd/%1").arg(file)));
    return static_cast<int>(::syscall(SYS_fsync, file));
}
