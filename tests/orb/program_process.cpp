// SPDX-License-Identifier: GPL-3.0-or-later
#include "program_process.h"

#include "directories.h"

#include <QDeadlineTimer>

#include <filesystem>

namespace orb {

namespace {
constexpr int limitMs = 60'000;
constexpr int stepMs = 20;
} // namespace

ProgramFolder::ProgramFolder() : folder_(binaryDirectory() + QStringLiteral("/start-XXXXXX"))
{
    const QDir built(binaryDirectory());
    for (const char* name : {"orb", "orb-service", "operated-program"})
        std::filesystem::create_hard_link(built.filePath(name).toStdString(), filePath(name).toStdString());
    for (const char* name : {"orb.mdb", "OrbEmpty.jpg", "orbCommands.dat", "ORBScrBtn.dat"})
        QFile::copy(built.filePath(name), filePath(name));
    QDir(folder_.path()).mkdir(QStringLiteral("ICON"));
    for (const QString& picture : QDir(built.filePath("ICON")).entryList(QDir::Files))
        QFile::copy(built.filePath("ICON/" + picture), filePath("ICON/" + picture));
}

QProcessEnvironment ProgramFolder::environment() const
{
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    environment.insert(QStringLiteral("TMPDIR"), temporary_.path());
    environment.insert(QStringLiteral("HOME"), temporary_.path());
    for (const char* folder : {"XDG_DATA_HOME", "XDG_CONFIG_HOME", "XDG_CACHE_HOME"})
        environment.remove(QLatin1String(folder));
    return environment;
}

void ProgramProcess::start(const QString& name, const QStringList& arguments)
{
    output_.clear();
    errors_.clear();
    process_.setProcessEnvironment(folder_.environment());
    process_.start(folder_.filePath(name), arguments);
}

void ProgramProcess::startAfter(const QString& before, const QString& name, const QStringList& arguments)
{
    output_.clear();
    errors_.clear();
    process_.setProcessEnvironment(folder_.environment());
    process_.start(QStringLiteral("unshare"),
                   QStringList{"--mount", "--map-root-user", "sh", "-ec", before + QStringLiteral("\nexec \"$@\""),
                               "sh", folder_.filePath(name)} +
                       arguments);
}

void ProgramProcess::kill()
{
    process_.kill();
    process_.waitForFinished(limitMs);
}

void ProgramProcess::read(int ms)
{
    process_.waitForReadyRead(ms);
    output_ += process_.readAllStandardOutput();
    errors_ += process_.readAllStandardError();
}

bool ProgramProcess::waitForEither(const QByteArray& text, const QByteArray& other)
{
    const QDeadlineTimer deadline(limitMs);
    const auto isThere = [&] {
        return output_.contains(text) || errors_.contains(text) || output_.contains(other) || errors_.contains(other);
    };
    while (!isThere() && isRunning() && !deadline.hasExpired())
        read(stepMs);
    if (!isRunning())
        read(0);
    return isThere();
}

int ProgramProcess::exitStatus()
{
    const QDeadlineTimer deadline(limitMs);
    while (isRunning() && !deadline.hasExpired())
        read(stepMs);
    read(0);
    return !isRunning() && process_.exitStatus() == QProcess::NormalExit ? process_.exitCode() : -1;
}

} // namespace orb
