// SPDX-License-Identifier: GPL-3.0-or-later
#include "paper_colors.h"

#include "graph.h"

namespace orb {

namespace {
const QString graphFrame = QStringLiteral("Graph Frame");
}

PaperColors PaperColors::of(const Graph& graph)
{
    PaperColors colors;
    colors.frame = graph.frameColor();
    for (int i = 0; i < paperPlots; ++i)
        colors.lines.at(static_cast<std::size_t>(i)) = graph.plot(i + 1).lineColor();
    colors.grids = {graph.axis(1).gridColor(), graph.axis(2).gridColor()};
    colors.plotArea = graph.plotAreaColor();
    return colors;
}

void usePaperColors(Graph& graph)
{
    for (int plot = 1; plot <= paperPlots; ++plot)
        graph.plot(plot).setLineColor(QColor(0, 0, 0));
    graph.setFrameColor(QColor(255, 255, 255));
    graph.setPlotAreaColor(QColor(255, 255, 255));
    graph.setElementVisible(graphFrame, false);
    for (int axis = 1; axis <= 2; ++axis)
        graph.axis(axis).setGridColor(QColor(128, 128, 128));
}

void PaperColors::restore(Graph& graph) const
{
    graph.setFrameColor(frame);
    graph.setElementVisible(graphFrame, true);
    for (int i = 0; i < paperPlots; ++i)
        graph.plot(i + 1).setLineColor(lines.at(static_cast<std::size_t>(i)));
    graph.setPlotAreaColor(plotArea);
    for (int axis = 1; axis <= 2; ++axis)
        graph.axis(axis).setGridColor(grids.at(static_cast<std::size_t>(axis - 1)));
}

} // namespace orb
