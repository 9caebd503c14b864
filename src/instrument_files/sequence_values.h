// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>

#include <optional>

namespace orb {

/// The words of the load modules, modes and ranges of a sequence file. The index of a word is its code.
const QStringList& loadModuleWords();
const QStringList& loadModeWords();
const QStringList& loadRangeWords();

/// The word of a code, none for a code that has no word.
std::optional<QString> loadModuleWord(int code);
std::optional<QString> loadModeWord(int code);
std::optional<QString> loadRangeWord(int code);

/// "High 80V" for 1, "Low 16V" for any other code.
QString loadVrangeWord(int code);

/// The seconds that one count of a duration is worth, for the time base codes 5 (1 us) to 11 (1 s).
std::optional<double> timeBaseSeconds(int code);

/// True for the modules whose steps are known. K11AB, the module of code 0, is none of them, though "K11" is.
bool hasScales(const QString& module);
/// Amperes of one raw step of current for the words of a module and a range, as they apply in mode CC. None where the
/// module has no such range.
std::optional<float> valueScale(const QString& module, const QString& range);
/// Slew rate of one raw step, in the same way.
std::optional<double> slewScale(const QString& module, const QString& range);

} // namespace orb
