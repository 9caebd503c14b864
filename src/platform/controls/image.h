// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "control.h"

#include <QPixmap>

namespace orb {

/// A picture, stretched to the size of the control.
class Image : public Control<QWidget> {
public:
    using MouseHandler = std::function<void(float x, float y)>;

    /// Positions are twips from the control's top left corner.
    MouseHandler onMouseDown;
    MouseHandler onMouseMove;
    MouseHandler onMouseUp;

    explicit Image(QWidget* parent = nullptr);

    /// The path of the picture as it was set, empty while there is none or it came from another control.
    const QString& picture() const { return path_; }
    /// Throws as `loadPicture` does; the control keeps its picture then.
    void setPicture(const QString& path);
    const QPixmap& pixmap() const { return pixmap_; }
    void setPixmap(const QPixmap& pixmap);
    /// Positions of the mouse are given as on a control of this size, in pixels, whatever size this one has.
    void setDesignSize(const QSize& size) { designSize_ = size; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    void enterAt(QPointF place, const MouseHandler& handler);

    QPixmap pixmap_;
    QString path_;
    QSize designSize_; ///< empty: the control's own
};

/// A picture that other controls may stand on.
class PictureBox : public Image {
public:
    using Image::Image;
};

} // namespace orb
