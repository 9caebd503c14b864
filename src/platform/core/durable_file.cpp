// SPDX-License-Identifier: GPL-3.0-or-later
#include "durable_file.h"

#include "failure.h"

#include <QFile>
#include <QFileInfo>

#ifdef Q_OS_UNIX
#include <cerrno>
#include <fcntl.h>
#include <unistd.h>
#else
#include <io.h>
#endif

namespace orb {

#ifdef Q_OS_UNIX

namespace {

/// 0, or the number of the system's error.
int syncPath(const QString& path)
{
    const int file = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC);
    if (file < 0)
        return errno;
    const int error = ::fsync(file) == 0 ? 0 : errno;
    ::close(file);
    return error;
}

/// Some file systems have nothing to wait for where a folder is concerned, and say so by an error.
void syncFolder(const QString& path)
{
    syncPath(path);
}

} // namespace

void syncFile(const QString& path)
{
    if (const int error = syncPath(path))
        throw RuntimeFailure(error == ENOSPC || error == EDQUOT ? failure::DiskFull : failure::DeviceIOError);
}

#else

namespace {
void syncFolder(const QString&) {}
} // namespace

void syncFile(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadWrite | QIODevice::ExistingOnly) || ::_commit(file.handle()) != 0)
        throw RuntimeFailure(failure::DeviceIOError);
}

#endif

bool renameDurably(const QString& from, const QString& to)
{
    if (QFile::rename(from, to)) { // which replaces no file
        syncFolder(QFileInfo(to).path());
        return true;
    }
    if (QFileInfo::exists(to))
        return false;
    throw RuntimeFailure(failure::DeviceIOError);
}

} // namespace orb
