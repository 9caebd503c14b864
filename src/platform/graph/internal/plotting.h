// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// QCustomPlot's header is written with the keywords that this program does without; they stand for the time of its
// inclusion only. Only sources include this one: no header of the platform's users sees QCustomPlot.
#define signals Q_SIGNALS
#define foreach(variable, container) for (variable : container) // NOLINT(bugprone-macro-parentheses)

#include <qcustomplot.h>

#undef signals
#undef foreach
