// SPDX-License-Identifier: GPL-3.0-or-later
#include "link_settings.h"

#include <QFileInfo>
#include <QSettings>
#include <QStandardPaths>

namespace orb {

namespace {

constexpr qint64 longestFile = 64 * 1024;

const QString lastKey = QStringLiteral("link/last");
const QString recentKey = QStringLiteral("link/recent");

} // namespace

LinkSettings::LinkSettings(const QString& file) : file_(file)
{
    const QFileInfo info(file);
    if (!info.isFile() || info.size() > longestFile)
        return;
    const QSettings settings(file, QSettings::IniFormat);
    last_ = settings.value(lastKey).toString().left(longestName);
    const QStringList names = settings.value(recentKey).toStringList();
    for (auto name = names.rbegin(); name != names.rend(); ++name)
        remember(*name);
}

QString LinkSettings::userFile()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) + QStringLiteral("/orb/link.ini");
}

void LinkSettings::remember(const QString& resourceName)
{
    if (resourceName.isEmpty() || resourceName.size() > longestName)
        return;
    recent_.removeAll(resourceName);
    recent_.prepend(resourceName);
    while (recent_.size() > mostRecent)
        recent_.removeLast();
}

void LinkSettings::use(const QString& resourceName)
{
    last_ = resourceName;
    remember(resourceName);
    QSettings settings(file_, QSettings::IniFormat);
    settings.setValue(lastKey, last_);
    settings.setValue(recentKey, recent_);
}

} // namespace orb
