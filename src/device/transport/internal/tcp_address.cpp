// SPDX-License-Identifier: GPL-3.0-or-later
#include "tcp_address.h"

#include <QHostAddress>
#include <QRegularExpression>

#include <algorithm>

namespace orb {

namespace {

constexpr qsizetype longestHost = 253;

bool isIPv6(const QString& host)
{
    return QHostAddress(host).protocol() == QAbstractSocket::IPv6Protocol;
}

/// A name or an address, of characters that a host can have.
bool isHost(const QString& host)
{
    if (isIPv6(host))
        return true;
    const auto fits = [](QChar c) {
        return c.isLetterOrNumber() || c == QLatin1Char('.') || c == QLatin1Char('-') || c == QLatin1Char('_');
    };
    return !host.isEmpty() && host.size() <= longestHost && std::ranges::all_of(host, fits);
}

std::optional<quint16> readPort(const QString& text)
{
    const bool digits = !text.isEmpty() && text.size() <= 5 && std::ranges::all_of(text, [](QChar c) {
        return c >= QLatin1Char('0') && c <= QLatin1Char('9');
    });
    const uint port = digits ? text.toUInt() : 0;
    if (port < 1 || port > 65535)
        return std::nullopt;
    return static_cast<quint16>(port);
}

std::optional<TcpAddress> make(QString host, const QString& portText)
{
    if (host.startsWith(QLatin1Char('[')) && host.endsWith(QLatin1Char(']'))) {
        host = host.mid(1, host.size() - 2);
        if (!isIPv6(host))
            return std::nullopt;
    }
    const auto port = portText.isNull() ? std::optional(TcpAddress::defaultPort) : readPort(portText);
    if (!port || !isHost(host))
        return std::nullopt;
    return TcpAddress{host, *port};
}

QString bracketed(const QString& host)
{
    return host.contains(QLatin1Char(':')) ? QLatin1Char('[') + host + QLatin1Char(']') : host;
}

} // namespace

QString TcpAddress::resourceName() const
{
    return QStringLiteral("TCPIP0::%1::%2::SOCKET").arg(bracketed(host)).arg(port);
}

QString TcpAddress::shown() const
{
    return QStringLiteral("%1:%2").arg(bracketed(host)).arg(port);
}

std::optional<TcpAddress> readTcpAddress(const QString& typed)
{
    static const QRegularExpression resource(QStringLiteral("^TCPIP\\d?::(.+)::(\\d+)::SOCKET$"),
                                             QRegularExpression::CaseInsensitiveOption);
    const QString text = typed.trimmed();
    if (const auto match = resource.match(text); match.hasMatch())
        return make(match.captured(1), match.captured(2));
    if (isIPv6(text))
        return make(text, {});
    const qsizetype colon = text.lastIndexOf(QLatin1Char(':'));
    if (colon < 0 || text.endsWith(QLatin1Char(']')))
        return make(text, {});
    if (text.left(colon).contains(QLatin1Char(':')) && !text.startsWith(QLatin1Char('[')))
        return std::nullopt; // an IPv6 address with a port needs its brackets
    const QString port = text.mid(colon + 1);
    return make(text.left(colon), port.isNull() ? QStringLiteral("") : port);
}

} // namespace orb
