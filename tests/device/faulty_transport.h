// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "scripted_line.h"

#include <new>

namespace orb {

/// Faults of the transport itself.
struct TransportFaults {
    bool throws = false;                ///< every call throws
    bool refusesWrites = false;         ///< no line is taken
    bool floods = false;                ///< every read gives as many blank lines as a read may give
    qint64 bytesRead = 0;               ///< of the flood
    LinkError lostBy = LinkError::None; ///< the link is closed with this error
    QString errorText;                  ///< the system's text for an error
};

/// A `ScriptedTransport` with faults. Both must outlive the transport.
class FaultyTransport final : public Transport {
public:
    FaultyTransport(ScriptedLine& line, TransportFaults& faults) : transport_(line), faults_(faults) {}

    void begin() override { transport().begin(); }
    bool open(int limitMs) override { return transport().open(limitMs); }
    void close() override { transport().close(); }
    State state() override { return faults_.lostBy != LinkError::None ? State::Closed : transport().state(); }
    LinkError error() const override { return faults_.lostBy != LinkError::None ? faults_.lostBy : transport_.error(); }
    QString errorText() const override { return faults_.errorText; }
    bool write(const QByteArray& bytes) override { return !faults_.refusesWrites && transport().write(bytes); }
    bool flush(int limitMs) override { return transport().flush(limitMs); }
    QByteArray read() override
    {
        if (!faults_.floods)
            return transport().read();
        faults_.bytesRead += longestRead;
        return QByteArray(longestRead, '\n');
    }
    bool waitReadable(int limitMs) override { return transport().waitReadable(limitMs); }

private:
    ScriptedTransport& transport()
    {
        if (faults_.throws)
            throw std::bad_alloc();
        return transport_;
    }

    ScriptedTransport transport_;
    TransportFaults& faults_;
};

} // namespace orb
