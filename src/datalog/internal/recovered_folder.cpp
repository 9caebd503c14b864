// SPDX-License-Identifier: GPL-3.0-or-later
#include "recovered_folder.h"

#include "durable_file.h"
#include "failure.h"
#include "text_file.h"

#include <QDateTime>
#include <QDir>
#include <QRegularExpression>

#include <algorithm>
#include <utility>

namespace orb {

namespace {

/// Without the characters that some systems do not allow in a file name.
QString baseName(const QString& time)
{
    const auto known = QDateTime::fromString(time, QStringLiteral("yyyy/MM/dd HH:mm:ss"));
    return known.isValid() ? known.toString(QStringLiteral("yyyy-MM-dd HH-mm-ss"))
                           : QStringLiteral("0000-00-00 00-00-00");
}

bool hasSameBytes(const QString& a, const QString& b)
{
    constexpr qint64 blockSize = 1024 * 1024;
    QFile first(a);
    QFile second(b);
    if (!first.open(QIODevice::ReadOnly) || !second.open(QIODevice::ReadOnly) || first.size() != second.size())
        return false;
    while (!first.atEnd())
        if (first.read(blockSize) != second.read(blockSize))
            return false;
    return true;
}

/// Renames the finished file after its time, with a number where another file has that name. A start that was killed
/// before it emptied the table has put the same rows aside already.
QString giveName(const QString& finished, const QDir& folder, const QString& base)
{
    for (int i = 1;; ++i) {
        const QString name = i == 1 ? base + QStringLiteral(".csv") : QStringLiteral("%1 %2.csv").arg(base).arg(i);
        const QString path = folder.filePath(name);
        if (renameDurably(finished, path))
            return path;
        if (hasSameBytes(finished, path)) {
            QFile::remove(finished);
            return path;
        }
    }
}

void deleteOldest(const QDir& folder, const QString& newest)
{
    static const QRegularExpression ownName(
        QStringLiteral("^\\d{4}-\\d\\d-\\d\\d \\d\\d-\\d\\d-\\d\\d( \\d+)?\\.csv$"));
    QFileInfoList files = folder.entryInfoList({QStringLiteral("*.csv")}, QDir::Files);
    files.removeIf(
        [&](const QFileInfo& file) { return file.filePath() == newest || !ownName.match(file.fileName()).hasMatch(); });
    const auto age = [](const QFileInfo& file) { // files that were copied may all be of one time
        return std::pair(file.lastModified(), file.fileName());
    };
    std::sort(files.begin(), files.end(), [&](const auto& a, const auto& b) { return age(a) > age(b); });
    for (int i = keptRecoveredFiles - 1; i < files.size(); ++i) // the newest one is kept whatever the clock says
        QFile::remove(files[i].filePath());
}

} // namespace

QString addRecoveredFile(const QString& folder, const QString& time, const std::function<void(OutputFile&)>& write)
{
    if (!QDir().mkpath(folder))
        throw RuntimeFailure(failure::PathFileAccessError);
    const QDir dir(folder);
    const QString unfinished = dir.filePath(QStringLiteral("unfinished.part"));
    try {
        OutputFile file(unfinished);
        write(file);
        file.close();
        syncFile(unfinished);
        const QString path = giveName(unfinished, dir, baseName(time));
        deleteOldest(dir, path);
        return path;
    } catch (...) {
        QFile::remove(unfinished);
        throw;
    }
}

} // namespace orb
