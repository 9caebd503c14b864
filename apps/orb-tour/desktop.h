// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QSize>
#include <QTemporaryDir>

namespace orb {

/// The desktop on which the tour runs, as its command line says.
class Desktop {
public:
    /// To be constructed before the application. Without a display, or with `--screen WIDTHxHEIGHT`, the desktop is one
    /// that nobody sees, with a screen of so many pixels.
    Desktop(int argc, char** argv);

    /// `--dark` and `--font POINTS`. To be called once the application is there.
    void dress() const;
    /// `--maximized`
    bool isMaximized() const { return isMaximized_; }

private:
    void selectPlatform() const;

    QTemporaryDir folder_;
    QSize screen_; ///< invalid: that of the platform
    bool isDark_ = false;
    bool isMaximized_ = false;
    int fontSize_ = 0; ///< in points; 0: that of the platform
};

} // namespace orb
