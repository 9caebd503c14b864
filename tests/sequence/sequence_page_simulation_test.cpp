// SPDX-License-Identifier: GPL-3.0-or-later
#include "sequence_page_test.h"

namespace orb {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class SequencePageSimulationTest : public SequencePageTest {
protected:
    void rows(const char* values)
    {
        if (*values)
            alterDatabase(QStringLiteral("insert into ORBSeqData values ") + QLatin1String(values));
        run.enter([this] { page.datORB.refresh(); });
        journal.clear();
    }

    void plot()
    {
        run.enter([this] { page.seqPlotClick(); });
    }

    std::vector<double> plottedX()
    {
        std::vector<double> values;
        for (std::size_t i = 0; i < page.graphSeq.plot(1).pointCount(); ++i)
            values.push_back(page.graphSeq.plot(1).point(i).x);
        return values;
    }

    std::vector<double> plottedY()
    {
        std::vector<double> values;
        for (std::size_t i = 0; i < page.graphSeq.plot(1).pointCount(); ++i)
            values.push_back(page.graphSeq.plot(1).point(i).y);
        return values;
    }
};

TEST_F(SequencePageSimulationTest, TheButtonIsHiddenAndStaysHidden)
{
    EXPECT_FALSE(page.seqPlot.visible());

    open(sequenceRecord());
    press(page.seqPlot); // which no operator can

    EXPECT_FALSE(page.seqPlot.visible());
    EXPECT_TRUE(page.seqPlot.enabled());
    EXPECT_FALSE(page.graphSeq.visible());
}

TEST_F(SequencePageSimulationTest, TheButtonsHandlerIsTheSimulation)
{
    rows("(1,1,1,0,0)");
    run.enter([this] { page.seqPlot.onClick(); });
    EXPECT_TRUE(page.graphSeq.visible());
}

TEST_F(SequencePageSimulationTest, APressShowsTheGraphInFront)
{
    rows("(1,1,1,0,0)");
    page.lstSequence.bringToFront();

    plot();

    EXPECT_THAT(journal.linesOf({"show", "hide", "raise"}), ElementsAre("raise graphSeq", "show graphSeq"));
}

TEST_F(SequencePageSimulationTest, TwoPressesHideTheGraphAgainAndPlotOnce)
{
    rows("(1,1,1,0,0)");
    plot();
    alterDatabase("update ORBSeqData set Current=9");
    run.enter([this] { page.datORB.refresh(); });

    plot();

    EXPECT_FALSE(page.graphSeq.visible());
    EXPECT_THAT(plottedY(), ElementsAre(1, 0));
}

TEST_F(SequencePageSimulationTest, APressWithAnEmptyTableShowsTheGraphAsItWasAndASecondHidesIt)
{
    rows("");
    page.graphSeq.plot(1).ChartY(7, 1);
    plottedValues = {5};

    plot();
    EXPECT_TRUE(page.graphSeq.visible());
    EXPECT_THAT(plottedY(), ElementsAre(7));
    EXPECT_THAT(plottedValues, ElementsAre(5));

    plot();
    EXPECT_FALSE(page.graphSeq.visible());
}

TEST_F(SequencePageSimulationTest, AFirstDurationOfHalfASecondIsTheStepInDays)
{
    rows("(1,0.5,1,0,0),(2,60,2,0,0)");

    plot();

    EXPECT_THAT(plottedX(), ElementsAre(0, 0.5 / 86400, 1.0 / 86400));
}

TEST_F(SequencePageSimulationTest, AFirstDurationOfTwoSecondsIsTheStepInDays)
{
    rows("(1,2,1,0,0),(2,0.5,2,0,0)");

    plot();

    EXPECT_THAT(plottedX(), ElementsAre(0, 2.0 / 86400, 4.0 / 86400));
}

TEST_F(SequencePageSimulationTest, AFirstDurationBelowASecondStartsWithAFractionAndOneOfASecondOrMoreWithout)
{
    EXPECT_EQ(SequencePage::simulationStart(0.5), "0:0:00.0000");
    EXPECT_EQ(SequencePage::simulationStart(0.999), "0:0:00.0000");
    EXPECT_EQ(SequencePage::simulationStart(1), "0:0:00");
    EXPECT_EQ(SequencePage::simulationStart(2), "0:0:00");
}

TEST_F(SequencePageSimulationTest, ThreeRowsPlotTheirCurrentsAndAZero)
{
    rows("(1,1,1,0,0),(2,1,2,0,0),(3,1,3,0,0)");

    plot();

    EXPECT_THAT(plottedY(), ElementsAre(1, 2, 3, 0));
    EXPECT_THAT(plottedValues, ElementsAre(1, 2, 3, 0));
    EXPECT_EQ(page.graphSeq.plot(2).pointCount(), 0U);
}

TEST_F(SequencePageSimulationTest, TheCurrentsAreDrawnInTheOrderOfTheTable)
{
    rows("(3,1,30,0,0),(1,1,10,0,0)");

    plot();

    EXPECT_THAT(plottedY(), ElementsAre(30, 10, 0));
}

TEST_F(SequencePageSimulationTest, AClickOnTheGraphHidesItAndTheNextPressPlotsAnew)
{
    rows("(1,1,1,0,0)");
    plot();
    run.enter([this] { page.graphSeq.onClick(); });
    EXPECT_FALSE(page.graphSeq.visible());
    alterDatabase("update ORBSeqData set Current=9");
    run.enter([this] { page.datORB.refresh(); });

    plot();

    EXPECT_TRUE(page.graphSeq.visible());
    EXPECT_THAT(plottedY(), ElementsAre(9, 0));
}

TEST_F(SequencePageSimulationTest, AnEditInTheGridShowsAtTheNextPlot)
{
    rows("(1,1,1,0,0)");
    run.enter([this] { page.datORB.setValueAt(0, 2, "4.5"); });

    plot();

    EXPECT_THAT(plottedY(), ElementsAre(4.5, 0));
}

TEST_F(SequencePageSimulationTest, RowsThatTheGridHasNotReadAreNotDrawn)
{
    open(sequenceRecord(3));

    plot();

    EXPECT_TRUE(page.graphSeq.visible());
    EXPECT_THAT(plottedY(), IsEmpty());
}

TEST_F(SequencePageSimulationTest, PointsWithoutADurationAreDrawn)
{
    rows("(1,0,1,0,0),(2,0,2,0,0)");

    plot();

    EXPECT_THAT(plottedX(), ElementsAre(0, 0, 0));
    EXPECT_THAT(processExit.reports, IsEmpty());
}

TEST_F(SequencePageSimulationTest, MoreRowsThanTheCounterHoldsAreAnOverflow)
{
    alterDatabase("with recursive n(i) as (select 1 union all select i+1 from n where i<32768) "
                  "insert into ORBSeqData select i,1,1,1,1 from n");
    rows("");

    plot();

    EXPECT_THAT(processExit.reports, ElementsAre("Run-time error '6':\n\nOverflow"));
}

} // namespace
} // namespace orb
