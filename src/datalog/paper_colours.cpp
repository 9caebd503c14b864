// SPDX-License-Identifier: GPL-3.0-or-later
#include "paper_colours.h"

#include "graph.h"

namespace orb {

namespace {
const QString graphFrame = QStringLiteral("Graph Frame");
}

PaperColours PaperColours::of(const Graph& graph)
{
    PaperColours colours;
    colours.frame = graph.frameColour();
    for (int i = 0; i < paperPlots; ++i)
        colours.lines.at(static_cast<std::size_t>(i)) = graph.plot(i + 1).lineColour();
    colours.grids = {graph.axis(1).gridColour(), graph.axis(2).gridColour()};
    colours.plotArea = graph.plotAreaColour();
    return colours;
}

void putOnPaper(Graph& graph)
{
    for (int plot = 1; plot <= paperPlots; ++plot)
        graph.plot(plot).setLineColour(QColor(0, 0, 0));
    graph.setFrameColour(QColor(255, 255, 255));
    graph.setPlotAreaColour(QColor(255, 255, 255));
    graph.setElementVisible(graphFrame, false);
    for (int axis = 1; axis <= 2; ++axis)
        graph.axis(axis).setGridColour(QColor(128, 128, 128));
}

void PaperColours::putBack(Graph& graph) const
{
    graph.setFrameColour(frame);
    graph.setElementVisible(graphFrame, true);
    for (int i = 0; i < paperPlots; ++i)
        graph.plot(i + 1).setLineColour(lines.at(static_cast<std::size_t>(i)));
    graph.setPlotAreaColour(plotArea);
    for (int axis = 1; axis <= 2; ++axis)
        graph.axis(axis).setGridColour(grids.at(static_cast<std::size_t>(axis - 1)));
}

} // namespace orb
