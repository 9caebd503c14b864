// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "served_log.h"
#include "simulator_configuration.h"

#include <memory>
#include <string>
#include <string_view>

namespace orb {

class Mainframe;

/// A simulated modular DC electronic load: the mainframe, its physics and its command language, without a link. It is
/// used in one thread and does nothing by itself; time passes when a message is executed.
class SimulatedInstrument {
public:
    /// The longest message that is read, without its line end.
    static constexpr std::size_t maxMessage = 64 * 1024;
    /// The longest response that is given.
    static constexpr std::size_t maxResponse = 1024 * 1024;

    /// Switched on, with all inputs off. Throws `std::invalid_argument` for an invalid configuration.
    explicit SimulatedInstrument(const SimulatorConfiguration& configuration = defaultConfiguration(),
                                 SimulatorClock clock = steadyClock());
    ~SimulatedInstrument();
    SimulatedInstrument(const SimulatedInstrument&) = delete;
    SimulatedInstrument& operator=(const SimulatedInstrument&) = delete;

    /// Executes one message and returns the response, both without line end. The response is empty where the message has
    /// no query that can be answered; several answers are joined by semicolons. An answer may be a definite-length block
    /// and hold any byte. Takes any bytes and does not throw: a bad command puts an entry into the error queue.
    std::string execute(std::string_view message);

    /// Puts an error into the queue: the link has dropped a message longer than `maxMessage`.
    void reportOverrun();

    int channelCount() const;
    /// The state as of the last message.
    const Mainframe& mainframe() const;
    /// The answers to :FETC:ALLC?, :FETC:ALLV? and the other queries for the readings of all channels.
    const ServedLog& served() const;

    /// Connects another source to the terminals of a channel (1 to `channelCount()`).
    void connectSource(int channel, const Source& source);

private:
    struct Parts;
    std::unique_ptr<Parts> parts_;
};

} // namespace orb
