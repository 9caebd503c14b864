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

/// The control of a control array that has this index. Throws `RuntimeFailure` 340 where none has.
template <typename Array> auto& element(Array& controls, int index)
{
    if (index < 0 || index >= static_cast<int>(std::size(controls)))
        throw RuntimeFailure(failure::NoSuchControl);
    return controls[static_cast<std::size_t>(index)];
}

/// `Run::enter` for an event of `source`, through the `Form` that contains it. A widget outside of any form belongs to
/// no page, and its handler is not run.
void enter(const QWidget& source, const std::function<void()>& handler) noexcept;

/// What every control adds to its Qt widget: `visible` and `enabled`, which are the control's own setting whatever its
/// container's is, a tag text, and its place in twips.
template <typename Widget> class Control : public Widget {
public:
    using Widget::Widget;

    /// A control that was never shown nor hidden is visible; Qt counts one as hidden until its window is shown.
    bool visible() const { return !(this->isHidden() && this->testAttribute(Qt::WA_WState_ExplicitShowHide)); }
    bool enabled() const { return !this->testAttribute(Qt::WA_ForceDisabled); }

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
    /// For events of the desktop: runs `handler` as page logic, if it is set.
    void enter(const std::function<void()>& handler)
    {
        if (handler)
            orb::enter(*this, handler);
    }

    void setColor(QPalette::ColorRole role, const QColor& color)
    {
        QPalette colors = this->palette();
        colors.setColor(role, color);
        this->setPalette(colors);
    }

private:
    QString tag_;
};

} // namespace orb
