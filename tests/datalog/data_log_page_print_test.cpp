// SPDX-License-Identifier: GPL-3.0-or-later
#include "data_log_page_test.h"

using namespace orb;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class DataLogPagePrintTest : public DataLogPageTest {
protected:
    /// Every color of the graph that could change, as one text.
    QString colors() const
    {
        const Graph& graph = page.graphLog;
        QStringList names{graph.frameColor().name(), graph.plotAreaColor().name(),
                          graph.elementVisible("Graph Frame") ? "frame" : "no frame"};
        for (int axis = 1; axis <= 3; ++axis)
            names << graph.axis(axis).gridColor().name();
        for (int plot = 1; plot <= 16; ++plot)
            names << graph.plot(plot).lineColor().name();
        return names.join(' ');
    }

    const std::vector<QString>& calls() const { return dialogs.recordedPrinter.calls; }
};

TEST_F(DataLogPagePrintTest, ThePictureTakesTheUpperLeftOfALandscapePageAtFourTenthsOfItsSize)
{
    press(page.logPrint);

    ASSERT_GE(calls().size(), 4);
    EXPECT_THAT(std::vector<QString>(calls().begin(), calls().begin() + 4),
                ElementsAre("orientation 2", "picture 100 50 400 200", "font 8", "font 9"));
    EXPECT_FALSE(dialogs.recordedPrinter.picture.isNull());
}

TEST_F(DataLogPagePrintTest, ATableOfSixRowsAndNineColumnsIsWalkedAndNothingPrinted)
{
    press(page.logPrint);

    ASSERT_EQ(calls().size(), 4 + 6 * 9 * 2 + 1);
    EXPECT_THAT(std::vector<QString>(calls().begin() + 4, calls().begin() + 8),
                ElementsAre("y 295", "x 100", "y 295", "x 180"));
    EXPECT_THAT(std::vector<QString>(calls().end() - 3, calls().end()), ElementsAre("y 395", "x 740", "end"));
}

TEST_F(DataLogPagePrintTest, ThePictureIsMadeInPaperColors)
{
    QString onPaper;
    dialogs.recordedPrinter.onPaint = [&] { onPaper = colors(); };
    const QString before = colors();

    press(page.logPrint);

    const QStringList paper = onPaper.split(' ');
    const QStringList screen = before.split(' ');
    EXPECT_EQ(paper.mid(0, 7).join(' '), "#ffffff #ffffff no frame #808080 #808080 " + screen[5])
        << "the grid of axis 3 is not handled";
    for (int plot = 1; plot <= 16; ++plot) // "no frame" is one part longer than "frame"
        EXPECT_EQ(paper[plot + 6], plot <= 6 ? "#000000" : screen[plot + 5]) << plot;
}

TEST_F(DataLogPagePrintTest, TheGraphLooksAfterAPrintAsItDidBefore)
{
    const QString before = colors();
    press(page.logPrint);
    EXPECT_EQ(colors(), before);
    EXPECT_EQ(dialogs.printerDialogs, 1);
    EXPECT_THAT(processExit.reports, IsEmpty());
}

TEST_F(DataLogPagePrintTest, ACancelOfThePrinterDialogStillPrints)
{
    dialogs.printerAccepted = false;
    press(page.logPrint);
    EXPECT_EQ(calls().back(), "end");
}

TEST_F(DataLogPagePrintTest, AFailureInThePrintingLeavesTheGraphInItsPaperColors)
{
    dialogs.recordedPrinter.onPaint = [] { throw RuntimeFailure(failure::PrinterError); };

    press(page.logPrint);

    EXPECT_THAT(processExit.reports, ElementsAre("Run-time error '482':\n\nPrinter error"));
    EXPECT_EQ(page.graphLog.plotAreaColor(), QColor(255, 255, 255));
    EXPECT_FALSE(page.graphLog.elementVisible("Graph Frame"));
}

} // namespace
