// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <memory>

class QLockFile;

namespace orb {

/// A lock that the system takes back when its process ends, however it ends: the file that is left locks nothing.
class FileLock {
public:
    /// Takes the lock unless another process has it. The file is made where it is missing.
    explicit FileLock(const QString& path);
    ~FileLock();
    FileLock(const FileLock&) = delete;
    FileLock& operator=(const FileLock&) = delete;

    /// False also where there can be no lock, for instance in a folder that can't be written.
    bool isHeldByAnother() const { return heldByAnother_; }

private:
    bool heldByAnother_ = false;
#ifdef Q_OS_UNIX
    int file_ = -1;
#else
    std::unique_ptr<QLockFile> file_;
#endif
};

} // namespace orb
