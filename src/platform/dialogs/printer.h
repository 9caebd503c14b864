// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QImage>

namespace orb {

/// A page under way on the printer. Positions and sizes are in one unit, that of `width` and `height`. A document
/// begins with the first thing drawn and ends with `endDoc`. Any call throws `RuntimeFailure` 482 where there is no
/// printer to draw on.
class Printer {
public:
    enum Orientation : int { Portrait = 1, Landscape = 2 };

    virtual ~Printer() = default;

    virtual void setOrientation(Orientation orientation) = 0;
    /// The size of the page.
    virtual double width() = 0;
    virtual double height() = 0;
    /// In points.
    virtual void setFontSize(int points) = 0;
    /// Where the next text would begin.
    virtual void setCurrentX(double x) = 0;
    virtual void setCurrentY(double y) = 0;
    /// Draws the picture into the rectangle, whatever its own proportions are.
    virtual void paintPicture(const QImage& picture, double x, double y, double width, double height) = 0;
    /// Sends the document off.
    virtual void endDoc() = 0;
};

} // namespace orb
