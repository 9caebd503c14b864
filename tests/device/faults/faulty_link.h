// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "paced_transport.h"

#include <memory>
#include <string>

namespace orb {

/// A kind of link to a simulated instrument with faults.
class FaultyLink {
public:
    virtual ~FaultyLink() = default;

    virtual std::unique_ptr<Transport> transport() = 0;
    /// The link can be made again after a fault that ended it.
    virtual void restore() {}
    /// The answer of the instrument to a message that comes over another link.
    virtual std::string execute(const std::string& message) = 0;

    Pace pace;
};

enum class LinkName { Simulated, Tcp, Serial, Usbtmc };

std::unique_ptr<FaultyLink> makeFaultyLink(LinkName name, const std::string& script, VirtualClock& clock);

} // namespace orb
