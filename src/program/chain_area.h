// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "label.h"

namespace orb {

/// The area of the chain boxes, which the frame of a step covers while it is open: as high as that frame where the
/// window allows it, and as high as its boxes in a low window.
class ChainArea final : public QWidget {
public:
    /// `hint` is a text below the boxes, shown where there is room for it.
    explicit ChainArea(Label& hint) : hint_(hint) { setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred); }

    void setUsualHeight(int height)
    {
        usualHeight_ = height;
        updateGeometry();
    }

    /// The hint below the boxes wraps, and would otherwise decide on the height.
    bool hasHeightForWidth() const override { return false; }
    QSize sizeHint() const override { return {QWidget::sizeHint().width(), usualHeight_}; }

protected:
    void resizeEvent(QResizeEvent* event) override
    {
        QWidget::resizeEvent(event);
        hint_.setVisible(height() - minimumSizeHint().height() >= hint_.heightForWidth(width()));
    }

private:
    Label& hint_;
    int usualHeight_ = 0;
};

} // namespace orb
