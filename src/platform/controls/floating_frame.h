// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "label.h"

namespace orb {

/// A frame that stands over other controls: opaque, with a strong border and its caption inside.
class FloatingFrame : public Frame {
public:
    explicit FloatingFrame(const QString& caption = {}, QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;
    /// Takes the presses that its controls leave, so that none reaches what it covers.
    void mousePressEvent(QMouseEvent* event) override;
};

} // namespace orb
