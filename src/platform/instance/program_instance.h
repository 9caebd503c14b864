// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <functional>
#include <memory>

namespace orb {

class FileLock;
class InstanceServer;

/// One program at a time on one database. The first program to be started holds the database for as long as its process
/// lives; one that was killed holds nothing. Where no lock can be had, as in a folder that can't be written, every
/// program counts as the first.
class ProgramInstance {
public:
    /// Another start asks for the window of this program. `token` is what the desktop gave that start to pass the focus
    /// on with, empty where it gave none. Called from the event loop.
    std::function<void(const QByteArray& token)> onShowRequest;

    /// `database` is the file that the program is about to use, whether or not it exists. The lock stands beside it.
    explicit ProgramInstance(const QString& database);
    ~ProgramInstance();
    ProgramInstance(const ProgramInstance&) = delete;
    ProgramInstance& operator=(const ProgramInstance&) = delete;

    /// False while another program holds the database.
    bool isFirst() const;

    /// Asks the program that holds the database to show its window. False where it could not be reached within two
    /// seconds, as when it belongs to another user.
    bool requestShow(const QByteArray& token) const;

private:
    QString serverName_;
    std::unique_ptr<FileLock> lock_;
    std::unique_ptr<InstanceServer> server_;
};

} // namespace orb
