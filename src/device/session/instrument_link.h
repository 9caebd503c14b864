// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "identity.h"
#include "session.h"

#include <memory>
#include <optional>

namespace orb {

/// How long each stage of connecting may take, in milliseconds.
struct ConnectLimits {
    int connect = 5000;
    int identify = 2000;
    int size = 2000; ///< for each of the two ways to learn the number of channels
};

/// One link to an instrument, from the press on Connect to its end. Connecting is a state machine that `step` moves on
/// without blocking.
class InstrumentLink {
public:
    enum class Stage {
        Down,
        Connecting,  ///< the transport opens
        Identifying, ///< *IDN? is asked
        Sizing,      ///< the number of channels is asked
        Up,
    };
    /// Why the stage is `Down`.
    enum class End {
        Never,        ///< nothing was tried yet
        Disconnected, ///< the operator ended the link
        Cancelled,    ///< the operator ended the connecting
        Failed,       ///< the transport failed while connecting, see `error`
        Silent,       ///< the connection was taken, and *IDN? not answered
        NoInstrument, ///< something answered, but with no identity; see `rejectedText`
        Lost,         ///< the link stood, and went down by itself; see `error`
    };
    static constexpr int mostChannels = 8;

    /// `clock` must outlive the connection.
    explicit InstrumentLink(Clock& clock, ConnectLimits limits = {}) : clock_(clock), limits_(limits) {}

    /// Drops whatever link there is and begins a new one. `step` moves it on.
    void start(std::unique_ptr<Transport> transport);
    /// The same, and blocks until the link is up or failed, within the limits. True when it is up.
    bool startAndWait(std::unique_ptr<Transport> transport);
    /// Moves the connecting on as far as it gets without waiting. Where `maySend` is false nothing is sent: the
    /// machine stays where it would have to, and its limit begins when it may go on.
    void step(bool maySend);
    /// Ends the link, or the connecting.
    void drop();

    Stage stage() const { return stage_; }
    bool isConnecting() const { return stage_ != Stage::Down && stage_ != Stage::Up; }
    /// True while the link is up, after a poll.
    bool isUp();
    End end() const { return end_; }
    /// Counts up with every change of the stage.
    int changes() const { return changes_; }
    LinkError error() const { return error_; }
    QString errorText() const { return errorText_; }
    /// What came instead of an identity, fit to be shown.
    QString rejectedText() const { return rejectedText_; }

    /// Of the instrument while the link is up; empty and 0 without one.
    const Identity& identity() const { return identity_; }
    int channelCount() const { return channelCount_; }
    /// The conversation while the link is up, null without one.
    Session* session() { return stage_ == Stage::Up ? &*session_ : nullptr; }
    /// The same, and after the link's end the last conversation until the next link begins: nothing can be sent in it,
    /// but its last answer can be read.
    Session* lastSession() { return session_ ? &*session_ : nullptr; }
    const ConnectLimits& limits() const { return limits_; }

private:
    void prepare(std::unique_ptr<Transport> transport);
    bool stepOnce(bool maySend);
    bool stepConnecting();
    bool stepIdentifying(bool maySend);
    bool stepSizing(bool maySend);
    /// Where the answer is an identity, the one before was none.
    bool takeLateIdentity(const QByteArray& answer);
    /// Asks unless it was asked already, and polls. False when it can't be asked yet.
    bool ask(const QByteArray& query, bool maySend);
    bool isOver(int limitMs) const { return clock_.elapsed() - since_ >= limitMs; }
    void enterStage(Stage stage);
    void goUp(int channels);
    bool isClosed();
    void lose();
    void loseIfClosed();
    void goDown(End end);

    Clock& clock_;
    ConnectLimits limits_;
    std::unique_ptr<Transport> transport_;
    std::optional<Session> session_;
    Stage stage_ = Stage::Down;
    qint64 since_ = 0;
    bool asked_ = false;
    int attempt_ = 0;
    bool isIdentifiedAnew_ = false; // once a link, so that connecting ends
    int changes_ = 0;

    End end_ = End::Never;
    LinkError error_ = LinkError::None;
    QString errorText_;
    QString rejectedText_;
    Identity identity_;
    int channelCount_ = 0;
};

} // namespace orb
