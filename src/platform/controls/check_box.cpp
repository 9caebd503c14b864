// SPDX-License-Identifier: GPL-3.0-or-later
#include "check_box.h"

#include "dark_outline.h"

#include <QPainter>
#include <QStyleOptionButton>

namespace orb {

namespace {

/// The style marks the focus by another outline once the operator has used the keyboard.
bool showsFocus(const QStyleOptionButton& option)
{
    return option.state.testFlags(QStyle::State_HasFocus | QStyle::State_KeyboardFocusChange);
}

} // namespace

CheckBox::CheckBox(const QString& caption, QWidget* parent) : Control<QCheckBox>(caption, parent)
{
    QObject::connect(this, &QCheckBox::clicked, this, [this] { enter(onClick); });
}

CheckBox::Value CheckBox::value() const
{
    switch (checkState()) {
    case Qt::Unchecked:
        return Unchecked;
    case Qt::PartiallyChecked:
        return Grayed;
    case Qt::Checked:
        break;
    }
    return Checked;
}

void CheckBox::setValue(int value)
{
    if (value < Unchecked || value > Grayed)
        throw RuntimeFailure(failure::InvalidPropertyValue);
    if (value == this->value())
        return;
    {
        const QSignalBlocker quiet(this);
        setCheckState(value == Checked ? Qt::Checked : value == Grayed ? Qt::PartiallyChecked : Qt::Unchecked);
    }
    if (onClick)
        onClick();
}

void CheckBox::nextCheckState()
{
    setCheckState(value() == Unchecked ? Qt::Checked : Qt::Unchecked);
}

void CheckBox::paintEvent(QPaintEvent* event)
{
    QCheckBox::paintEvent(event);
    QStyleOptionButton option;
    initStyleOption(&option);
    if (!needsOutline(*this) || showsFocus(option))
        return;
    QPainter painter(this);
    drawDarkOutline(painter, style()->subElementRect(QStyle::SE_CheckBoxIndicator, &option, this), *this);
}

OptionButton::OptionButton(const QString& caption, QWidget* parent) : Control<QRadioButton>(caption, parent)
{
    QObject::connect(this, &QRadioButton::toggled, this, [this](bool on) {
        if (on)
            enter(onClick);
    });
}

void OptionButton::setValue(bool value)
{
    if (value == isChecked())
        return;
    {
        const QSignalBlocker quiet(this);
        setAutoExclusive(value); // else the last one selected could not be deselected
        setChecked(value);
        setAutoExclusive(true);
    }
    if (value && onClick)
        onClick();
}

void OptionButton::paintEvent(QPaintEvent* event)
{
    QRadioButton::paintEvent(event);
    QStyleOptionButton option;
    initStyleOption(&option);
    if (!needsOutline(*this) || showsFocus(option))
        return;
    const QRect circle = style()->subElementRect(QStyle::SE_RadioButtonIndicator, &option, this);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(outlineColor(*this));
    painter.drawEllipse(QRectF(circle).adjusted(1, 1, -1, -1));
}

} // namespace orb
