// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "combo_box.h"

#include <QAbstractItemView>
#include <QKeyEvent>
#include <QSignalBlocker>
#include <QWheelEvent>

namespace orb {

/// A drop-down list in which nothing is chosen in passing: a key opens the list, where Enter or a click chooses and
/// Escape leaves the choice as it was. The wheel does nothing.
class ChoiceBox final : public ComboBox {
public:
    explicit ChoiceBox(const QStringList& choices) : ComboBox(Kind::DropDownList) { addItems(choices); }

    /// Selects without a handler; -1 is no selection. An open list is left alone.
    void display(int index)
    {
        const QSignalBlocker quiet(this);
        if (!view()->isVisible())
            setCurrentIndex(index);
    }

protected:
    void keyPressEvent(QKeyEvent* event) override
    {
        const bool opens = !event->text().trimmed().isEmpty() || event->key() == Qt::Key_Space ||
                           event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter ||
                           (event->key() >= Qt::Key_Home && event->key() <= Qt::Key_PageDown) ||
                           event->key() == Qt::Key_F4;
        if (opens && event->key() != Qt::Key_Escape)
            showPopup();
        else
            event->ignore();
    }

    void wheelEvent(QWheelEvent* event) override { event->ignore(); }
};

} // namespace orb
