// SPDX-License-Identifier: GPL-3.0-or-later
// The headers of Qt and of the standard library that nearly every room includes, compiled once.
#include <QtCore>
#include <QtGui>
#include <QtWidgets>

#include <array>
#include <chrono>
#include <cmath>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>
