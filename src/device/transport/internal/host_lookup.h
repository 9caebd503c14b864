// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QHostAddress>
#include <QList>

#include <memory>

namespace orb {

/// Resolves a host name on a thread of its own, since the system's resolver can neither be limited in time nor
/// cancelled. The result of a lookup that was destroyed meanwhile is dropped.
class HostLookup {
public:
    explicit HostLookup(const QString& name);

    /// True when the lookup is over.
    bool isDone() const;
    /// Blocks for `limitMs` at most. True when the lookup is over.
    bool wait(int limitMs) const;
    /// The addresses, in the order in which to try them; empty before the lookup is over, and for a name that no host
    /// has.
    QList<QHostAddress> addresses() const;

private:
    struct Shared;
    std::shared_ptr<Shared> shared_;
};

} // namespace orb
