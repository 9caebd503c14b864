// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "fault_script.h"

namespace orb {

/// One step of the delivery of an answer. Steps are executed in order.
struct DeliveryStep {
    enum class End { None, Close, Reset, Refuse };

    /// How long to wait before the step.
    std::chrono::milliseconds wait{0};
    /// What is sent, in one write.
    std::string bytes{};
    /// What happens to the connection after that.
    End end = End::None;
    /// With `End::Refuse`: how long new connections are refused, 0 for ever.
    std::chrono::milliseconds refusal{0};
    /// Held until the next message of the same client has been received.
    bool afterNext = false;
};

/// Whether the client receives the whole answer in spite of the fault.
bool leavesWhole(const Fault& fault);

/// The delivery of an answer under a fault. `answer` has no line end; it is empty for a message without a query, and
/// then only what the fault itself sends is sent. `garbageSeed` determines the bytes of `Garbage`.
std::vector<DeliveryStep> deliver(const Fault& fault, std::string_view answer, std::uint64_t garbageSeed);

} // namespace orb
