// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>

#include <array>

namespace orb {

class Graph;

/// How many plots, from the first on, are recolored for paper: three channels.
constexpr int paperPlots = 6;

/// The colors of a graph that change for paper, as they are on the screen. The grid of axis 3 is none of them.
struct PaperColors {
    QColor frame;
    std::array<QColor, paperPlots> lines;
    std::array<QColor, 2> grids;
    QColor plotArea;

    static PaperColors of(const Graph& graph);
    /// Gives the graph these colors again, and its frame.
    void putBack(Graph& graph) const;
};

/// Makes the graph fit for paper: white, without its frame, the first plots black.
void putOnPaper(Graph& graph);

} // namespace orb
