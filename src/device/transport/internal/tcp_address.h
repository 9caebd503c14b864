// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <optional>

namespace orb {

/// Host and port of an instrument on the network.
struct TcpAddress {
    static constexpr quint16 defaultPort = 5025;

    QString host;
    quint16 port = defaultPort;

    /// "TCPIP0::192.168.0.7::5025::SOCKET"; an IPv6 address stands in square brackets.
    QString resourceName() const;
    /// "192.168.0.7:5025", as the operator reads it.
    QString shown() const;

    bool operator==(const TcpAddress&) const = default;
};

/// Reads what an operator types: a host name or address, with or without ":port" after it, or a resource name. The port
/// is 5025 where none is given. Nothing where it is none of these.
std::optional<TcpAddress> readTcpAddress(const QString& typed);

} // namespace orb
