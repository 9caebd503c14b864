// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "served_log.h"
#include "simulator_configuration.h"

#include <memory>
#include <string>
#include <string_view>

namespace orb {

class Mainframe;

/// A modular DC electronic load that is none: the model, its physics and its command language, without a link. It
/// lives in one thread and does nothing by itself; time moves on when a message is executed.
class SimulatedInstrument {
public:
    /// The longest message that is read, without its line end.
    static constexpr std::size_t maxMessage = 64 * 1024;
    /// The longest response that is given.
    static constexpr std::size_t maxResponse = 1024 * 1024;

    /// Switched on, all inputs off. Throws `std::invalid_argument` where the configuration makes no instrument.
    explicit SimulatedInstrument(const SimulatorConfiguration& configuration = defaultConfiguration(),
                                 SimulatorClock clock = steadyClock());
    ~SimulatedInstrument();
    SimulatedInstrument(const SimulatedInstrument&) = delete;
    SimulatedInstrument& operator=(const SimulatedInstrument&) = delete;

    /// Executes one program message, given without line end, and returns the response message without line end:
    /// empty when nothing was asked, or nothing that could be answered. Several answers are joined by semicolons. An
    /// answer may be a definite-length block and hold any byte. Takes any bytes, and never throws for what they say: a
    /// bad command puts an entry into the error queue.
    std::string execute(std::string_view message);

    /// For a link that dropped a message longer than `maxMessage`: puts the fact into the error queue.
    void reportOverrun();

    int channelCount() const;
    /// The state, up to date as of the last message.
    const Mainframe& mainframe() const;
    /// What was answered to :FETC:ALLC?, :FETC:ALLV? and their like.
    const ServedLog& served() const;

    /// Puts another source on the terminals of a channel (1 to `channelCount()`), as a hand at the bench would.
    void connectSource(int channel, const Source& source);

private:
    struct Parts;
    std::unique_ptr<Parts> parts_;
};

} // namespace orb
