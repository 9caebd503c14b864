// SPDX-License-Identifier: GPL-3.0-or-later
#include "arguments.h"
#include "termination.h"

#include "console_catalogue.h"
#include "simulator_manual.h"
#include "simulator_server.h"
#include "version.h"

#include <QCoreApplication>
#include <QFile>

#include <cstdio>
#include <iostream>

namespace {

constexpr int badArguments = 2;
constexpr int failed = 1;

int reportError(const std::string& reason, int code)
{
    std::cerr << "orb-simulator: " << reason << '\n';
    return code;
}

int print(const std::string& text)
{
    std::cout << text << std::flush;
    return std::cout ? 0 : failed;
}

/// Throws `std::runtime_error` for a script that can't be opened or read.
orb::FaultScript readFaults(const QString& path)
{
    constexpr qint64 longest = 1024 * 1024;
    if (path.isEmpty())
        return {};
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw std::runtime_error(path.toStdString() + ": " + file.errorString().toStdString());
    const QByteArray text = file.read(longest);
    if (!file.atEnd())
        throw std::runtime_error(path.toStdString() + ": the script is longer than 1 MiB");
    try {
        return orb::FaultScript::parse(text.toStdString());
    } catch (const orb::FaultScriptError& error) {
        throw std::runtime_error(path.toStdString() + ": " + error.what());
    }
}

int serve(const QCoreApplication& application, const orb::Arguments& arguments)
{
    orb::SimulatedInstrument instrument(arguments.configuration);
    orb::SimulatorServer server(instrument, readFaults(arguments.faultsPath));
    if (!arguments.servedPath.isEmpty() && !server.writeServedTo(arguments.servedPath))
        return reportError(arguments.servedPath.toStdString() + ": can't be written", failed);
    if (!server.listen(arguments.port))
        return reportError("port " + std::to_string(arguments.port) + ": " + server.errorText().toStdString(), failed);
    QObject context;
    orb::onTermination(context, [] { QCoreApplication::quit(); });
    print("port " + std::to_string(server.port()) + '\n');
    return application.exec();
}

int run(const QCoreApplication& application, const orb::Arguments& arguments)
{
    switch (arguments.job) {
    case orb::Arguments::Job::Help:
        return print(arguments.help.toStdString());
    case orb::Arguments::Job::Version:
        return print("orb-simulator " + orb::programVersion().toStdString() + '\n');
    case orb::Arguments::Job::Commands:
        return print(orb::commandsManual());
    case orb::Arguments::Job::Console:
        return print(orb::commandCatalogue());
    case orb::Arguments::Job::Modules:
        return print(orb::modulesManual());
    case orb::Arguments::Job::Errors:
        return print(orb::errorsManual());
    case orb::Arguments::Job::Serve:
        break;
    }
    return serve(application, arguments);
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    try {
        return run(application, orb::readArguments(QCoreApplication::arguments()));
    } catch (const orb::ArgumentError& error) {
        return reportError(std::string(error.what()) + "; --help lists the options", badArguments);
    } catch (const std::exception& error) {
        return reportError(error.what(), failed);
    }
}
