// SPDX-License-Identifier: GPL-3.0-or-later
#include "paths.h"

#include "durable_file.h"
#include "failure.h"

#include <QDir>
#include <QFile>
#include <QStandardPaths>
#include <QTemporaryFile>

#include <optional>

#ifndef Q_OS_WIN
#include <unistd.h>
#endif

namespace orb {

namespace {

#ifndef Q_OS_WIN
const QString stagingLiteral = QStringLiteral("c:/temp");

QString stagingFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation) + QStringLiteral("/orb/temp");
}

/// The entry of `folder` that `name` means: the one of that very name, else the first that differs in case alone.
QString entryOf(const QString& folder, const QString& name)
{
    const QDir dir(folder);
    if (QFileInfo::exists(dir.filePath(name)))
        return name;
    const auto entries = dir.entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name);
    for (const QString& entry : entries)
        if (entry.compare(name, Qt::CaseInsensitive) == 0)
            return entry;
    return name;
}

QString matchingCase(const QString& path)
{
    if (QFileInfo::exists(path))
        return path;
    const qsizetype slash = path.lastIndexOf(QLatin1Char('/'));
    if (slash < 0)
        return entryOf(QStringLiteral("."), path);
    const QString folder = slash == 0 ? QStringLiteral("/") : matchingCase(path.left(slash));
    const QString name = path.mid(slash + 1);
    return QDir(folder).filePath(name.isEmpty() ? name : entryOf(folder, name));
}
#endif

} // namespace

QString realPath(const QString& literal)
{
#ifdef Q_OS_WIN
    return literal;
#else
    QString path = literal;
    path.replace(QLatin1Char('\\'), QLatin1Char('/'));
    const bool isStaging = path.startsWith(stagingLiteral, Qt::CaseInsensitive) &&
                           (path.size() == stagingLiteral.size() || path[stagingLiteral.size()] == QLatin1Char('/'));
    if (isStaging)
        path.replace(0, stagingLiteral.size(), stagingFolder());
    return matchingCase(path);
#endif
}

bool fileExists(const QString& literal)
{
    return QFileInfo(realPath(literal)).isFile();
}

bool folderExists(const QString& literal)
{
    return QFileInfo(realPath(literal)).isDir();
}

bool belongsToUser(const QString& literal)
{
    const QFileInfo file(realPath(literal));
#ifdef Q_OS_WIN
    return file.exists();
#else
    return file.exists() && !file.isSymLink() && file.ownerId() == ::geteuid();
#endif
}

void createFolder(const QString& literal)
{
    const QString path = realPath(literal);
    if (!QDir().mkpath(path) || !QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner))
        throw RuntimeFailure(failure::PathFileAccessError);
}

void deleteFile(const QString& literal)
{
    const QString path = realPath(literal);
    if (!QFileInfo::exists(path))
        throw RuntimeFailure(failure::FileNotFound);
    if (!QFile::remove(path))
        throw RuntimeFailure(failure::PathFileAccessError);
}

namespace {

const QString database = QStringLiteral("/orb.mdb");
const QString examples = QStringLiteral("/examples");

/// False for a file without the permission to write even where the user, as an administrator, could do it.
bool canBeWritten(const QString& path)
{
    const QFileInfo file(path);
    return file.isWritable() && file.permission(QFile::WriteOwner);
}

/// The bytes of the file. None where it can't be opened, and a failure where it can't be read to its end.
std::optional<QByteArray> contentOf(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return std::nullopt;
    const QByteArray content = file.readAll();
    if (file.error() != QFile::NoError)
        throw RuntimeFailure(failure::PathFileAccessError);
    return content;
}

/// Copies the file, unless there is one of the new name. The name is given to a copy that the disk holds whole, so that
/// no interruption leaves a part of a file under it. The copy can be written.
void copyUnlessThere(const QString& from, const QString& to)
{
    const auto content = contentOf(from);
    if (!content)
        return;
    QTemporaryFile draft(to + QStringLiteral(".XXXXXX"));
    if (!draft.open() || draft.write(*content) != content->size() || !draft.flush())
        throw RuntimeFailure(failure::PathFileAccessError);
    syncFile(draft.fileName());
    renameDurably(draft.fileName(), to);
}

void createFolderUnlessThere(const QString& path)
{
    if (!folderExists(path))
        createFolder(path);
}

} // namespace

QString userDataFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + QStringLiteral("/orb");
}

Paths Paths::forUser(const QString& executableDirectory)
{
    const QString file = executableDirectory + database;
    const bool isOwn = QFileInfo(executableDirectory).isWritable() && (!QFileInfo::exists(file) || canBeWritten(file));
    return isOwn ? Paths(executableDirectory) : Paths(executableDirectory, userDataFolder());
}

QString Paths::inApplication(const QString& literal) const
{
    const QString own = toWrite(literal);
    return QFileInfo::exists(realPath(own)) ? own : executableDirectory_ + literal;
}

void Paths::createOwnDirectory() const
{
    if (ownDirectory_ == executableDirectory_ || QFileInfo::exists(ownDirectory_ + database))
        return;
    createFolderUnlessThere(ownDirectory_);
    const QDir from(executableDirectory_ + examples);
    if (from.exists())
        createFolderUnlessThere(ownDirectory_ + examples);
    for (const QString& name : from.entryList(QDir::Files))
        copyUnlessThere(from.filePath(name), ownDirectory_ + examples + QLatin1Char('/') + name);
    // The last one, since a start that finds it has nothing left to copy.
    copyUnlessThere(executableDirectory_ + database, ownDirectory_ + database);
}

} // namespace orb
