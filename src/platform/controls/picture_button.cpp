// SPDX-License-Identifier: GPL-3.0-or-later
#include "picture_button.h"

#include "picture.h"

#include <QKeyEvent>

namespace orb {

PictureButton::PictureButton(const QString& caption, QWidget* parent) : Control<QToolButton>(parent)
{
    setText(caption);
    setFocusPolicy(Qt::StrongFocus);
    setToolButtonStyle(Qt::ToolButtonTextOnly);
    QObject::connect(this, &QToolButton::clicked, this, [this] { enter(onClick); });
}

void PictureButton::setPicture(const QString& path)
{
    if (path == picture_)
        return;
    setIcon(path.isEmpty() ? QIcon() : pictureIcon(path));
    picture_ = path;
    setToolButtonStyle(path.isEmpty()        ? Qt::ToolButtonTextOnly
                       : caption().isEmpty() ? Qt::ToolButtonIconOnly
                                             : Qt::ToolButtonTextUnderIcon);
}

/// Enter presses the button as the space bar does.
void PictureButton::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        click();
    else
        QToolButton::keyPressEvent(event);
}

} // namespace orb
