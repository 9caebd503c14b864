// SPDX-License-Identifier: GPL-3.0-or-later
#include "scripted_user_plugin.h"

#include "tour.h"
#include "user_interface.h"

#include <QAbstractButton>
#include <QApplication>
#include <QTableView>

using namespace orb;

namespace {

constexpr int sampleCount = 3;

/// The program's window. Null before it is shown.
QWidget* window()
{
    for (QWidget* widget : QApplication::topLevelWidgets())
        if (widget->isVisible() && widget->windowTitle().startsWith(QLatin1String("ZN ORB Device")))
            return widget;
    return nullptr;
}

void pressPage(const QString& caption)
{
    for (auto* button : window()->findChildren<QAbstractButton*>(Qt::FindDirectChildrenOnly))
        if (button->text() == caption)
            return button->click();
    throw TourFailure(QStringLiteral("no page is called ") + caption);
}

/// The button of that caption on the page that is shown. Null where there is none that can be pressed.
QAbstractButton* onPage(const QString& caption)
{
    for (auto* button : window()->findChildren<QAbstractButton*>())
        if (button->parent() != window() && button->text() == caption && button->isVisible() && button->isEnabled())
            return button;
    return nullptr;
}

int shownRows()
{
    for (const auto* table : window()->findChildren<QTableView*>())
        if (table->isVisible())
            return table->model()->rowCount();
    return 0;
}

void pressOnPage(Tour& tour, const QString& caption)
{
    tour.then(
        QStringLiteral("presses ") + caption, [caption] { return onPage(caption); },
        [caption] { onPage(caption)->click(); });
}

void recordSomeSamples(Tour& tour)
{
    tour.then(
        QStringLiteral("goes to Connect"), [] { return window(); }, [] { pressPage(QStringLiteral("Connect")); });
    pressOnPage(tour, QStringLiteral("Connect"));
    tour.then(
        QStringLiteral("is connected"), [] { return window()->windowTitle().endsWith(QLatin1String("[Connected]")); },
        [] { pressPage(QStringLiteral("Data Log")); });
    pressOnPage(tour, QStringLiteral("Start Log"));
    tour.then(
        QStringLiteral("sees the samples"), [] { return shownRows() >= sampleCount; }, [] {});
    pressOnPage(tour, QStringLiteral("Stop Log"));
    tour.then(
        QStringLiteral("exits"), [] { return onPage(QStringLiteral("Start Log")); },
        [] { pressPage(QStringLiteral("Exit")); });
}

class ScriptedUser final : public QObject {
public:
    ScriptedUser()
    {
        recordSomeSamples(tour_);
        tour_.start();
    }

private:
    Tour tour_{QDir::home()};
};

} // namespace

QObject* orb::ScriptedUserPlugin::create(const QString&, const QString&)
{
    return new ScriptedUser; // Qt owns it
}
