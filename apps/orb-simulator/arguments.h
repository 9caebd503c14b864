// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "simulator_configuration.h"

#include <QString>
#include <QStringList>

#include <stdexcept>

namespace orb {

/// What the command line asks for.
struct Arguments {
    enum class Job { Serve, Help, Commands, Console, Modules, Errors };

    Job job = Job::Serve;
    quint16 port = 5025;
    SimulatorConfiguration configuration = defaultConfiguration();
    /// Empty where none was given.
    QString faultsPath;
    QString servedPath;
};

/// A command line that can't be read; `what()` says why.
class ArgumentError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Reads the command line, without the name of the program. Throws `ArgumentError`.
Arguments readArguments(const QStringList& words);

/// The text of --help.
QString helpText();

} // namespace orb
