// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "simulator_configuration.h"

#include <QString>
#include <QStringList>

#include <stdexcept>

namespace orb {

/// The command line.
struct Arguments {
    enum class Job { Serve, Help, Version, Commands, Console, Modules, Errors };

    Job job = Job::Serve;
    quint16 port = 0;
    SimulatorConfiguration configuration;
    /// Empty where none was given.
    QString faultsPath;
    QString servedPath;
    /// The text of --help.
    QString help;
};

/// An invalid command line; `what()` is the reason.
class ArgumentError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Reads the command line, with the name of the program first. Throws `ArgumentError`.
Arguments readArguments(const QStringList& words);

} // namespace orb
