// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

namespace orb {

/// Why a link did not open, or is closed. Each has a text of its own on the Connect page.
enum class LinkError {
    None,
    BadAddress,     ///< the address is none of this kind of link
    HostNotFound,   ///< no host has this name
    Refused,        ///< the host takes no connection at this port
    Unreachable,    ///< the network has no route to the host
    TimedOut,       ///< nothing came back within the limit
    NoDevice,       ///< this machine has no such device
    DeviceDenied,   ///< the device is in use, or this user may not open it
    ClosedRemotely, ///< the instrument closed the link
    Broken,         ///< anything else; `errorText` has the system's text
};

/// Bytes to an instrument and back. No event loop needs to run: the user of a transport polls it, and every call that may
/// block has a limit. An instance is opened once; a new link is a new instance.
class Transport {
public:
    enum class State { Closed, Opening, Open };
    /// What one call of `read` gives at most.
    static constexpr qsizetype longestRead = 64 * 1024;

    virtual ~Transport() = default;

    /// Starts to open and returns at once; `state` is to be polled. The opening needs an event loop.
    virtual void begin() = 0;
    /// Opens, and blocks for `limitMs` at most. True when it is open. Needs no event loop.
    virtual bool open(int limitMs) = 0;
    /// Ends the link at once, or the opening; what was not read yet is lost. Nothing is an error after it.
    virtual void close() = 0;

    /// The state of the link: of an opening now, of an open link as of the last `read`. Does not block.
    virtual State state() = 0;
    /// Why the state is `Closed`; `None` before the opening and after `close`.
    virtual LinkError error() const = 0;
    /// The system's own text for the error, empty where it has none.
    virtual QString errorText() const { return {}; }

    /// Sends all of `bytes` and does not wait for the instrument. False when the link is down, and when the instrument
    /// has left so much unread that the link counts as broken.
    virtual bool write(const QByteArray& bytes) = 0;
    /// Blocks for `limitMs` at most until all that was written is on its way. False when it is not by then.
    virtual bool flush(int limitMs) = 0;
    /// What has arrived, `longestRead` bytes at most; empty when nothing has. Bytes that arrived before the link went
    /// down come first.
    virtual QByteArray read() = 0;
    /// Blocks until there is something to read, be it the end of the link, for `limitMs` at most. False when there is
    /// nothing by then, and at once when the link is down or idle.
    virtual bool waitReadable(int limitMs) = 0;
    /// True where it is known that no answer is under way but those that were read. Only a link inside of the process
    /// can know.
    virtual bool isIdle() const { return false; }
};

} // namespace orb
