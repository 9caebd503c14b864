// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDateTime>
#include <QString>

#include <functional>

struct sqlite3;

namespace orb {

/// An open database file, shared by the databases, recordsets and statements on it.
class Connection {
public:
    /// Opens the file at `path`, which must be absolute; see `Workspace::openDatabase`. `now` is the result of now().
    Connection(const QString& path, std::function<QDateTime()> now);
    ~Connection() { close(); }
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    const QString& path() const { return path_; }
    bool isOpen() const { return handle_ != nullptr; }
    /// Finalizes all statements and closes the file. A second call does nothing.
    void close();

    /// Throws 3420 once closed.
    sqlite3* handle() const
    {
        if (!handle_)
            throwClosed();
        return handle_;
    }

private:
    [[noreturn]] static void throwClosed();

    QString path_;
    std::function<QDateTime()> now_;
    sqlite3* handle_;
};

} // namespace orb
