// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QImage>

#include <string>

namespace orb {

class Mainframe;

/// The picture on the instrument's screen, 320 by 240: the page that the panel shows, the state of a running sequence or
/// program, and the captions of the keys F1 to F5. The same state gives the same pixels on every machine. May take a new
/// reading of the channels. `identity` is the answer to *IDN?.
QImage drawInstrumentScreen(Mainframe& mainframe, const std::string& identity);

/// The picture as a Windows bitmap of 24 bits a pixel.
std::string bitmapOf(const QImage& picture);

} // namespace orb
