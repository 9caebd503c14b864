// SPDX-License-Identifier: GPL-3.0-or-later
#include "graph_look.h"
#include "sequence_page.h"
#include "values.h"

namespace orb {

void SequencePage::seqPlotClick()
{
    graphSeq.bringToFront();
    graphSeq.setVisible(!graphSeq.visible());
    if (graphSeq.visible() && datORB.recordset().recordCount() > 0)
        plotPoints();
}

/// A simplification on purpose: every point is drawn with the duration of the first one, and of a point only its
/// current. The buffer is one element longer than the table and that element stays 0: the load drops to no current at
/// the end.
void SequencePage::plotPoints()
{
    TableRecordset& points = datORB.recordset();
    plottedValues_.assign(static_cast<std::size_t>(points.recordCount()) + 1, 0.0);
    points.moveFirst();
    const double firstDuration = points.field(QStringLiteral("durtime")).toDouble();
    for (std::int16_t i = 0; !points.isEof(); points.moveNext(), i = toInteger(i + 1.0))
        plottedValues_[static_cast<std::size_t>(i)] = points.field(QStringLiteral("current")).toDouble();
    graphSeq.plot(1).PlotY(plottedValues_, simulationStart(firstDuration), firstDuration * secondInDays);
}

QString SequencePage::simulationStart(double firstDuration)
{
    return firstDuration < 1 ? QStringLiteral("0:0:00.0000") : QStringLiteral("0:0:00");
}

void SequencePage::graphSeqClick()
{
    graphSeq.setVisible(false);
}

} // namespace orb
