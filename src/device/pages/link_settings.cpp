// SPDX-License-Identifier: GPL-3.0-or-later
#include "link_settings.h"

#include <QFileInfo>
#include <QSettings>
#include <QStandardPaths>

#include <algorithm>

namespace orb {

namespace {

constexpr qint64 longestFile = 64 * 1024;

const QString lastKey = QStringLiteral("link/last");
const QString recentKey = QStringLiteral("link/recent");
const QString choicesKey = QStringLiteral("link/choices"); // one text for each recent link, its choices with commas

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
    const QStringList choices = settings.value(choicesKey).toStringList();
    for (qsizetype i = 0; i < std::min(names.size(), choices.size()); ++i)
        if (recent_.contains(names[i]) && !choices[i].isEmpty())
            choices_[names[i]] = choices[i].left(longestName).split(QLatin1Char(','));
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

void LinkSettings::use(const QString& resourceName, const QStringList& choices)
{
    last_ = resourceName;
    remember(resourceName);
    choices_[resourceName] = choices;
    QStringList recentChoices;
    for (const QString& recent : recent_)
        recentChoices += choices_.value(recent).join(QLatin1Char(','));
    QSettings settings(file_, QSettings::IniFormat);
    settings.setValue(lastKey, last_);
    settings.setValue(recentKey, recent_);
    settings.setValue(choicesKey, recentChoices);
}

} // namespace orb
