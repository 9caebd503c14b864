// SPDX-License-Identifier: GPL-3.0-or-later
#include "journal.h"

#include <QEvent>

#include <algorithm>

namespace orb {

void Journal::append(QString text)
{
    for (const auto& [path, shortName] : abbreviations_)
        text.replace(path, shortName);
    text.replace(QLatin1Char('\r'), QStringLiteral("\\r")).replace(QLatin1Char('\n'), QStringLiteral("\\n"));
    lines_.push_back({elapsed ? elapsed() : 0, text});
}

void Journal::write(const QString& line)
{
    update();
    append(line);
}

void Journal::watchText(const void* owner, const std::function<QString()>& read)
{
    watched_.push_back({owner, read, read()});
}

void Journal::watchObject(QObject& object, const QString& name)
{
    names_.push_back({&object, name});
    object.installEventFilter(this);
    QObject::connect(&object, &QObject::destroyed, this, [this](QObject* gone) {
        unwatch(gone);
        std::erase_if(names_, [gone](const Name& entry) { return entry.control == gone; });
    });
}

void Journal::unwatch(const void* owner)
{
    std::erase_if(watched_, [owner](const Watched& entry) { return entry.owner == owner; });
}

void Journal::update()
{
    for (Watched& entry : watched_) {
        const QString now = entry.read();
        if (now.isEmpty() || now == entry.last)
            continue;
        entry.last = now;
        append(now);
    }
}

bool Journal::eventFilter(QObject* object, QEvent* event)
{
    switch (event->type()) {
    case QEvent::ZOrderChange:
        for (const Name& entry : names_)
            if (entry.control == object)
                write(QStringLiteral("raise ") + entry.name);
        break;
    case QEvent::ShowToParent:
    case QEvent::HideToParent:
    case QEvent::EnabledChange:
    case QEvent::Move:
    case QEvent::Resize:
        update();
        break;
    default:
        break;
    }
    return false;
}

QStringList Journal::select(const std::function<bool(const QString& kind)>& isWanted)
{
    update();
    QStringList texts;
    for (const Line& line : lines_)
        if (isWanted(line.text.section(QLatin1Char(' '), 0, 0)))
            texts << line.text;
    return texts;
}

QStringList Journal::lines()
{
    return linesWithout({});
}

QStringList Journal::linesOf(const QStringList& kinds)
{
    return select([&](const QString& kind) { return kinds.contains(kind); });
}

QStringList Journal::linesWithout(const QStringList& kinds)
{
    return select([&](const QString& kind) { return !kinds.contains(kind); });
}

QStringList Journal::timedLines()
{
    update();
    QStringList texts;
    for (const Line& line : lines_)
        texts << QStringLiteral("%1 %2").arg(line.at).arg(line.text);
    return texts;
}

void Journal::clear()
{
    update();
    lines_.clear();
}

} // namespace orb
