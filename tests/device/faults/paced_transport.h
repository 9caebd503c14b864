// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "transport.h"
#include "virtual_clock.h"

#include <algorithm>
#include <memory>

namespace orb {

/// How long a wait for a real link really lasts, whatever its limit is on the virtual clock.
struct Pace {
    static constexpr int generousMs = 20'000;

    /// Something will come, so it is waited for. Otherwise a wait takes this part of its limit.
    bool comes = true;
    int divisor = 100;

    int realMs(int limitMs) const { return comes ? generousMs : limitMs / divisor; }
};

/// A real link whose waits pass on a virtual clock: the whole limit where nothing came, 1 ms where something did. So a
/// limit is read exactly, and seconds of waiting take milliseconds.
class PacedTransport final : public Transport {
public:
    /// `clock` and `pace` must outlive the transport.
    PacedTransport(std::unique_ptr<Transport> real, VirtualClock& clock, const Pace& pace)
        : real_(std::move(real)), clock_(clock), pace_(pace)
    {}

    void begin() override { real_->begin(); }
    bool open(int limitMs) override { return real_->open(limitMs); }
    void close() override { real_->close(); }
    State state() override { return real_->state(); }
    LinkError error() const override { return real_->error(); }
    QString errorText() const override { return real_->errorText(); }
    bool write(const QByteArray& bytes) override { return real_->write(bytes); }
    bool flush(int limitMs) override { return passed(limitMs, real_->flush(pace_.realMs(limitMs))); }
    QByteArray read() override { return real_->read(); }
    bool waitReadable(int limitMs) override { return passed(limitMs, real_->waitReadable(pace_.realMs(limitMs))); }
    bool isIdle() const override { return real_->isIdle(); }

private:
    bool passed(int limitMs, bool isDone)
    {
        const bool isOver = !isDone && real_->state() == State::Open;
        clock_.sleep(isOver ? limitMs : std::min(limitMs, 1));
        return isDone;
    }

    std::unique_ptr<Transport> real_;
    VirtualClock& clock_;
    const Pace& pace_;
};

} // namespace orb
