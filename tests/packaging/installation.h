// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QProcess>
#include <QTemporaryDir>

#include <string>

namespace orb {

/// A command to run, and what came of it.
struct CommandResult {
    int exitCode = -1; ///< -1 where it did not end by itself
    std::string output;
    std::string errorOutput;
};

/// Runs a command to its end, which it must reach within 100 seconds.
CommandResult runCommand(const QString& program, const QStringList& arguments,
                         const QProcessEnvironment& environment = QProcessEnvironment::systemEnvironment());

/// The program of that name, of this machine. Empty where it is not installed.
QString toolPath(const QString& name);

/// A folder into which the build is installed as into the root of a file system, below /usr, and the home of a user who
/// must not write anywhere else.
class Installation {
public:
    Installation();
    ~Installation();
    Installation(const Installation&) = delete;
    Installation& operator=(const Installation&) = delete;

    /// The user whom `runAsUser` runs a program as.
    static QString userName();

    /// Installs the build. What comes of it.
    CommandResult install() const;

    /// A path below the root, such as "usr/bin/orb", or below the user's home.
    QString path(const QString& name) const { return root_.filePath(name); }
    QString home(const QString& name) const { return root_.filePath(QStringLiteral("home/") + name); }

    /// All files and links below usr, a line each, sorted: path, size and time of the last change.
    QStringList files() const;
    /// Their paths alone.
    QStringList names() const;

    /// Runs an installed program as the user: as nobody where the test runs as root, else without the right to write
    /// below usr. `environment` adds to an environment with the user's home.
    CommandResult runAsUser(const QString& program, const QStringList& arguments,
                            const QMap<QString, QString>& environment = {}) const;

private:
    QTemporaryDir root_;
};

} // namespace orb
