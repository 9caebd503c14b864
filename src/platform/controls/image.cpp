// SPDX-License-Identifier: GPL-3.0-or-later
#include "image.h"

#include "picture.h"

#include <QMouseEvent>
#include <QPainter>

namespace orb {

namespace {
float inTwips(double pixelPosition)
{
    return static_cast<float>(pixelPosition * twipsPerPixel);
}
} // namespace

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

void Image::mousePressEvent(QMouseEvent* event)
{
    if (onMouseDown)
        enter([this, at = event->position()] { onMouseDown(inTwips(at.x()), inTwips(at.y())); });
}

void Image::mouseMoveEvent(QMouseEvent* event)
{
    if (onMouseMove)
        enter([this, at = event->position()] { onMouseMove(inTwips(at.x()), inTwips(at.y())); });
}

void Image::mouseReleaseEvent(QMouseEvent* event)
{
    if (onMouseUp)
        enter([this, at = event->position()] { onMouseUp(inTwips(at.x()), inTwips(at.y())); });
}

} // namespace orb
