// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// QCustomPlot's header is written with Qt's keywords, which this program does not use; they are defined while it is
// included only.
#define signals Q_SIGNALS
#define foreach(variable, container) for (variable : container) // NOLINT(bugprone-macro-parentheses)

#include <qcustomplot.h>

#undef signals
#undef foreach
