// SPDX-License-Identifier: GPL-3.0-or-later
#include "announcement.h"

#include "tcp_address.h"

#include <algorithm>

namespace orb {

namespace {

bool hasSocket(const QList<Announcement>& announcements, const QString& address)
{
    return std::ranges::any_of(announcements, [&](const Announcement& each) {
        return each.service == Announcement::Service::RawScpi && each.address == address;
    });
}

} // namespace

QList<NetworkInstrument> instrumentsOf(const QList<Announcement>& announcements)
{
    QList<NetworkInstrument> instruments;
    for (const Announcement& each : announcements) {
        const bool isRaw = each.service == Announcement::Service::RawScpi;
        if (!isRaw && hasSocket(announcements, each.address))
            continue;
        const TcpAddress address{each.address, isRaw ? each.port : TcpAddress::defaultPort};
        const NetworkInstrument instrument{address.resourceName(), each.title};
        if (std::ranges::find(instruments, instrument.resourceName, &NetworkInstrument::resourceName) ==
            instruments.end())
            instruments.append(instrument);
    }
    return instruments;
}

} // namespace orb
