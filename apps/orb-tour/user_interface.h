// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QWidget>

#include <functional>
#include <stdexcept>

class QAbstractButton;
class QListWidget;
class QTableView;

namespace orb {

/// Thrown where the program does not do what the tour expects; `what` is a sentence for the operator.
class TourFailure : public std::runtime_error {
public:
    explicit TourFailure(const QString& message) : std::runtime_error(message.toStdString()) {}
};

/// User input by caption, for controls that are shown and enabled. Each throws `TourFailure` where a user could not do
/// it.
namespace ui {

/// The button, box or option of that caption that is shown and enabled on `where`. Null where there is none.
QAbstractButton* find(const QWidget& where, const QString& caption);

/// Presses it. Does not return before what it does is done.
void press(const QWidget& where, const QString& caption);

/// Picks an item of the drop-down list that offers it.
void pick(const QWidget& where, const QString& item);

/// Clicks the first line of the list that reads so.
void choose(QListWidget& list, const QString& line);

/// Presses and releases the left mouse button in the middle of the widget.
void click(QWidget& widget);

/// Turns the wheel by so many notches, forward if positive, at a place on the widget.
void turnWheel(QWidget& widget, const QPoint& at, int notches);

/// Replaces the text of an editable box by typing.
void type(QWidget& box, const QString& text);

/// Presses a key on the widget.
void pressKey(QWidget& widget, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);

/// Double-clicks a cell of the grid, types a text into it and presses Enter.
void editByMouse(QTableView& grid, int row, int column, const QString& text);

/// The same for the current cell, with F2 in place of the double click.
void editByKeys(QTableView& grid, const QString& text);

/// The text of the message box that is open; empty if there is none.
QString messageUp();

/// True while a file dialog is open.
bool fileDialogUp();

/// Types this path into the open file dialog. True when the path was already there at the call: a dialog that is
/// still reading its folder overwrites what was typed.
bool typeFileName(const QString& path);

/// Accepts the open file dialog.
void acceptFile();

/// True while the printer dialog is open.
bool printDialogUp();

/// Sets the open printer dialog to print to this file, and accepts it.
void printTo(const QString& path);

/// True when a finished PDF document is in the file.
bool isPdf(const QString& path);

} // namespace ui

} // namespace orb
