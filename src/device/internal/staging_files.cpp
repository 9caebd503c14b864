// SPDX-License-Identifier: GPL-3.0-or-later
#include "staging_files.h"

#include "orb_ctrl.h"
#include "paths.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QtEndian>

namespace orb {

namespace {

/// False where the folder is not the user's own. Throws where it can't be created.
bool prepareFolder()
{
    if (QFileInfo::exists(realPath(staging::folder)) && !belongsToUser(staging::folder))
        return false;
    createFolder(staging::folder); // gives an existing one its mode
    return true;
}

bool isStagingFile(const QString& path)
{
    const QFileInfo file(path);
    return file.isFile() && belongsToUser(path) && !file.permission(QFile::WriteOther);
}

} // namespace

bool writeStagingFile(const QString& literal, const QByteArray& data) noexcept
{
    try {
        if (!prepareFolder())
            return false;
        const QString path = realPath(literal);
        if (!isStagingFile(path))
            QFile::remove(path); // QSaveFile would write to the target of a link
        QSaveFile file(path);
        return file.open(QIODevice::WriteOnly) && file.write(data) == data.size() && file.commit();
    } catch (...) {
        return false;
    }
}

std::optional<QByteArray> readStagingFile(const QString& literal, qint64 longest) noexcept
{
    try {
        QFile file(realPath(literal));
        if (!prepareFolder() || !isStagingFile(file.fileName()) || !file.open(QIODevice::ReadOnly))
            return std::nullopt;
        QByteArray content = file.read(longest + 1);
        return content.size() <= longest ? std::optional(std::move(content)) : std::nullopt;
    } catch (...) {
        return std::nullopt;
    }
}

bool isBitmap(const QByteArray& data)
{
    constexpr qsizetype headers = 14 + 40; // of the file and of the picture
    return data.size() > headers && data.startsWith("BM") &&
           qFromLittleEndian<quint32>(data.constData() + 2) == static_cast<quint32>(data.size());
}

} // namespace orb
