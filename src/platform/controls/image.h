// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "control.h"

#include <QPixmap>

namespace orb {

/// A picture, stretched to the size of the control.
class Image : public Control<QWidget> {
public:
    /// Positions are twips from the control's top left corner.
    std::function<void(float x, float y)> onMouseDown;
    std::function<void(float x, float y)> onMouseMove;
    std::function<void(float x, float y)> onMouseUp;

    explicit Image(QWidget* parent = nullptr);

    /// The path of the picture as it was set, empty while there is none or it came from another control.
    const QString& picture() const { return path_; }
    /// Throws as `loadPicture` does; the control keeps its picture then.
    void setPicture(const QString& path);
    const QPixmap& pixmap() const { return pixmap_; }
    void setPixmap(const QPixmap& pixmap);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    QPixmap pixmap_;
    QString path_;
};

/// A picture that other controls may stand on.
class PictureBox : public Image {
public:
    using Image::Image;
};

} // namespace orb
