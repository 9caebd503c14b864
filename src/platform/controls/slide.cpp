// SPDX-License-Identifier: GPL-3.0-or-later
#include "slide.h"

#include "dark_outline.h"

#include <QPainter>
#include <QStyleOptionSlider>

namespace orb {

namespace {
constexpr int tickLength = 5;
constexpr int gap = 6;    // between the slider and the texts
constexpr int spread = 4; // between two texts
} // namespace

Slide::Slide(const QStringList& positions, QWidget* parent) : Control<QSlider>(parent), positions_(positions)
{
    setOrientation(Qt::Vertical);
    setInvertedAppearance(true);
    setInvertedControls(true);
    setRange(0, static_cast<int>(positions.size()) - 1);
    setPageStep(1);
    setTickPosition(QSlider::TicksRight);
    setTickInterval(1);
    setAccessibleDescription(text());
    QObject::connect(this, &QSlider::valueChanged, this, [this] {
        setAccessibleDescription(text());
        enter(onChange);
    });
}

void Slide::setValue(int position)
{
    if (position < 0 || position >= positions_.size())
        throw RuntimeFailure(failure::InvalidPropertyValue);
    if (position == value())
        return;
    {
        const QSignalBlocker quiet(this);
        QSlider::setValue(position);
    }
    setAccessibleDescription(text());
    if (onChange)
        onChange();
}

int Slide::barWidth() const
{
    return style()->pixelMetric(QStyle::PM_SliderThickness, nullptr, this) + tickLength;
}

QSize Slide::sizeHint() const
{
    int widest = 0;
    for (const QString& position : positions_)
        widest = std::max(widest, fontMetrics().horizontalAdvance(position));
    return {barWidth() + gap + widest, static_cast<int>(positions_.size()) * (fontMetrics().height() + spread)};
}

/// The slider itself takes the left edge of the control, in painting and for the mouse alike.
void Slide::initStyleOption(QStyleOptionSlider* option) const
{
    QSlider::initStyleOption(option);
    option->rect.setWidth(std::min(barWidth(), width()));
}

/// The groove above and below the handle, and the handle.
void Slide::drawOutlines(const QStyleOptionSlider& option)
{
    const auto place = [&](QStyle::SubControl part) {
        return style()->subControlRect(QStyle::CC_Slider, &option, part, this);
    };
    const QRect handle = place(QStyle::SC_SliderHandle);
    const int middle = handle.center().x();
    QPainter painter(this);
    drawDarkOutline(painter, handle, *this);
    painter.setClipRegion(QRegion(rect()).subtracted(handle));
    painter.setPen(QPen(outlineColor(*this), 2));
    const QRect groove = place(QStyle::SC_SliderGroove);
    painter.drawLine(middle, groove.top(), middle, groove.bottom());
}

void Slide::paintEvent(QPaintEvent* event)
{
    QSlider::paintEvent(event);
    QStyleOptionSlider option;
    initStyleOption(&option);
    if (needsOutline(*this))
        drawOutlines(option);
    const int handle = style()->pixelMetric(QStyle::PM_SliderLength, &option, this);
    const int left = option.rect.right() + gap;
    const int line = fontMetrics().height();
    QPainter painter(this);
    for (int i = 0; i <= maximum(); ++i) {
        const int middle = handle / 2 + QStyle::sliderPositionFromValue(0, maximum(), i, height() - handle);
        const int top = std::clamp(middle - line / 2, 0, height() - line);
        style()->drawItemText(&painter, {left, top, width() - left, line}, Qt::AlignLeft | Qt::AlignVCenter, palette(),
                              isEnabled(), positions_[i], foregroundRole());
    }
}

} // namespace orb
