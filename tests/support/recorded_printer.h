// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "printer.h"

#include <functional>
#include <optional>
#include <vector>

namespace orb {

/// A printer of 1000 by 500 that writes down what it is told.
class RecordedPrinter final : public Printer {
public:
    std::vector<QString> told;
    QImage picture;
    /// Called when a picture is painted; may throw.
    std::function<void()> onPaint;

    void setOrientation(Orientation orientation) override { tell(QStringLiteral("orientation %1").arg(orientation)); }
    double width() override { return 1000; }
    double height() override { return 500; }
    void setFontSize(int points) override { tell(QStringLiteral("font %1").arg(points)); }
    void setCurrentX(double x) override { tell(QStringLiteral("x %1").arg(x)); }
    void setCurrentY(double y) override { tell(QStringLiteral("y %1").arg(y)); }
    void paintPicture(const QImage& image, double x, double y, double width, double height) override
    {
        if (onPaint)
            onPaint();
        picture = image;
        tell(QStringLiteral("picture %1 %2 %3 %4").arg(x).arg(y).arg(width).arg(height));
    }
    void endDoc() override { tell(QStringLiteral("end")); }

private:
    void tell(const QString& text) { told.push_back(text); }
};

} // namespace orb
