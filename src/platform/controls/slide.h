// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "control.h"

#include <QSlider>

namespace orb {

/// A vertical slider over a few positions, numbered from 0 at the top, with the text of each beside it. The mouse, the
/// wheel, the arrow keys, Home and End move it.
class Slide : public Control<QSlider> {
public:
    /// The operator or an assignment moved the slide.
    std::function<void()> onChange;

    /// `positions` are the texts, at least one. The slide starts at the first.
    explicit Slide(const QStringList& positions, QWidget* parent = nullptr);

    const QStringList& positions() const { return positions_; }
    /// Runs `onChange` inside the assignment when the position changes. Throws `RuntimeFailure` 380 for a number that
    /// has no position.
    void setValue(int position);
    /// The text of the position at which it stands.
    const QString& text() const { return positions_[value()]; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void initStyleOption(QStyleOptionSlider* option) const override;
    void paintEvent(QPaintEvent* event) override;

private:
    int barWidth() const;
    void drawOutlines(const QStyleOptionSlider& option);

    QStringList positions_;
};

} // namespace orb
