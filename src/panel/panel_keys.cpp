// SPDX-License-Identifier: GPL-3.0-or-later
#include "panel_keys.h"

#include <algorithm>
#include <array>

namespace orb {

namespace {

struct Row {
    const char* keyName;
    const char* text;
};

/// The knob has one code for both directions; its count is 1 for a step left and 255 for a step right.
constexpr std::array commands{
    Row{"F1", ":KEYBoard:CODE 113,1"},
    Row{"F2", ":KEYBoard:CODE 114,1"},
    Row{"F3", ":KEYBoard:CODE 115,1"},
    Row{"F4", ":KEYBoard:CODE 116,1"},
    Row{"F5", ":KEYBoard:CODE 117,1"},
    Row{"CHAN", ":KEYBoard:CODE 112,1"},
    Row{"FUNC", ":KEYBoard:CODE 118,1"},
    Row{"FILE", ":KEYBoard:CODE 119,1"},
    Row{"HELP", ":KEYBoard:CODE 120,1"},
    Row{"PRESET", ":KEYBoard:CODE 109,1"},
    Row{"SHIFT", ":KEYBoard:CODE 110,1"},
    Row{"ENTER", ":KEYBoard:CODE 108,1"},
    Row{"LOAD", ":KEYBoard:CODE 111,1"},
    Row{"0", ":KEYBoard:CODE 96,1"},
    Row{"1", ":KEYBoard:CODE 97,1"},
    Row{"2", ":KEYBoard:CODE 98,1"},
    Row{"3", ":KEYBoard:CODE 99,1"},
    Row{"4", ":KEYBoard:CODE 100,1"},
    Row{"5", ":KEYBoard:CODE 101,1"},
    Row{"6", ":KEYBoard:CODE 102,1"},
    Row{"7", ":KEYBoard:CODE 103,1"},
    Row{"8", ":KEYBoard:CODE 104,1"},
    Row{"9", ":KEYBoard:CODE 105,1"},
    Row{"DOT", ":KEYBoard:CODE 106,1"},
    Row{"ROTATELEFT", ":KEYBoard:CODE 214,1"},
    Row{"ROTATERIGHT", ":KEYBoard:CODE 214,255"},
    Row{"ROTATEENTER", ":KEYBoard:CODE 123,1"},
    Row{"CLEAR", ":KEYBoard:CODE 107,1"},
};

/// The two turning pointers are crossed over on purpose.
constexpr std::array pointers{
    Row{"ROTATERIGHT", "\\icon\\LeftRotate.cur"},
    Row{"ROTATELEFT", "\\icon\\RightRotate.cur"},
    Row{"ROTATEENTER", "\\icon\\H_NW.CUR"},
};

template <typename Rows> QString textOf(const Rows& rows, const QString& keyName, const char* otherwise)
{
    const auto row =
        std::ranges::find_if(rows, [&](const Row& each) { return keyName == QLatin1String(each.keyName); });
    return QString::fromLatin1(row == rows.end() ? otherwise : row->text);
}

} // namespace

QString keyCommand(const QString& keyName)
{
    return textOf(commands, keyName, "");
}

QString keyPointer(const QString& keyName)
{
    return textOf(pointers, keyName, "\\icon\\H_POINT.CUR");
}

} // namespace orb
