// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "fault_delivery.h"
#include "simulated_instrument.h"

#include <string>
#include <utility>
#include <vector>

namespace orb {

/// A simulated instrument of eight channels whose answers have the faults of a script, without a link.
class FaultyInstrument {
public:
    explicit FaultyInstrument(const std::string& script, SimulatorClock clock = steadyClock())
        : faults_(FaultScript::parse(script)), instrument_(defaultConfiguration(8), std::move(clock))
    {}
    virtual ~FaultyInstrument() = default;
    FaultyInstrument(const FaultyInstrument&) = delete;
    FaultyInstrument& operator=(const FaultyInstrument&) = delete;

    /// What is sent when `message` is received, in order. An answer that a fault has held back comes first.
    std::vector<DeliveryStep> receive(const std::string& message)
    {
        const Fault fault = faultOf(message);
        std::vector<DeliveryStep> due = std::exchange(held_, {});
        for (DeliveryStep& step : deliver(fault, answer(message), ++messages_))
            (step.afterNext ? held_ : due).push_back(std::move(step));
        faultCount_ += fault.kind == Fault::Kind::None ? 0 : 1;
        return due;
    }
    /// The answer to a message that comes over another link.
    std::string execute(const std::string& message) { return instrument_.execute(message); }
    /// The faults so far.
    int faultCount() const { return faultCount_; }

protected:
    virtual Fault faultOf(const std::string& message) { return faults_.onMessage(message); }
    virtual std::string answer(const std::string& message) { return instrument_.execute(message); }

private:
    FaultScript faults_;
    SimulatedInstrument instrument_;
    std::vector<DeliveryStep> held_;
    std::uint64_t messages_ = 0;
    int faultCount_ = 0;
};

} // namespace orb
