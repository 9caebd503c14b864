// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "paths.h"

#include <array>
#include <cstdint>

namespace orb {

/// A key of the panel picture: its name and the rectangle that it fills, in twips from the picture's top left corner.
struct DevButton {
    QString sName;
    std::int16_t nLeft = 0;
    std::int16_t nTop = 0;
    std::int16_t nRight = 0;
    std::int16_t nBottom = 0;

    /// False for a point on an edge.
    bool contains(float x, float y) const
    {
        return x > static_cast<float>(nLeft) && x < static_cast<float>(nRight) && y > static_cast<float>(nTop) &&
               y < static_cast<float>(nBottom);
    }
};

/// The keys of the panel picture in their order of priority.
struct PanelMap {
    std::array<DevButton, 51> aDevButton;
    std::int16_t nDevButton = 0; ///< the rows in use

    /// Reads the map from "ORBScrBtn.dat" in the application directory. Throws `RuntimeFailure` 53 where the file is
    /// missing, 9 for a row of fewer than five fields and for the 52nd row, 13 for an edge that is no number, 6 for one
    /// that 16 bits can't hold.
    void InitDevButton(const Paths& paths);

    /// The first key that contains the point, null where none does.
    const DevButton* hit(float x, float y) const;
};

} // namespace orb
