// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "clock.h"
#include "network_search.h"
#include "transport.h"

#include <QStringList>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace orb {

/// A setting of a link beside its address, as the Connect page offers it.
struct LinkOption {
    /// "Baud rate"
    QString title;
    QStringList choices;
    /// The index of the choice of a first use.
    int preset = 0;
};

/// A kind of link, as the Connect page offers it.
struct LinkKind {
    static constexpr std::size_t mostOptions = 5;

    /// "Network (TCP)", in the list of the Connect page.
    QString title;
    /// `ORBCtrl::LinkType`: 1 is the serial line, the slow one.
    std::int16_t linkType = 0;
    /// Addresses of this kind, shown beside the address field. Empty where a link has no address.
    QString example;
    /// The resource name for what the operator typed, which may be a resource name; nothing where it is no address of
    /// this kind. The typed text is empty where a link has no address.
    std::function<std::optional<QString>(const QString& typed)> resourceName;
    /// A resource name of this kind as the operator would type it.
    std::function<QString(const QString& resourceName)> typed;
    /// What a message calls the remote end.
    std::function<QString(const QString& resourceName)> remoteName;
    /// A transport for a resource name of this kind, not open yet. `choices` has one of the choices of each option;
    /// what is missing or is none of them counts as the preset.
    std::function<std::unique_ptr<Transport>(const QString& resourceName, const QStringList& choices)> transport;
    /// `mostOptions` at most.
    std::vector<LinkOption> options = {};
    /// The addresses that exist on this machine now, as the operator would type them; null where that is not known.
    std::function<QStringList()> found = {};
    /// Begins a search of the network for instruments of this kind; null where there is none.
    std::function<std::unique_ptr<NetworkSearch>()> search = {};
};

/// Every kind of link that the program knows, the simulated instrument first. The simulated instrument lives as long
/// as the table or any of its transports. `clock` must outlive them.
std::vector<LinkKind> standardLinkKinds(Clock& clock);

/// The index of the choice of an option: the preset unless `choices`, those of all options in order, has another one.
int choiceOf(const std::vector<LinkOption>& options, std::size_t option, const QStringList& choices);

/// The kind that a resource name belongs to; null where it belongs to none.
const LinkKind* kindOf(const std::vector<LinkKind>& kinds, const QString& resourceName);

} // namespace orb
