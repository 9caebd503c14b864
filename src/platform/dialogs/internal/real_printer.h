// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "printer.h"

#include <QPainter>
#include <QPrinter>

namespace orb {

/// The printer that the operator chose, or the system's default one. Without any printer each document becomes a new
/// PDF file "orb.pdf", "orb 2.pdf" and so on in the user's documents folder, or in the home or temporary folder where
/// that one can't be written.
class RealPrinter final : public Printer {
public:
    RealPrinter();
    ~RealPrinter() override;

    void setOrientation(Orientation orientation) override;
    double width() override;
    double height() override;
    void setFontSize(int points) override;
    void setCurrentX(double x) override { at_.setX(x); }
    void setCurrentY(double y) override { at_.setY(y); }
    void paintPicture(const QImage& picture, double x, double y, double width, double height) override;
    void endDoc() override;

    /// Before the printer dialog: without a printer it shows the file that the next document becomes, whether it is then
    /// accepted or cancelled.
    void offerFile();
    /// For the printer dialog to set up.
    QPrinter& device() { return printer_; }

private:
    void begin();
    bool printsToOwnFile() const;

    QPrinter printer_{QPrinter::HighResolution};
    QPainter painter_;
    QPointF at_;
    QString ownFile_;            ///< the PDF file that no one else chose
    bool isFileOffered_ = false; ///< the next document goes into it
};

} // namespace orb
