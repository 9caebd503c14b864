// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "form_test.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QMouseEvent>

namespace orb {

/// The number of the failure that `action` throws, 0 for none.
template <typename Action> int failureOf(Action action)
{
    try {
        action();
    } catch (const RuntimeFailure& failure) {
        return failure.number();
    }
    return 0;
}

/// Key presses that give the characters of `text`.
inline void type(QWidget& widget, const QString& text)
{
    for (const QChar c : text) {
        QKeyEvent down(QEvent::KeyPress, 0, Qt::NoModifier, QString(c));
        QCoreApplication::sendEvent(&widget, &down);
    }
}

/// A mouse event at this place of the widget.
inline void mouse(QWidget& widget, QEvent::Type type, QPointF at, Qt::MouseButton button = Qt::LeftButton)
{
    const bool isMove = type == QEvent::MouseMove;
    const Qt::MouseButtons down = type == QEvent::MouseButtonRelease ? Qt::NoButton : button;
    QMouseEvent event(type, at, widget.mapToGlobal(at), isMove ? Qt::NoButton : button, down, Qt::NoModifier);
    QCoreApplication::sendEvent(&widget, &event);
}

} // namespace orb
