// SPDX-License-Identifier: GPL-3.0-or-later
#include "data_log_page.h"
#include "paper_colors.h"

namespace orb {

namespace {

/// Visits the cells of a table of six rows and nine columns under the picture, and prints nothing in them.
void walkTable(Printer& printer, double width, double height)
{
    for (int i = 1; i <= 6; ++i)
        for (int j = 1; j <= 9; ++j) {
            printer.setCurrentY((0.04 * i + 0.55) * height);
            printer.setCurrentX((0.08 * j + 0.02) * width);
        }
}

} // namespace

void DataLogPage::logPrintClick()
{
    dialogs_.showPrinter(); // a Cancel still prints
    Printer& printer = dialogs_.printer();
    const PaperColors screen = PaperColors::of(graphLog);
    usePaperColors(graphLog);
    printer.setOrientation(Printer::Landscape);
    const double width = printer.width();
    const double height = printer.height();
    printer.paintPicture(graphLog.ControlImage(), 0.1 * width, 0.1 * height, 0.4 * width, 0.4 * height);
    printer.setFontSize(8);
    printer.setFontSize(9);
    walkTable(printer, width, height);
    printer.endDoc();
    screen.restore(graphLog);
}

} // namespace orb
