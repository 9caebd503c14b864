// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "control.h"

#include <QCheckBox>
#include <QRadioButton>

namespace orb {

class CheckBox : public Control<QCheckBox> {
public:
    enum Value : int { Unchecked = 0, Checked = 1, Grayed = 2 };

    std::function<void()> onClick;

    explicit CheckBox(const QString& caption = {}, QWidget* parent = nullptr);

    QString caption() const { return text(); }
    void setCaption(const QString& caption) { setText(caption); }

    Value value() const;
    /// Runs `onClick` inside the assignment when the value changes. Throws `RuntimeFailure` 380 outside of 0 to 2.
    void setValue(int value);

protected:
    /// For the operator the box has two states: a press unchecks a grayed one.
    void nextCheckState() override;
    void paintEvent(QPaintEvent* event) override;
};

/// One of several in the same container, of which at most one is selected.
class OptionButton : public Control<QRadioButton> {
public:
    std::function<void()> onClick;

    explicit OptionButton(const QString& caption = {}, QWidget* parent = nullptr);

    QString caption() const { return text(); }
    void setCaption(const QString& caption) { setText(caption); }

    bool value() const { return isChecked(); }
    /// Selecting deselects the others of the container and runs `onClick` inside the assignment if it was not selected.
    void setValue(bool value);

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace orb
