// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QApplication>

namespace orb {

/// Shows that the program is at work, for as long as it lives.
class WaitPointer {
public:
    WaitPointer() { QApplication::setOverrideCursor(Qt::WaitCursor); }
    ~WaitPointer() { end(); }
    WaitPointer(const WaitPointer&) = delete;
    WaitPointer& operator=(const WaitPointer&) = delete;

    /// Takes the pointer back before a message box comes up.
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
