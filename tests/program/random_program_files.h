// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "prog_file_record.h"
#include "record_file.h"

#include <random>

namespace orb {

class RandomProgramFiles {
public:
    /// A record with reserved bytes of its own and random steps whose times are at most so long, in 0.1 s.
    ProgFileRecord record(int longestTime)
    {
        ProgFileRecord made;
        for (std::byte& byte : imageOf(made))
            byte = static_cast<std::byte>(upTo(255));
        for (ProgramBlock& block : made.programs)
            for (std::size_t s = 0; s < 10; ++s) {
                block.Memory[s] = static_cast<quint8>(upTo(119));
                block.RunMode[s] = static_cast<quint8>(upTo(2));
                for (auto* times : {&block.OnTimer, &block.OffTime, &block.PFTime, &block.ShortTime})
                    (*times)[s] = static_cast<qint16>(upTo(3) == 0 ? 0 : upTo(longestTime));
                block.ShortCH[s] = static_cast<qint16>(upTo(255));
            }
        for (std::size_t p = 0; p < 12; ++p)
            made.ChainNext[p] = static_cast<quint8>(upTo(12));
        made.ChainStart = static_cast<quint8>(upTo(11));
        return made;
    }

    int upTo(int highest) { return std::uniform_int_distribution<int>(0, highest)(random_); }

private:
    std::mt19937 random_{11};
};

} // namespace orb
