// SPDX-License-Identifier: GPL-3.0-or-later
#include "tour.h"

#include "user_interface.h"

#include <QApplication>
#include <QTimer>

#include <cstdio>
#include <cstdlib>

namespace orb {

namespace {
constexpr int pollMs = 20;
constexpr int limitMs = 30'000;

QString withPlainLineEnds(QString text)
{
    return text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
}
} // namespace

void Tour::then(const QString& description, std::function<bool()> ready, std::function<void()> act)
{
    steps_.push_back({description, std::move(ready), std::move(act)});
}

void Tour::then(const QString& description, std::function<void()> act)
{
    then(
        description, [] { return true; }, std::move(act));
}

void Tour::answer(const QString& text, const QString& button)
{
    then(
        QStringLiteral("answers \"%1\" with %2")
            .arg(QString(text).replace(QLatin1Char('\n'), QLatin1Char(' ')), button),
        [text] { return ui::messageUp() == withPlainLineEnds(text); },
        [button] { ui::press(*QApplication::activeModalWidget(), button); });
}

void Tour::chooseFile(const QString& name)
{
    then(
        QStringLiteral("names the file ") + name,
        [this, name] { return ui::fileDialogUp() && ui::typeFileName(path(name)); }, [] { ui::acceptFile(); });
}

void Tour::picture(const QWidget& widget, const QString& name)
{
    constexpr int untilPaintedMs = 200; // enough for the repaint after the last step
    then(
        QStringLiteral("takes the picture ") + name, [this] { return waiting_.elapsed() > untilPaintedMs; },
        [this, &widget, name] {
            if (!const_cast<QWidget&>(widget).grab().save(path(name)))
                throw TourFailure(QStringLiteral("can't write ") + path(name));
        });
}

int Tour::run()
{
    start();
    return QApplication::exec();
}

void Tour::start()
{
    waiting_.start();
    schedule();
}

/// Each poll is a timer of its own, so that a step that opens a dialog is followed by the next one inside it.
void Tour::schedule()
{
    QTimer::singleShot(pollMs, &context_, [this] { poll(); });
}

void Tour::poll()
{
    if (steps_.empty())
        return QApplication::exit(EXIT_SUCCESS);
    schedule();
    if (!steps_.front().ready()) {
        if (waiting_.elapsed() > limitMs)
            fail(QStringLiteral("timed out; the open message box says: \"%1\"").arg(ui::messageUp()));
        return;
    }
    const Step step = std::move(steps_.front());
    steps_.pop_front();
    waiting_.restart();
    std::printf("%2d  %s\n", ++done_, qPrintable(step.description));
    std::fflush(stdout);
    try {
        step.act();
    } catch (const TourFailure& failure) {
        fail(QString::fromUtf8(failure.what()));
    }
}

/// Ends the process: the program may be inside nested event loops, which nothing else would leave.
void Tour::fail(const QString& message)
{
    const QString step = steps_.empty() ? QString() : steps_.front().description;
    std::printf("FAILED: %s (next: %s)\n", qPrintable(message), qPrintable(step));
    if (const QWidget* window = QApplication::activeWindow())
        const_cast<QWidget*>(window)->grab().save(path(QStringLiteral("failed.png")));
    std::fflush(stdout);
    std::_Exit(EXIT_FAILURE);
}

} // namespace orb
