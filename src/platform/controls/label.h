// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "control.h"

#include <QGroupBox>
#include <QLabel>
#include <QProgressBar>

namespace orb {

class Label : public Control<QLabel> {
public:
    explicit Label(const QString& caption = {}, QWidget* parent = nullptr) : Control<QLabel>(caption, parent)
    {
        setTextFormat(Qt::PlainText);
    }

    QString caption() const { return text(); }
    void setCaption(const QString& caption) { setText(caption); }
};

/// A container with a border and a caption.
class Frame : public Control<QGroupBox> {
public:
    /// The mouse moved over the frame itself, with no button down.
    std::function<void()> onMouseMove;

    explicit Frame(const QString& caption = {}, QWidget* parent = nullptr) : Control<QGroupBox>(caption, parent)
    {
        setMouseTracking(true); // Qt delivers no move without a button otherwise
        setAccessibleName(caption);
    }

    QString caption() const { return title(); }
    /// Assistive tools read it too; without a name a frame within a frame would be read by that of the outer one.
    void setCaption(const QString& caption)
    {
        setTitle(caption);
        setAccessibleName(caption);
    }

protected:
    void mouseMoveEvent(QMouseEvent* event) override
    {
        QGroupBox::mouseMoveEvent(event);
        enter(onMouseMove);
    }
};

class ProgressBar : public Control<QProgressBar> {
public:
    /// Shows values from 0 to `max`.
    explicit ProgressBar(int max = 100, QWidget* parent = nullptr) : Control<QProgressBar>(parent)
    {
        setRange(0, max);
        setTextVisible(false);
        QProgressBar::setValue(0);
    }

    /// Throws `RuntimeFailure` 380 outside of the range.
    void setValue(int value)
    {
        if (value < minimum() || value > maximum())
            throw RuntimeFailure(failure::InvalidPropertyValue);
        QProgressBar::setValue(value);
    }
};

} // namespace orb
