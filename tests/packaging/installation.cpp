// SPDX-License-Identifier: GPL-3.0-or-later
#include "installation.h"

#include "directories.h"

#include <QDateTime>
#include <QDir>
#include <QDirIterator>
#include <QStandardPaths>

#include <pwd.h>
#include <unistd.h>

namespace orb {

namespace {

constexpr int limitMs = 100'000;

const passwd* otherUser()
{
    return ::geteuid() == 0 ? ::getpwnam("nobody") : nullptr;
}

/// Takes the right to write away from the folder and all folders in it, or gives it back.
void setWritable(const QString& folder, bool isWritable)
{
    const auto set = [isWritable](const QString& path) {
        const auto permissions = QFile::permissions(path);
        QFile::setPermissions(path, isWritable ? permissions | QFile::WriteOwner : permissions & ~QFile::WriteOwner);
    };
    set(folder);
    QDirIterator all(folder, QDir::Dirs | QDir::NoDotAndDotDot, QDirIterator::Subdirectories);
    while (all.hasNext())
        set(all.next());
}

} // namespace

CommandResult runCommand(const QString& program, const QStringList& arguments, const QProcessEnvironment& environment)
{
    QProcess process;
    process.setProcessEnvironment(environment);
    process.start(program, arguments);
    CommandResult result;
    if (process.waitForFinished(limitMs) && process.exitStatus() == QProcess::NormalExit)
        result.exitCode = process.exitCode();
    process.kill();
    process.waitForFinished(limitMs);
    result.output = process.readAllStandardOutput().toStdString();
    result.errorOutput = process.readAllStandardError().toStdString();
    return result;
}

QString toolPath(const QString& name)
{
    return QStandardPaths::findExecutable(name);
}

Installation::Installation()
{
    QDir(root_.path()).mkdir(QStringLiteral("home"));
    QFile::setPermissions(root_.path(), QFile::permissions(root_.path()) | QFile::ReadOther | QFile::ExeOther);
    if (const passwd* user = otherUser())
        (void)!::chown(QFile::encodeName(home(QString())).constData(), user->pw_uid, user->pw_gid);
}

Installation::~Installation()
{
    setWritable(path(QStringLiteral("usr")), true); // or the folder could not be removed
}

QString Installation::userName()
{
    const passwd* user = otherUser() ? otherUser() : ::getpwuid(::geteuid());
    return user ? QString::fromLocal8Bit(user->pw_name) : QString();
}

CommandResult Installation::install() const
{
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("DESTDIR"), root_.path());
    const QString build = QDir::cleanPath(binaryDirectory() + QStringLiteral("/.."));
    return runCommand(QStringLiteral("cmake"),
                      {QStringLiteral("--install"), build, QStringLiteral("--prefix"), QStringLiteral("/usr")},
                      environment);
}

QStringList Installation::files() const
{
    QStringList lines;
    QDirIterator all(path(QStringLiteral("usr")), QDir::Files | QDir::System | QDir::Hidden,
                     QDirIterator::Subdirectories);
    while (all.hasNext()) {
        all.next();
        const QFileInfo file = all.fileInfo();
        lines << QStringLiteral("%1 %2 %3")
                     .arg(QDir(root_.path()).relativeFilePath(file.filePath()))
                     .arg(file.size())
                     .arg(file.lastModified().toString(Qt::ISODateWithMs));
    }
    lines.sort();
    return lines;
}

QStringList Installation::names() const
{
    QStringList names;
    for (const QString& line : files())
        names << line.section(QLatin1Char(' '), 0, 0);
    return names;
}

CommandResult Installation::runAsUser(const QString& program, const QStringList& arguments,
                                      const QMap<QString, QString>& environment) const
{
    auto whole = QProcessEnvironment::systemEnvironment();
    for (const char* folder : {"XDG_DATA_HOME", "XDG_CONFIG_HOME", "XDG_CACHE_HOME", "XDG_RUNTIME_DIR"})
        whole.remove(QLatin1String(folder));
    whole.insert(QStringLiteral("HOME"), home(QString()));
    whole.insert(QStringLiteral("TMPDIR"), home(QString()));
    for (auto entry = environment.begin(); entry != environment.end(); ++entry)
        whole.insert(entry.key(), entry.value());
    if (!otherUser()) {
        setWritable(path(QStringLiteral("usr")), false);
        return runCommand(path(program), arguments, whole);
    }
    const QStringList user{QStringLiteral("--reuid=nobody"), QStringLiteral("--regid=nogroup"),
                           QStringLiteral("--clear-groups"), path(program)};
    return runCommand(QStringLiteral("setpriv"), user + arguments, whole);
}

} // namespace orb
