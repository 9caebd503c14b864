// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QApplication>

namespace orb {

/// Shows the wait pointer for as long as the object exists.
class WaitPointer {
public:
    WaitPointer() { QApplication::setOverrideCursor(Qt::WaitCursor); }
    ~WaitPointer() { end(); }
    WaitPointer(const WaitPointer&) = delete;
    WaitPointer& operator=(const WaitPointer&) = delete;

    /// Restores the pointer, for instance before a message box is shown.
    void end()
    {
        if (shown_)
            QApplication::restoreOverrideCursor();
        shown_ = false;
    }

private:
    bool shown_ = true;
};

} // namespace orb
