// SPDX-License-Identifier: GPL-3.0-or-later
#include "check_box.h"

namespace orb {

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

} // namespace orb
