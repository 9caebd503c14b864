// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "clock.h"
#include "transport.h"

#include <QList>

#include <functional>
#include <map>
#include <optional>

namespace orb {

/// The far end of a link as a test writes it down: what was sent, and what comes back when.
struct ScriptedLine {
    explicit ScriptedLine(Clock& theClock) : clock(theClock) {}

    Clock& clock;
    /// Every write, without its line end.
    QList<QByteArray> sent;
    /// What happens when a line is sent; by default nothing.
    std::function<void(const QByteArray& line)> onLine;
    /// When the link opens, counted from its beginning; never where there is none. An error takes its place.
    std::optional<int> opensAfter = 0;
    LinkError openError = LinkError::None;

    /// Bytes arrive `ms` from now.
    void say(const QByteArray& bytes, int ms = 0) { arrivals.emplace(clock.elapsed() + ms, bytes); }
    /// The remote end closes the link `ms` from now, after what arrives until then.
    void close(int ms = 0) { closesAt = clock.elapsed() + ms; }

    std::multimap<qint64, QByteArray> arrivals;
    std::optional<qint64> closesAt;
    int openings = 0;
};

/// The near end of a `ScriptedLine`, on the time of its clock.
class ScriptedTransport final : public Transport {
public:
    /// `line` must outlive the transport.
    explicit ScriptedTransport(ScriptedLine& line) : line_(line) {}

    void begin() override
    {
        ++line_.openings;
        begunAt_ = line_.clock.elapsed();
        state_ = State::Opening;
    }

    bool open(int limitMs) override
    {
        begin();
        const bool inTime = line_.openError != LinkError::None || line_.opensAfter.value_or(limitMs) < limitMs;
        if (const int wait = inTime ? line_.opensAfter.value_or(0) : limitMs; wait > 0)
            line_.clock.sleep(wait);
        if (!inTime)
            fail(LinkError::TimedOut);
        return state() == State::Open;
    }

    void close() override
    {
        state_ = State::Closed;
        error_ = LinkError::None;
        line_.arrivals.clear();
    }

    State state() override
    {
        const qint64 now = line_.clock.elapsed();
        if (state_ == State::Opening && line_.openError != LinkError::None)
            fail(line_.openError);
        if (state_ == State::Opening && line_.opensAfter && now - begunAt_ >= *line_.opensAfter)
            state_ = State::Open;
        if (state_ == State::Open && line_.closesAt && now >= *line_.closesAt)
            fail(LinkError::ClosedRemotely);
        return state_;
    }

    LinkError error() const override { return error_; }

    bool write(const QByteArray& bytes) override
    {
        if (state() != State::Open)
            return false;
        const QByteArray line = bytes.endsWith('\n') ? bytes.chopped(1) : bytes;
        line_.sent.append(line);
        if (line_.onLine)
            line_.onLine(line);
        return true;
    }

    bool flush(int) override { return state() == State::Open; }

    QByteArray read() override
    {

        QByteArray bytes;
        auto& arrivals = line_.arrivals;
        while (!arrivals.empty() && arrivals.begin()->first <= line_.clock.elapsed()) {
            bytes += arrivals.begin()->second;
            arrivals.erase(arrivals.begin());
        }
        return bytes;
    }

    bool waitReadable(int limitMs) override
    {
        if (state() != State::Open)
            return false;
        const qint64 now = line_.clock.elapsed();
        const qint64 next = line_.arrivals.empty() ? now + limitMs + 1 : line_.arrivals.begin()->first;
        const bool comes = next <= now + limitMs;
        line_.clock.sleep(static_cast<int>(comes ? std::max<qint64>(next - now, 0) : limitMs));
        return comes;
    }

private:
    void fail(LinkError error)
    {
        state_ = State::Closed;
        error_ = error;
    }

    ScriptedLine& line_;
    State state_ = State::Closed;
    LinkError error_ = LinkError::None;
    qint64 begunAt_ = 0;
};

} // namespace orb
