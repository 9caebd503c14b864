// SPDX-License-Identifier: GPL-3.0-or-later
#include "real_printer.h"

#include "failure.h"
#include "save_refusal.h"

#include <QDir>
#include <QStandardPaths>

namespace orb {

namespace {

/// The first of the user's folders that takes a file.
QDir folderForFiles()
{
    for (const auto location : {QStandardPaths::DocumentsLocation, QStandardPaths::HomeLocation}) {
        const QDir folder(QStandardPaths::writableLocation(location));
        folder.mkpath(QStringLiteral("."));
        if (takesFiles(folder.path()))
            return folder;
    }
    return QDir::temp();
}

QString unusedPdfFile()
{
    const QDir folder = folderForFiles();
    QString path = folder.filePath(QStringLiteral("orb.pdf"));
    for (int i = 2; QFileInfo::exists(path); ++i)
        path = folder.filePath(QStringLiteral("orb %1.pdf").arg(i));
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

bool RealPrinter::printsToOwnFile() const
{
    return printer_.outputFormat() == QPrinter::PdfFormat && printer_.outputFileName() == ownFile_;
}

void RealPrinter::offerFile()
{
    if (!printsToOwnFile())
        return;
    ownFile_ = unusedPdfFile();
    printer_.setOutputFileName(ownFile_);
    isFileOffered_ = true;
}

void RealPrinter::begin()
{
    if (painter_.isActive())
        return;
    if (!isFileOffered_)
        offerFile();
    isFileOffered_ = false;
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
