// SPDX-License-Identifier: GPL-3.0-or-later
#include "staging_files.h"

#include "orb_ctrl.h"
#include "paths.h"

#include <QFile>
#include <QSaveFile>
#include <QtEndian>

namespace orb {

bool writeStagingFile(const QString& literal, const QByteArray& data) noexcept
{
    try {
        if (!folderExists(staging::folder))
            createFolder(staging::folder);
        QSaveFile file(realPath(literal));
        return file.open(QIODevice::WriteOnly) && file.write(data) == data.size() && file.commit();
    } catch (...) {
        return false;
    }
}

std::optional<QByteArray> readStagingFile(const QString& literal, qint64 longest) noexcept
{
    try {
        QFile file(realPath(literal));
        if (!file.open(QIODevice::ReadOnly) || file.size() > longest)
            return std::nullopt;
        return file.readAll();
    } catch (...) {
        return std::nullopt;
    }
}

bool isBitmap(const QByteArray& data)
{
    constexpr qsizetype heads = 14 + 40; // of the file and of the picture
    return data.size() > heads && data.startsWith("BM") &&
           qFromLittleEndian<quint32>(data.constData() + 2) == static_cast<quint32>(data.size());
}

} // namespace orb
