// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QString>

namespace orb {

/// An instrument that announces itself on the network.
struct NetworkInstrument {
    QString resourceName; ///< canonical: "TCPIP0::192.168.0.7::5025::SOCKET"
    QString title;        ///< as it calls itself

    bool operator==(const NetworkInstrument&) const = default;
};

/// One search of the network for instruments that announce themselves. It begins with the object and goes on until its
/// end, after which nothing is sent any more. No member blocks.
class NetworkSearch {
public:
    virtual ~NetworkSearch() = default;

    /// What was found so far, each resource name once.
    virtual QList<NetworkInstrument> found() const = 0;
    /// Why the network can't be searched, a sentence; empty while it can.
    virtual QString failure() const = 0;
};

} // namespace orb
