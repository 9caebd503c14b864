// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>
#include <QPainter>

/// The drawings of the program's pictures and pointers. All lie on a grid of 32 by 32 units, keep a margin of two and
/// use lines two units wide that run along whole units, so that they stay sharp at 32, 64 and 96 pixels.
namespace orb::drawing {

/// The background of a button, and of a JPEG picture, which can't be transparent. JPEG keeps this color exactly.
constexpr QRgb buttonFace = 0xffF5F6F8;

/// The units of a picture from edge to edge.
constexpr int gridUnits = 32;

/// The colors of one picture.
struct Ink {
    QColor line;   ///< outlines
    QColor fill;   ///< surfaces inside of outlines
    QColor paper;  ///< the lightest surfaces: sheets, and signs on a filled ground
    QColor accent; ///< the most important part
    QColor second; ///< beside the accent: a second curve, a badge
};

Ink blueInk();
Ink greenInk();
Ink redInk();
Ink amberInk();
/// For what is out of use.
Ink greyInk();

using Glyph = void (*)(QPainter&, const Ink&);

// The pages.
void plug(QPainter& painter, const Ink& ink);
void instrument(QPainter& painter, const Ink& ink);
void console(QPainter& painter, const Ink& ink);
void curves(QPainter& painter, const Ink& ink);
void steps(QPainter& painter, const Ink& ink);
void table(QPainter& painter, const Ink& ink);
void information(QPainter& painter, const Ink& ink);
void door(QPainter& painter, const Ink& ink);
void monitor(QPainter& painter, const Ink& ink);

// Run, stop, pause, record: a sign on a filled disc.
void play(QPainter& painter, const Ink& ink);
void stop(QPainter& painter, const Ink& ink);
void pause(QPainter& painter, const Ink& ink);
void resume(QPainter& painter, const Ink& ink);
void record(QPainter& painter, const Ink& ink);

// Files and lists.
void disk(QPainter& painter, const Ink& ink);
void folder(QPainter& painter, const Ink& ink);
void bin(QPainter& painter, const Ink& ink);
void printer(QPainter& painter, const Ink& ink);
void sheetOut(QPainter& painter, const Ink& ink);
void insertLine(QPainter& painter, const Ink& ink);
void arrowUp(QPainter& painter, const Ink& ink);
void arrowDown(QPainter& painter, const Ink& ink);
void turnRound(QPainter& painter, const Ink& ink);
void enlarge(QPainter& painter, const Ink& ink);
void store(QPainter& painter, const Ink& ink);
void clearSheet(QPainter& painter, const Ink& ink);
void chain(QPainter& painter, const Ink& ink);

// To and from the instrument.
void intoInstrument(QPainter& painter, const Ink& ink);
void outOfInstrument(QPainter& painter, const Ink& ink);
void simulate(QPainter& painter, const Ink& ink);

/// The program's icon. It has colors of its own.
void applicationIcon(QPainter& painter, const Ink& ink);
/// A screen of 320 by 240 that shows nothing, in pixels of its own and not on the grid.
void emptyScreen(QPainter& painter);

// Pointers, one pixel a unit.
void pointingHand(QPainter& painter);
void leaningHand(QPainter& painter);
void turnLeft(QPainter& painter);
void turnRight(QPainter& painter);

} // namespace orb::drawing
