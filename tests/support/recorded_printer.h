// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "journal.h"
#include "printer.h"

#include <functional>
#include <optional>
#include <vector>

namespace orb {

/// A printer of 500 by 1000, upright to begin with, that records every call.
class RecordedPrinter final : public Printer {
public:
    /// Writes every call into `journal`, which must outlive the printer.
    explicit RecordedPrinter(Journal* journal = nullptr) : journal_(journal) {}

    std::vector<QString> calls;
    QImage picture;
    /// Called when a picture is painted; may throw.
    std::function<void()> onPaint;

    void setOrientation(Orientation orientation) override
    {
        orientation_ = orientation;
        record(QStringLiteral("orientation %1").arg(orientation));
    }
    double width() override { return orientation_ == Landscape ? 1000 : 500; }
    double height() override { return orientation_ == Landscape ? 500 : 1000; }
    void setFontSize(int points) override { record(QStringLiteral("font %1").arg(points)); }
    void setCurrentX(double x) override { record(QStringLiteral("x %1").arg(x)); }
    void setCurrentY(double y) override { record(QStringLiteral("y %1").arg(y)); }
    void paintPicture(const QImage& image, double x, double y, double width, double height) override
    {
        if (onPaint)
            onPaint();
        picture = image;
        record(QStringLiteral("picture %1 %2 %3 %4").arg(x).arg(y).arg(width).arg(height));
    }
    void endDoc() override { record(QStringLiteral("end")); }

private:
    void record(const QString& text)
    {
        calls.push_back(text);
        if (journal_)
            journal_->write(QStringLiteral("print ") + text);
    }

    Journal* journal_;
    Orientation orientation_ = Portrait;
};

} // namespace orb
