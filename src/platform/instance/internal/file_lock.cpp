// SPDX-License-Identifier: GPL-3.0-or-later
#include "file_lock.h"

#include <QFile>

#ifdef Q_OS_UNIX
#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>
#else
#include <QLockFile>
#endif

namespace orb {

#ifdef Q_OS_UNIX

namespace {

/// Another user's file can be read at least, which is enough to lock it. No program that is started from here keeps the
/// lock alive.
int openLockFile(const QString& path)
{
    const QByteArray name = QFile::encodeName(path);
    const int file = ::open(name.constData(), O_RDWR | O_CREAT | O_CLOEXEC, 0666);
    return file >= 0 ? file : ::open(name.constData(), O_RDONLY | O_CLOEXEC);
}

} // namespace

// flock() and not QLockFile, which goes by process number and host name: both can be another program's by now.
FileLock::FileLock(const QString& path) : file_(openLockFile(path))
{
    heldByAnother_ = file_ >= 0 && ::flock(file_, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
}

FileLock::~FileLock()
{
    if (file_ >= 0)
        ::close(file_);
}

#else

FileLock::FileLock(const QString& path) : file_(std::make_unique<QLockFile>(path))
{
    file_->setStaleLockTime(0);
    heldByAnother_ = !file_->tryLock() && file_->error() == QLockFile::LockFailedError;
}

FileLock::~FileLock() = default;

#endif

} // namespace orb
