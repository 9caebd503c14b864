// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "simulated_instrument.h"
#include "transport.h"

#include <memory>

namespace orb {

/// The link to the simulated instrument in the process. A line is answered at once. The instrument keeps its state when
/// the link ends, as a real one does.
class SimTransport final : public Transport {
public:
    static QString resourceName() { return QStringLiteral("SIM::INSTR"); }

    explicit SimTransport(std::shared_ptr<SimulatedInstrument> instrument) : instrument_(std::move(instrument)) {}

    void begin() override { state_ = State::Open; }
    bool open(int) override;
    void close() override;
    State state() override { return state_; }
    LinkError error() const override { return LinkError::None; }
    bool write(const QByteArray& bytes) override;
    bool flush(int) override { return state_ == State::Open; }
    QByteArray read() override;
    bool waitReadable(int) override;
    bool isIdle() const override { return unread_.isEmpty(); }

private:
    std::shared_ptr<SimulatedInstrument> instrument_;
    State state_ = State::Closed;
    QByteArray unread_;
};

} // namespace orb
