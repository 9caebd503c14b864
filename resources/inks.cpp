// SPDX-License-Identifier: GPL-3.0-or-later
#include "glyphs.h"

namespace orb::drawing {

namespace {

const QColor slate(0x3B4C5F);
const QColor mist(0xDDE5ED);
const QColor white(0xFFFFFF);
const QColor blue(0x2C72B8);
const QColor green(0x2E9B68);
const QColor red(0xD8433F);
const QColor amber(0xE39A26);

Ink ink(const QColor& accent, const QColor& second)
{
    return {slate, mist, white, accent, second};
}

} // namespace

Ink blueInk()
{
    return ink(blue, amber);
}

Ink greenInk()
{
    return ink(green, blue);
}

Ink redInk()
{
    return ink(red, blue);
}

Ink amberInk()
{
    return ink(amber, blue);
}

Ink greyInk()
{
    return {QColor(0xB3BCC6), QColor(0xE8ECF0), QColor(0xF9FAFB), QColor(0xC3CBD3), QColor(0xD3D9DF)};
}

} // namespace orb::drawing
