// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QHostAddress>
#include <QList>

#include <memory>

namespace orb {

/// Asks for the addresses of a host name on a thread of its own, since the system's resolver may take its time and
/// hears neither a limit nor a cancel. A lookup that nobody waits for any more ends unheard.
class HostLookup {
public:
    explicit HostLookup(const QString& name);

    /// True when the answer is there.
    bool isDone() const;
    /// Blocks for `limitMs` at most. True when the answer is there.
    bool wait(int limitMs) const;
    /// The addresses, in the order in which to try them; empty while the answer is not there, and for a name that
    /// leads nowhere.
    QList<QHostAddress> addresses() const;

private:
    struct Shared;
    std::shared_ptr<Shared> shared_;
};

} // namespace orb
