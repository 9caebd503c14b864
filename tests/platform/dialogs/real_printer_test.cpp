// SPDX-License-Identifier: GPL-3.0-or-later
#include "real_printer.h"

#include "failure.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace orb;

namespace {

class RealPrinterTest : public testing::Test {
protected:
    QTemporaryDir folder;
    QImage picture{400, 200, QImage::Format_RGB32};
};

TEST_F(RealPrinterTest, ARealPrinterMakesALandscapePdfOfOnePage)
{
    const QString path = folder.filePath("page.pdf");
    RealPrinter printer;
    printer.device().setOutputFormat(QPrinter::PdfFormat);
    printer.device().setOutputFileName(path);

    printer.setOrientation(Printer::Landscape);
    EXPECT_GT(printer.width(), printer.height());
    printer.paintPicture(picture, 0.1 * printer.width(), 0.1 * printer.height(), 0.4 * printer.width(),
                         0.4 * printer.height());
    printer.endDoc();

    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray pdf = file.readAll();
    EXPECT_TRUE(pdf.startsWith("%PDF"));
    EXPECT_EQ(pdf.count("/Type /Page\n"), 1);
}

TEST_F(RealPrinterTest, APrinterThatCannotBeginIsAPrinterError)
{
    RealPrinter printer;
    printer.device().setOutputFormat(QPrinter::PdfFormat);
    printer.device().setOutputFileName(folder.filePath("none/page.pdf"));
    try {
        printer.setFontSize(8);
        FAIL();
    } catch (const RuntimeFailure& failure) {
        EXPECT_EQ(failure.number(), failure::PrinterError);
    }
}

} // namespace
