// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "mainframe.h"
#include "screen_canvas.h"

namespace orb {

/// The place of a page, between the bar at the top and the status line.
inline constexpr QRect pageArea(0, 22, ScreenCanvas::width, 176);

void drawChannelPage(ScreenCanvas& canvas, Mainframe& mainframe);
void drawAllPage(ScreenCanvas& canvas, Mainframe& mainframe);
void drawSequencePage(ScreenCanvas& canvas, const Mainframe& mainframe);
void drawProgramPage(ScreenCanvas& canvas, Mainframe& mainframe);
void drawSystemPage(ScreenCanvas& canvas, Mainframe& mainframe, const QString& identity);

/// A value in six places, whatever its size.
QString sixPlaces(double value);
QString functionText(LoadFunction function);
QString rangeName(LoadRange range);
/// V, A or the ohm.
QString setUnit(LoadFunction function);
/// The state of an input in a word, and the color for it.
QString inputText(const LoadChannel& channel);
QRgb inputColor(const LoadChannel& channel);

} // namespace orb
