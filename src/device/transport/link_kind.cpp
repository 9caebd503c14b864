// SPDX-License-Identifier: GPL-3.0-or-later
#include "link_kind.h"

#include "sim_transport.h"
#include "tcp_transport.h"

#include <algorithm>

namespace orb {

namespace {

LinkKind simulatedKind(Clock& clock)
{
    const auto time = [&clock]() -> std::chrono::nanoseconds { return std::chrono::milliseconds(clock.elapsed()); };
    const auto instrument = std::make_shared<SimulatedInstrument>(defaultConfiguration(), time);
    return {
        .title = QStringLiteral("Simulated instrument"),
        .linkType = 0,
        .example = {},
        .resourceName = [](const QString& typed) -> std::optional<QString> {
            const bool own = typed.isEmpty() || typed.compare(SimTransport::resourceName(), Qt::CaseInsensitive) == 0;
            return own ? std::optional(SimTransport::resourceName()) : std::nullopt;
        },
        .typed = [](const QString&) { return QString(); },
        .remoteName = [](const QString&) { return QStringLiteral("the simulated instrument"); },
        .transport = [instrument](const QString&) { return std::make_unique<SimTransport>(instrument); },
    };
}

LinkKind tcpKind()
{
    const auto shown = [](const QString& resourceName) {
        const auto address = readTcpAddress(resourceName);
        return address ? address->shown() : QString();
    };
    return {
        .title = QStringLiteral("Network (TCP)"),
        .linkType = 2,
        .example = QStringLiteral("192.168.0.7, load-3.lab:5025 or [fe80::1]:5025; without a port it is 5025"),
        .resourceName = [](const QString& typed) -> std::optional<QString> {
            const auto address = readTcpAddress(typed);
            return address ? std::optional(address->resourceName()) : std::nullopt;
        },
        .typed = shown,
        .remoteName = shown,
        .transport = [](const QString& resourceName) -> std::unique_ptr<Transport> {
            return std::make_unique<TcpTransport>(readTcpAddress(resourceName).value_or(TcpAddress{}));
        },
    };
}

} // namespace

std::vector<LinkKind> standardLinkKinds(Clock& clock)
{
    return {simulatedKind(clock), tcpKind()};
}

const LinkKind* kindOf(const std::vector<LinkKind>& kinds, const QString& resourceName)
{
    const auto owns = [&](const LinkKind& kind) { return kind.resourceName(resourceName) == resourceName; };
    const auto found = std::ranges::find_if(kinds, owns);
    return found == kinds.end() || resourceName.isEmpty() ? nullptr : &*found;
}

} // namespace orb
