// SPDX-License-Identifier: GPL-3.0-or-later
#include "session.h"

#include <algorithm>

namespace orb {

namespace {
constexpr int mostReadsInALook = 32; // so that a peer that never stops talking can't keep a look from ending
constexpr qint64 quietAfterLossMs = 100;
constexpr qsizetype longestHeard = 256;
} // namespace

Session::Session(Clock& clock, Transport& transport)
    : clock_(clock), transport_(transport), lastLook_(clock.elapsed()), lastBytesAt_(lastLook_)
{}

bool Session::send(Requester requester, const QByteArray& line)
{
    if (line.size() > longestLine)
        return false;
    const qint64 now = clock_.elapsed();
    lookAt(now); // what is there by now answers earlier queries
    if (isQuery(line)) {
        book_.asked(requester, line, now);
        begunBefore_ = framer_.isMidAnswer();
    }
    return transport_.write(line + '\n');
}

bool Session::sendBlock(const QByteArray& line, const QByteArray& data, int limitMs)
{
    poll();
    return transport_.write(line + asBlock(data) + '\n') && transport_.flush(limitMs);
}

void Session::poll()
{
    lookAt(clock_.elapsed());
}

void Session::lookAt(qint64 now)
{
    for (int i = 0; i < mostReadsInALook; ++i) {
        QByteArray bytes = transport_.read();
        const bool isAll = bytes.size() < Transport::longestRead;
        if (!bytes.isEmpty())
            takeIn(std::move(bytes), now);
        if (isAll)
            break;
    }
    lastLook_ = now;
    dropStalledPart(now);
    book_.pass(now);
    if (transport_.isIdle())
        book_.nothingIsComing();
}

void Session::takeIn(QByteArray bytes, qint64 now)
{
    lastBytesAt_ = now;
    framer_.take(std::move(bytes));
    while (const auto answer = framer_.next()) {
        heard_ = answer->left(longestHeard);
        book_.answered(*answer, now, lastLook_, begunBefore_);
        begunBefore_ = false;
    }
}

void Session::dropStalledPart(qint64 now)
{
    const qint64 limit = framer_.isLost() ? quietAfterLossMs : stalledPartMs;
    if ((framer_.isMidAnswer() || framer_.isLost()) && now - lastBytesAt_ >= limit) {
        heard_ = lastReceived();
        framer_.forget();
        begunBefore_ = false;
    }
}

QByteArray Session::lastReceived() const
{
    return framer_.part().isEmpty() ? heard_ : framer_.part().left(longestHeard);
}

/// Until when it is worth waiting for the requester's answer.
qint64 Session::underWayUntil(Requester requester, int limitMs) const
{
    if (!book_.awaits(requester))
        return 0;
    qint64 until = book_.askedAt(requester) + limitMs;
    if (framer_.isMidAnswer())
        until = std::max(until, lastBytesAt_ + limitMs);
    return std::max(until, book_.settlesAt().value_or(0));
}

const std::optional<QByteArray>& Session::awaitAnswer(Requester requester, int limitMs)
{
    const qint64 end = clock_.elapsed() + limitMs;
    bool looked = false;
    while (book_.awaits(requester)) {
        const qint64 now = clock_.elapsed();
        const qint64 until = std::min(end, underWayUntil(requester, limitMs));
        if (now >= until && looked)
            break;
        // An answer that is held back comes out without a byte arriving, so the wait ends there at the latest.
        const qint64 wake = std::min(until, book_.settlesAt().value_or(until));
        const bool isOver = now < wake && !transport_.waitReadable(static_cast<int>(wake - now)) &&
                            transport_.state() != Transport::State::Open;
        poll();
        looked = true;
        if (isOver)
            break;
    }
    return book_.answer(requester);
}

std::optional<QByteArray> Session::ask(Requester requester, const QByteArray& query, int limitMs)
{
    if (!send(requester, query))
        return std::nullopt;
    const qint64 end = clock_.elapsed() + limitMs;
    for (qint64 now = clock_.elapsed(); now < end && book_.awaits(requester); now = clock_.elapsed()) {
        const qint64 wake = std::min(end, book_.settlesAt().value_or(end));
        if (!transport_.waitReadable(static_cast<int>(std::max<qint64>(wake - now, 1))) &&
            transport_.state() != Transport::State::Open)
            break;
        poll();
    }
    poll();
    if (!book_.answer(requester))
        book_.abandon(requester);
    return book_.answer(requester);
}

std::optional<QByteArray> Session::fetchBlock(const QByteArray& query, int limitMs)
{
    const auto answer = ask(Requester::Control, query, limitMs);
    return answer ? blockData(*answer) : std::nullopt;
}

} // namespace orb
