// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>

class QWidget;

namespace orb {

/// The controls inside of a widget that assistive technologies can give the focus to, or read, and that have no name to
/// be read: a line each, with role, class and object name, and the containers with their names. Shown or not, since the
/// rest of a page shows sooner or later.
QStringList unnamedControls(QWidget& widget);

} // namespace orb
