// SPDX-License-Identifier: GPL-3.0-or-later
#include "real_printer.h"

#include "failure.h"

#include <QDir>
#include <QStandardPaths>

namespace orb {

namespace {

QString unusedPdfFile()
{
    const QDir documents(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
    documents.mkpath(QStringLiteral("."));
    QString path = documents.filePath(QStringLiteral("orb.pdf"));
    for (int i = 2; QFileInfo::exists(path); ++i)
        path = documents.filePath(QStringLiteral("orb %1.pdf").arg(i));
    return path;
}

} // namespace

RealPrinter::RealPrinter() = default;

RealPrinter::~RealPrinter()
{
    if (painter_.isActive())
        painter_.end();
}

void RealPrinter::setOrientation(Orientation orientation)
{
    if (!printer_.setPageOrientation(orientation == Landscape ? QPageLayout::Landscape : QPageLayout::Portrait))
        throw RuntimeFailure(failure::PrinterError);
}

double RealPrinter::width()
{
    return printer_.pageRect(QPrinter::DevicePixel).width();
}

double RealPrinter::height()
{
    return printer_.pageRect(QPrinter::DevicePixel).height();
}

void RealPrinter::begin()
{
    if (painter_.isActive())
        return;
    if (printer_.outputFormat() == QPrinter::PdfFormat && printer_.outputFileName() == ownFile_) {
        ownFile_ = unusedPdfFile();
        printer_.setOutputFileName(ownFile_);
    }
    if (!painter_.begin(&printer_))
        throw RuntimeFailure(failure::PrinterError);
}

void RealPrinter::setFontSize(int points)
{
    begin();
    QFont font = painter_.font();
    font.setPointSize(points);
    painter_.setFont(font);
}

void RealPrinter::paintPicture(const QImage& picture, double x, double y, double width, double height)
{
    begin();
    painter_.setRenderHint(QPainter::SmoothPixmapTransform);
    painter_.drawImage(QRectF(x, y, width, height), picture);
}

void RealPrinter::endDoc()
{
    begin(); // a document in which nothing was drawn is an empty page
    if (!painter_.end())
        throw RuntimeFailure(failure::PrinterError);
}

} // namespace orb
