// SPDX-License-Identifier: GPL-3.0-or-later
#include "real_printer.h"

#include "failure.h"

#include <QDir>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace orb;

namespace {

class RealPrinterTest : public testing::Test {
protected:
    QTemporaryDir folder;
    /// The number of pages of a PDF file, -1 when it is none.
    static int pages(const QString& path)
    {
        QFile file(path);
        const QByteArray pdf = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
        return pdf.startsWith("%PDF") ? static_cast<int>(pdf.count("/Type /Page\n")) : -1;
    }

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

    EXPECT_EQ(pages(path), 1);
}

TEST_F(RealPrinterTest, EachDocumentWithoutAPrinterIsANewFileInTheDocumentsFolder)
{
    const QDir documents(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
    RealPrinter printer;
    printer.device().setOutputFormat(QPrinter::PdfFormat);

    printer.endDoc();
    printer.setFontSize(9);
    printer.paintPicture(picture, 0, 0, 100, 100);
    printer.endDoc();

    EXPECT_EQ(pages(documents.filePath("orb.pdf")), 1);
    EXPECT_EQ(pages(documents.filePath("orb 2.pdf")), 1);
    EXPECT_FALSE(QFile::exists(documents.filePath("orb 3.pdf")));
}

TEST_F(RealPrinterTest, AFileThatWasChosenIsPrintedToEachTime)
{
    const QString path = folder.filePath("chosen.pdf");
    RealPrinter printer;
    printer.device().setOutputFormat(QPrinter::PdfFormat);
    printer.endDoc();
    printer.device().setOutputFileName(path);

    printer.endDoc();
    ASSERT_TRUE(QFile::remove(path));
    printer.endDoc();

    EXPECT_EQ(pages(path), 1);
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
