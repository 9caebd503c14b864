// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "printing.h"

#include <QDir>
#include <QProcess>
#include <QTemporaryDir>

#include <gmock/gmock.h>

namespace orb {

/// A folder of its own with the real programs and the files beside them, and a place for their temporary files.
class ProgramFolder {
public:
    ProgramFolder();

    QString filePath(const QString& name) const { return folder_.filePath(name); }
    /// The environment of a program: without a screen, with a home of its own.
    QProcessEnvironment environment() const;

private:
    /// Beside the programs that were built, since a hard link can't leave its file system.
    QTemporaryDir folder_;
    QTemporaryDir temporary_; ///< a short path, as that of a local socket has to be
};

/// A real program as a process, killed at the end.
class ProgramProcess {
public:
    explicit ProgramProcess(const ProgramFolder& folder) : folder_(folder) {}
    ~ProgramProcess() { kill(); }
    ProgramProcess(const ProgramProcess&) = delete;
    ProgramProcess& operator=(const ProgramProcess&) = delete;

    void start(const QString& name, const QStringList& arguments = {});
    /// Starts it in a shell that has run `before` as the root of a mount table of its own: what is mounted there is
    /// seen by this process alone. The shell ends where `before` fails.
    void startAfter(const QString& before, const QString& name, const QStringList& arguments);
    /// By SIGKILL.
    void kill();
    bool isRunning() const { return process_.state() != QProcess::NotRunning; }
    /// Waits until the process has ended, or has written `text` to either output. False where it ended without, or a
    /// minute passed.
    bool waitFor(const QByteArray& text) { return waitForEither(text, text); }
    bool waitForEither(const QByteArray& text, const QByteArray& other);
    /// The exit status, once the process has ended; -1 where it runs on for a minute or crashed.
    int exitStatus();

    /// What it has written so far.
    const QByteArray& output() const { return output_; }
    const QByteArray& errors() const { return errors_; }

private:
    void read(int ms);

    const ProgramFolder& folder_;
    QProcess process_;
    QByteArray output_;
    QByteArray errors_;
};

} // namespace orb
