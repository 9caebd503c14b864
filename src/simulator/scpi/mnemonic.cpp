// SPDX-License-Identifier: GPL-3.0-or-later
#include "mnemonic.h"

#include "ascii.h"

namespace orb {

std::string_view shortForm(std::string_view mnemonic)
{
    const auto* const end = std::ranges::find_if(mnemonic, [](char c) { return c >= 'a' && c <= 'z'; });
    return mnemonic.substr(0, static_cast<std::size_t>(end - mnemonic.begin()));
}

bool isMnemonic(std::string_view mnemonic, std::string_view word)
{
    return ascii::sameText(mnemonic, word) || ascii::sameText(shortForm(mnemonic), word);
}

} // namespace orb
