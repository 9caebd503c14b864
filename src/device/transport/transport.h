// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

namespace orb {

/// Why a link did not come up, or stands no longer. Each has words of its own on the Connect page.
enum class LinkError {
    None,
    BadAddress,     ///< the address is none of this kind of link
    HostNotFound,   ///< the name leads nowhere
    Refused,        ///< the host is there and takes no connection at this port
    Unreachable,    ///< no road to the host
    TimedOut,       ///< nothing came back within the limit
    ClosedRemotely, ///< the instrument ended the link
    Broken,         ///< anything else; `errorText` has the system's words
};

/// A road for bytes to an instrument and back. Nothing in it needs an event loop to run: whoever uses it looks for
/// itself, and every call that may block has a limit. An instance is opened once; a new link is a new instance.
class Transport {
public:
    enum class State { Closed, Opening, Open };
    /// What one call of `read` gives at most.
    static constexpr qsizetype longestRead = 64 * 1024;

    virtual ~Transport() = default;

    /// Starts to open and returns at once; `state` tells when it is through. Needs an event loop to get on.
    virtual void begin() = 0;
    /// Opens, and blocks for `limitMs` at most. True when it is open. Needs no event loop.
    virtual bool open(int limitMs) = 0;
    /// Ends the link at once, or the opening; what was not read yet is lost. Nothing is an error after it.
    virtual void close() = 0;

    /// Where the link stands: the opening after a look at it, an open link as of the last `read`. Does not block.
    virtual State state() = 0;
    /// Why the state is `Closed`; `None` before the opening and after `close`.
    virtual LinkError error() const = 0;
    /// The system's own words for the error, empty where it has none.
    virtual QString errorText() const { return {}; }

    /// Takes all of `bytes` to be sent and does not wait for the peer. False when the link is down, and when the peer
    /// has left so much unread that the link counts as broken.
    virtual bool write(const QByteArray& bytes) = 0;
    /// Blocks for `limitMs` at most until all that was written is on its way. False when it isn't by then.
    virtual bool flush(int limitMs) = 0;
    /// What has arrived, `longestRead` bytes at most, after a look at the line; empty when nothing has. Bytes that arrived before
    /// the link went down come first.
    virtual QByteArray read() = 0;
    /// Blocks until there is something to read, be it the end of the link, for `limitMs` at most. False when there is
    /// nothing by then, and at once when the link is down or idle.
    virtual bool waitReadable(int limitMs) = 0;
    /// True where it is known that nothing is under way: what was written so far has no answer but those that were
    /// read. A link with a length of its own never knows.
    virtual bool isIdle() const { return false; }
};

} // namespace orb
