// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "network_search.h"

namespace orb {

/// A service that a host on the network announces by mDNS.
struct Announcement {
    enum class Service {
        RawScpi, ///< _scpi-raw._tcp: command lines over a socket, at its port
        Lxi,     ///< _lxi._tcp: an instrument; its port is that of its web page
    };

    Service service = Service::RawScpi;
    QString title;
    QString address; ///< in numbers
    quint16 port = 0;
};

/// The announced instruments, in their order, each resource name once. One that announces no socket of its
/// own is taken to have it at port 5025.
QList<NetworkInstrument> instrumentsOf(const QList<Announcement>& announcements);

} // namespace orb
