// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCoreApplication>
#include <QEventLoop>
#include <QLabel>

namespace orb {

/// A small window that says what the program is busy with before its main form is shown. It has the wait pointer and
/// takes no input.
class WaitWindow {
public:
    explicit WaitWindow(const QString& text) : label_(text, nullptr, Qt::SplashScreen)
    {
        label_.setMargin(24);
        label_.setCursor(Qt::WaitCursor);
        label_.show();
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents); // nothing paints it later
    }

private:
    QLabel label_;
};

} // namespace orb
