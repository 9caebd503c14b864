// SPDX-License-Identifier: GPL-3.0-or-later
#include "data_log_test.h"

#include "real_printer.h"

using namespace orb;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class PrintTest : public DataLogTest {
protected:
    /// Every colour of the graph that could change, as one text.
    QString colours() const
    {
        const Graph& graph = page.graphLog;
        QStringList names{graph.frameColour().name(), graph.plotAreaColour().name(),
                          graph.elementVisible("Graph Frame") ? "frame" : "no frame"};
        for (int axis = 1; axis <= 3; ++axis)
            names << graph.axis(axis).gridColour().name();
        for (int plot = 1; plot <= 16; ++plot)
            names << graph.plot(plot).lineColour().name();
        return names.join(' ');
    }

    const std::vector<QString>& told() const { return dialogs.recordedPrinter.told; }
};

TEST_F(PrintTest, ThePictureTakesTheUpperLeftOfALandscapePageAtFourTenthsOfItsSize)
{
    press(page.logPrint);

    ASSERT_GE(told().size(), 4);
    EXPECT_THAT(std::vector<QString>(told().begin(), told().begin() + 4),
                ElementsAre("orientation 2", "picture 100 50 400 200", "font 8", "font 9"));
    EXPECT_FALSE(dialogs.recordedPrinter.picture.isNull());
}

TEST_F(PrintTest, ATableOfSixRowsAndNineColumnsIsWalkedAndNothingPrinted)
{
    press(page.logPrint);

    ASSERT_EQ(told().size(), 4 + 6 * 9 * 2 + 1);
    EXPECT_THAT(std::vector<QString>(told().begin() + 4, told().begin() + 8),
                ElementsAre("y 295", "x 100", "y 295", "x 180"));
    EXPECT_THAT(std::vector<QString>(told().end() - 3, told().end()), ElementsAre("y 395", "x 740", "end"));
}

TEST_F(PrintTest, ThePictureIsMadeInPaperColours)
{
    QString onPaper;
    dialogs.recordedPrinter.onPaint = [&] { onPaper = colours(); };
    const QString before = colours();

    press(page.logPrint);

    const QStringList paper = onPaper.split(' ');
    const QStringList screen = before.split(' ');
    EXPECT_EQ(paper.mid(0, 7).join(' '), "#ffffff #ffffff no frame #808080 #808080 " + screen[5])
        << "the grid of axis 3 is not handled";
    for (int plot = 1; plot <= 16; ++plot) // behind "no", "frame" and the grids the paper's list is one longer
        EXPECT_EQ(paper[plot + 6], plot <= 6 ? "#000000" : screen[plot + 5]) << plot;
}

TEST_F(PrintTest, TheGraphLooksBehindAPrintAsItDidBefore)
{
    const QString before = colours();
    press(page.logPrint);
    EXPECT_EQ(colours(), before);
    EXPECT_EQ(dialogs.printerDialogs, 1);
}

TEST_F(PrintTest, ACancelOfThePrinterDialogueStillPrints)
{
    dialogs.printerAccepted = false;
    press(page.logPrint);
    EXPECT_EQ(told().back(), "end");
}

TEST_F(PrintTest, AFailureInThePrintingLeavesTheGraphInItsPaperColours)
{
    dialogs.recordedPrinter.onPaint = [] { throw RuntimeFailure(failure::PrinterError); };

    press(page.logPrint);

    EXPECT_THAT(ending.reports, ElementsAre("Run-time error '482':\n\nPrinter error"));
    EXPECT_EQ(page.graphLog.plotAreaColour(), QColor(255, 255, 255));
    EXPECT_FALSE(page.graphLog.elementVisible("Graph Frame"));
}

TEST_F(PrintTest, ARealPrinterMakesALandscapePdfOfOnePage)
{
    const QString path = application.filePath("page.pdf");
    RealPrinter printer;
    printer.device().setOutputFormat(QPrinter::PdfFormat);
    printer.device().setOutputFileName(path);

    printer.setOrientation(Printer::Landscape);
    EXPECT_GT(printer.width(), printer.height());
    printer.paintPicture(page.graphLog.ControlImage(), 0.1 * printer.width(), 0.1 * printer.height(),
                         0.4 * printer.width(), 0.4 * printer.height());
    printer.endDoc();

    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray pdf = file.readAll();
    EXPECT_TRUE(pdf.startsWith("%PDF"));
    EXPECT_EQ(pdf.count("/Type /Page\n"), 1);
}

TEST_F(PrintTest, APrinterThatCannotBeginIsAPrinterError)
{
    RealPrinter printer;
    printer.device().setOutputFormat(QPrinter::PdfFormat);
    printer.device().setOutputFileName(application.filePath("none/page.pdf"));
    try {
        printer.setFontSize(8);
        FAIL();
    } catch (const RuntimeFailure& failure) {
        EXPECT_EQ(failure.number(), failure::PrinterError);
    }
}

} // namespace
