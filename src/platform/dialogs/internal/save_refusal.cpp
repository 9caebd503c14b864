// SPDX-License-Identifier: GPL-3.0-or-later
#include "save_refusal.h"

#include <QDir>
#include <QFileInfo>
#include <QStorageInfo>
#include <QTemporaryFile>

namespace orb {

namespace {

constexpr qint64 leastSpace = 64 * 1024;

bool canBeOpened(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::Append | QIODevice::ExistingOnly);
}

QString shown(const QString& path)
{
    return QDir::toNativeSeparators(path);
}

} // namespace

bool takesFiles(const QString& folder)
{
    QTemporaryFile file(QDir(folder).filePath(QStringLiteral(".orb-XXXXXX")));
    return file.open();
}

qint64 bytesAvailableIn(const QString& folder)
{
    const QStorageInfo storage(folder);
    return storage.isValid() && storage.isReady() && storage.bytesTotal() > 0 ? storage.bytesAvailable() : -1;
}

QString saveRefusal(const QString& path, qint64 bytesAvailable)
{
    const QFileInfo file(path);
    const QDir folder(file.path());
    if (file.isDir())
        return QStringLiteral("This is a folder. Please enter the name of a file:\n") + shown(path);
    if (!folder.exists())
        return QStringLiteral("There is no such folder:\n") + shown(folder.path());
    if (file.exists() && !canBeOpened(path))
        return QStringLiteral("This file can't be written:\n") + shown(path);
    if (!file.exists() && !takesFiles(folder.path()))
        return QStringLiteral("No file can be written in this folder:\n") + shown(folder.path());
    if (bytesAvailable >= 0 && bytesAvailable + file.size() < leastSpace) // the file's own space becomes free
        return QStringLiteral("The disk is full:\n") + shown(folder.path());
    return {};
}

} // namespace orb
