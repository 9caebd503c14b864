// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

#include <stdexcept>

namespace orb {

/// The command line.
struct FilesArguments {
    enum class Job { Help, Version, Show, MakeSequence, MakeProgram, Check };

    Job job = Job::Help;
    /// The files, in the order in which they were given: one to show, two to make one from the other, any number from 1
    /// on to check.
    QStringList files;
    /// Shows comma-separated values.
    bool csv = false;
    /// The text of --help.
    QString help;
};

/// An invalid command line; `what()` is the reason.
class FilesArgumentError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Reads the command line, with the name of the program first. Throws `FilesArgumentError`.
FilesArguments readFilesArguments(const QStringList& words);

} // namespace orb
