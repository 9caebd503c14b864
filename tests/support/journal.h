// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QStringList>

#include <functional>
#include <typeinfo>
#include <vector>

namespace orb {

/// What all fakes of a test were asked to do, in one order, a line of text each. The first word of a line is its kind:
///
///     send :CHAN 1                      read Reply "1,2"          call ShowControlPage
///     sleep 100                         yield                     timer TimerDisplay on 500
///     message "Delete?" critical YesNo  printer dialog            print orientation 2
///     open directory "APP\" filter "Log(*.scp)|*.scp" title "" name ""    (or save)
///     show fraCommand                   hide fraCommand           raise fraCommand
///     enable cmdStart                   disable cmdStart          picture cmdStart APP\ICON\B1RUNSTOP.jpg
///     move fraCommand 120 960           resize fraCommand 8115 6675
///     report 6: Overflow                exit
///
/// Positions and sizes are in twips. A line end inside a text is written as \r or \n. A control or a timer appears once
/// the test watches it. What a control does while it or its container is hidden, Qt may not notify at once; such a
/// change appears before the next line of any kind, and before the lines are read.
class Journal final : public QObject {
public:
    /// Adds a line, for what a test does itself.
    void write(const QString& line);

    /// Watches a control's visibility, enabled state, place, size, picture and its raising under this name.
    template <typename Control> void watch(Control& control, const QString& name);
    /// Watches a timer's state under this name.
    template <typename Timer> void watchTimer(Timer& timer, const QString& name);
    /// Writes the line that `read` gives whenever it gives another one. `owner` must outlive the journal, or be a
    /// QObject.
    void watchText(const void* owner, const std::function<QString()>& read);
    void unwatch(const void* owner);
    /// Writes what changed in the watched controls and timers since the last time.
    void update();

    QStringList lines();
    /// The lines of these kinds alone.
    QStringList linesOf(const QStringList& kinds);
    /// All lines but those of these kinds.
    QStringList linesWithout(const QStringList& kinds);
    /// Each line with the virtual time, in milliseconds since the start: "300 send A".
    QStringList timedLines();
    /// Forgets the lines. What is watched stays watched.
    void clear();

    /// Every text shows `shortName` in place of `path`.
    void abbreviate(const QString& path, const QString& shortName) { abbreviations_.push_back({path, shortName}); }
    /// Set by the clock.
    std::function<qint64()> elapsed;

    bool eventFilter(QObject* object, QEvent* event) override;

private:
    struct Line {
        qint64 at;
        QString text;
    };
    struct Watched {
        const void* owner;
        std::function<QString()> read;
        QString last;
    };
    struct Name {
        const QObject* control;
        QString name;
    };

    void watchObject(QObject& object, const QString& name);
    void append(QString text);
    QStringList select(const std::function<bool(const QString& kind)>& isWanted);

    std::vector<Line> lines_;
    std::vector<Watched> watched_;
    std::vector<Name> names_;
    std::vector<std::pair<QString, QString>> abbreviations_;
};

template <typename Control> void Journal::watch(Control& control, const QString& name)
{
    const QObject& object = control;
    const auto add = [&](auto read) {
        // A control that is being destroyed is no longer of its own type, and is not read any more. It is asked as an
        // object, since the compiler knows the type of a final class beforehand.
        watchText(&control, [&control, &object, name, read, type = &typeid(object)] {
            return typeid(object) == *type ? read(control, name) : QString();
        });
    };
    add([](Control& c, const QString& n) { return (c.visible() ? "show " : "hide ") + n; });
    add([](Control& c, const QString& n) { return (c.enabled() ? "enable " : "disable ") + n; });
    add([](Control& c, const QString& n) {
        return QStringLiteral("move %1 %2 %3").arg(n).arg(c.leftTwips()).arg(c.topTwips());
    });
    add([](Control& c, const QString& n) {
        return QStringLiteral("resize %1 %2 %3").arg(n).arg(c.widthTwips()).arg(c.heightTwips());
    });
    if constexpr (requires { control.picture(); })
        add([](Control& c, const QString& n) { return QStringLiteral("picture %1 %2").arg(n, c.picture()); });
    watchObject(control, name);
}

template <typename Timer> void Journal::watchTimer(Timer& timer, const QString& name)
{
    watchText(&timer, [&timer, name] {
        return timer.enabled() ? QStringLiteral("timer %1 on %2").arg(name).arg(timer.interval())
                               : QStringLiteral("timer %1 off").arg(name);
    });
}

} // namespace orb
