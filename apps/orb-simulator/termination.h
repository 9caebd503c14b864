// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>

#include <functional>

namespace orb {

/// Calls `handler` in the event loop when the process is requested to end (SIGTERM, SIGINT). `context` must outlive the
/// event loop. May be called once.
void onTermination(QObject& context, const std::function<void()>& handler);

} // namespace orb
