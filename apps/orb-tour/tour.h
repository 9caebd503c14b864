// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDir>
#include <QElapsedTimer>
#include <QObject>

#include <deque>
#include <functional>

namespace orb {

/// Runs a list of steps against the program, each as soon as it is possible, while the program's own event loops run,
/// including those of its dialogs and of a recording.
class Tour {
public:
    /// Pictures and files go to `out`.
    explicit Tour(const QDir& out) : out_(out) {}

    /// Adds a step. It is done once `ready` holds, and at the latest in half a minute; `act` may throw `TourFailure`.
    void then(const QString& description, std::function<bool()> ready, std::function<void()> act);
    /// A step that can be done at once.
    void then(const QString& description, std::function<void()> act);
    /// A message box of that text comes up; the operator presses that button.
    void answer(const QString& text, const QString& button);
    /// The file dialog comes up; the operator names that file.
    void chooseFile(const QString& name);
    /// Saves a picture of the widget.
    void picture(const QWidget& widget, const QString& name);

    /// Runs all steps within the event loop of the application. The result is that of `main`: 0 if all steps passed.
    int run();
    /// The same for an event loop that is or will be run by others.
    void start();

    QString path(const QString& name) const { return out_.filePath(name); }

private:
    struct Step {
        QString description;
        std::function<bool()> ready;
        std::function<void()> act;
    };

    void schedule();
    void poll();
    void fail(const QString& message);

    QDir out_;
    QObject context_;
    std::deque<Step> steps_;
    QElapsedTimer waiting_;
    int done_ = 0;
};

} // namespace orb
