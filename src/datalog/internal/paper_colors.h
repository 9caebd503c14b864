// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>

#include <array>

namespace orb {

class Graph;

/// How many plots are recolored for paper: those of the first three channels.
constexpr int paperPlots = 6;

/// The colors of a graph that change for paper, as they are on the screen. Axis 3 keeps its grid color.
struct PaperColors {
    QColor frame;
    std::array<QColor, paperPlots> lines;
    std::array<QColor, 2> grids;
    QColor plotArea;

    static PaperColors of(const Graph& graph);
    /// Gives the graph these colors again, and shows its frame.
    void restore(Graph& graph) const;
};

/// Recolors the graph for paper: white, without its frame, the first plots black.
void usePaperColors(Graph& graph);

} // namespace orb
