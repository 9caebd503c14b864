// SPDX-License-Identifier: GPL-3.0-or-later
#include "image.h"

#include "picture.h"

#include <QMouseEvent>
#include <QPainter>

namespace orb {

Image::Image(QWidget* parent) : Control<QWidget>(parent)
{
    setMouseTracking(true);
}

void Image::setPicture(const QString& path)
{
    pixmap_ = path.isEmpty() ? QPixmap() : loadPicture(path);
    path_ = path;
    update();
}

void Image::setPixmap(const QPixmap& pixmap)
{
    pixmap_ = pixmap;
    path_.clear();
    update();
}

void Image::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    if (!pixmap_.isNull())
        painter.drawPixmap(rect(), pixmap_);
}

void Image::enterAt(QPointF place, const MouseHandler& handler)
{
    if (!handler)
        return;
    const QSizeF unit = designSize_.isEmpty()
                            ? QSizeF(1, 1)
                            : QSizeF(1.0 * designSize_.width() / width(), 1.0 * designSize_.height() / height());
    const auto x = static_cast<float>(place.x() * unit.width() * twipsPerPixel);
    const auto y = static_cast<float>(place.y() * unit.height() * twipsPerPixel);
    enter([&] { handler(x, y); });
}

void Image::mousePressEvent(QMouseEvent* event)
{
    enterAt(event->position(), onMouseDown);
}

void Image::mouseMoveEvent(QMouseEvent* event)
{
    enterAt(event->position(), onMouseMove);
}

void Image::mouseReleaseEvent(QMouseEvent* event)
{
    enterAt(event->position(), onMouseUp);
}

} // namespace orb
