// SPDX-License-Identifier: GPL-3.0-or-later
#include "paths.h"

#include "failure.h"

#include <QDir>
#include <QFile>
#include <QStandardPaths>

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

} // namespace orb
