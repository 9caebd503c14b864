// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "run.h"

#include <QWidget>

namespace orb {

/// Twips to a pixel at 96 dpi: positions and sizes of controls are given in twips.
constexpr int twipsPerPixel = 15;

constexpr int pixels(int twips)
{
    return twips / twipsPerPixel;
}
constexpr int twips(int pixels)
{
    return pixels * twipsPerPixel;
}

/// `Run::enter` for an event of `source`, by way of the `Form` that stands above it. A widget that stands on no form
/// has no page logic behind it, and its handler is not run.
void enter(const QWidget& source, const std::function<void()>& handler) noexcept;

/// What every control adds to its Qt widget: `visible` and `enabled` that read back the control's own setting whatever
/// its container's is, a tag text, and its place in twips.
template <typename Widget> class Control : public Widget {
public:
    using Widget::Widget;

    bool visible() const { return visible_; }
    void setVisible(bool visible) override
    {
        visible_ = visible;
        Widget::setVisible(visible);
    }

    bool enabled() const { return enabled_; }
    void setEnabled(bool enabled)
    {
        enabled_ = enabled;
        Widget::setEnabled(enabled);
    }

    const QString& tag() const { return tag_; }
    void setTag(const QString& tag) { tag_ = tag; }

    /// The place inside the container and the size, in twips.
    int leftTwips() const { return twips(this->x()); }
    int topTwips() const { return twips(this->y()); }
    int widthTwips() const { return twips(this->width()); }
    int heightTwips() const { return twips(this->height()); }
    void moveTwips(int left, int top) { this->move(pixels(left), pixels(top)); }
    void resizeTwips(int width, int height) { this->resize(pixels(width), pixels(height)); }

    /// In front of all its siblings.
    void bringToFront() { this->raise(); }

protected:
    /// For what comes from the desktop: runs `handler` as page logic, if it is set.
    void enter(const std::function<void()>& handler)
    {
        if (handler)
            orb::enter(*this, handler);
    }

private:
    bool visible_ = true;
    bool enabled_ = true;
    QString tag_;
};

} // namespace orb
