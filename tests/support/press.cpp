// SPDX-License-Identifier: GPL-3.0-or-later
#include "press.h"

#include <QCoreApplication>
#include <QMouseEvent>
#include <QTest>

#include <gtest/gtest.h>

namespace orb {

bool isReachable(const QWidget& control)
{
    for (const QWidget* widget = &control; widget && !widget->isWindow(); widget = widget->parentWidget())
        if ((widget->testAttribute(Qt::WA_WState_Hidden) && widget->testAttribute(Qt::WA_WState_ExplicitShowHide)) ||
            widget->testAttribute(Qt::WA_ForceDisabled))
            return false;
    return control.isEnabled();
}

void hitKey(QWidget& focused, Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    giveFocus(focused);
    QTest::keyClick(&focused, key, modifiers);
}

void giveFocus(QWidget& control)
{
    control.activateWindow();
    QCoreApplication::processEvents();
    control.setFocus();
    ASSERT_TRUE(control.hasFocus());
}

void doubleClick(ListBox& list, int line)
{
    const QPoint at = list.visualItemRect(list.item(line)).center();
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, at);
    QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, at);
}

void pick(ComboBox& combo, const QString& item)
{
    if (!isReachable(combo))
        return;
    const int index = combo.findText(item);
    ASSERT_GE(index, 0) << "no item " << item.toStdString();
    combo.setCurrentIndex(index);
    Q_EMIT combo.activated(index);
}

void pick(ListBox& list, const QString& line)
{
    if (!isReachable(list))
        return;
    const auto items = list.findItems(line, Qt::MatchExactly);
    ASSERT_FALSE(items.isEmpty()) << "no line " << line.toStdString();
    list.resize(list.size().expandedTo({120, 120}));
    list.scrollToItem(items.constFirst());
    const QPointF at = list.visualItemRect(items.constFirst()).center();
    QMouseEvent down(QEvent::MouseButtonPress, at, list.viewport()->mapToGlobal(at), Qt::LeftButton, Qt::LeftButton,
                     Qt::NoModifier);
    QMouseEvent up(QEvent::MouseButtonRelease, at, list.viewport()->mapToGlobal(at), Qt::LeftButton, Qt::NoButton,
                   Qt::NoModifier);
    QCoreApplication::sendEvent(list.viewport(), &down);
    QCoreApplication::sendEvent(list.viewport(), &up);
}

} // namespace orb
