// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QWidget>

#include <functional>
#include <stdexcept>

class QAbstractButton;
class QListWidget;

namespace orb {

/// What is not as the operator expects it, in words.
class TourFailure : public std::runtime_error {
public:
    explicit TourFailure(const QString& words) : std::runtime_error(words.toStdString()) {}
};

/// The operator of the tour: sees captions, presses what is shown and enabled, answers what comes up. Each throws
/// `TourFailure` where the operator could not do it.
namespace hand {

/// The button, box or option of that caption that is shown and enabled on `where`. Null where there is none.
QAbstractButton* find(const QWidget& where, const QString& caption);

/// Presses it. Does not return before what it does is done.
void press(const QWidget& where, const QString& caption);

/// Picks an item of the drop-down list that offers it.
void pick(const QWidget& where, const QString& item);

/// Clicks the first line of the list that reads so.
void choose(QListWidget& list, const QString& line);

/// Turns the wheel by so many notches, forward if positive, at a place on the widget.
void turnWheel(QWidget& widget, const QPoint& at, int notches);

/// Types a text into the editable box in the place of what stood there.
void type(QWidget& box, const QString& text);

/// The message box that is up: its text. Empty while none is.
QString messageUp();

/// True while a file dialog is up.
bool fileDialogUp();

/// Types this path into the file dialog that is up. True when it stands there since the last look: a dialog that
/// still reads its folder puts the name of before into the place of what was typed.
bool typeFileName(const QString& path);

/// Accepts the file dialog that is up.
void acceptFile();

/// True while the printer dialog is up.
bool printDialogUp();

/// Lets the printer dialog that is up print to this file.
void printTo(const QString& path);

/// True when a finished PDF document is in the file.
bool isPdf(const QString& path);

} // namespace hand

} // namespace orb
