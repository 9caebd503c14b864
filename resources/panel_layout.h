// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QRect>

#include <array>

/// Where the keys are on the panel picture. The picture, and the panel map that the program reads, are both made from it.
namespace orb::drawing {

/// The picture as it is shown, in pixels at 96 dpi.
constexpr QSize panelSize(380, 612);
/// The picture's file, which is stretched to that width.
constexpr QSize panelFileSize(342, 612);
/// The instrument's screen on it.
constexpr QRect panelScreen(28, 36, 321, 241);

enum class KeyLook { Soft, Plain, Digit, Accent, Load, Knob };

struct PanelKey {
    const char* name; ///< as in the panel map
    QRect area;
    KeyLook look;
    const char* caption;
};

constexpr std::array panelKeys{
    PanelKey{"F1", {28, 296, 57, 26}, KeyLook::Soft, "F1"},
    PanelKey{"F2", {94, 296, 57, 26}, KeyLook::Soft, "F2"},
    PanelKey{"F3", {160, 296, 57, 26}, KeyLook::Soft, "F3"},
    PanelKey{"F4", {226, 296, 57, 26}, KeyLook::Soft, "F4"},
    PanelKey{"F5", {292, 296, 57, 26}, KeyLook::Soft, "F5"},
    PanelKey{"CHAN", {28, 338, 57, 30}, KeyLook::Plain, "CHAN"},
    PanelKey{"FUNC", {94, 338, 57, 30}, KeyLook::Plain, "FUNC"},
    PanelKey{"PRESET", {160, 338, 57, 30}, KeyLook::Plain, "PRESET"},
    PanelKey{"FILE", {226, 338, 57, 30}, KeyLook::Plain, "FILE"},
    PanelKey{"HELP", {292, 338, 57, 30}, KeyLook::Plain, "HELP"},
    PanelKey{"7", {28, 386, 50, 42}, KeyLook::Digit, "7"},
    PanelKey{"8", {88, 386, 50, 42}, KeyLook::Digit, "8"},
    PanelKey{"9", {148, 386, 50, 42}, KeyLook::Digit, "9"},
    PanelKey{"4", {28, 438, 50, 42}, KeyLook::Digit, "4"},
    PanelKey{"5", {88, 438, 50, 42}, KeyLook::Digit, "5"},
    PanelKey{"6", {148, 438, 50, 42}, KeyLook::Digit, "6"},
    PanelKey{"1", {28, 490, 50, 42}, KeyLook::Digit, "1"},
    PanelKey{"2", {88, 490, 50, 42}, KeyLook::Digit, "2"},
    PanelKey{"3", {148, 490, 50, 42}, KeyLook::Digit, "3"},
    PanelKey{"0", {28, 542, 50, 42}, KeyLook::Digit, "0"},
    PanelKey{"DOT", {88, 542, 50, 42}, KeyLook::Digit, "."},
    PanelKey{"CLEAR", {148, 542, 50, 42}, KeyLook::Plain, "CLEAR"},
    PanelKey{"ROTATELEFT", {239, 404, 25, 56}, KeyLook::Knob, ""},
    PanelKey{"ROTATEENTER", {268, 415, 34, 34}, KeyLook::Knob, ""},
    PanelKey{"ROTATERIGHT", {306, 404, 25, 56}, KeyLook::Knob, ""},
    PanelKey{"SHIFT", {222, 490, 58, 42}, KeyLook::Accent, "SHIFT"},
    PanelKey{"ENTER", {291, 490, 58, 42}, KeyLook::Accent, "ENTER"},
    PanelKey{"LOAD", {222, 542, 127, 42}, KeyLook::Load, "LOAD"},
};

} // namespace orb::drawing
