// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string_view>

namespace orb {

/// The short form of a mnemonic that is written as "CHANnel": its leading characters that are no small letters.
std::string_view shortForm(std::string_view mnemonic);

/// True when `word`, in any letter case, is the short or the long form of `mnemonic`.
bool isMnemonic(std::string_view mnemonic, std::string_view word);

} // namespace orb
