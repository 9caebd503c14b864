// SPDX-License-Identifier: GPL-3.0-or-later
#include "session.h"

#include "answer_book.h"
#include "definite_length_block.h"
#include "framer.h"
#include "identity.h"

#include <algorithm>

namespace orb {

namespace {
constexpr qsizetype longestRejected = 256;
} // namespace

Session::Session(Clock& clock, Transport& transport)
    : clock_(clock),
      transport_(transport),
      framer_(std::make_unique<Framer>()),
      book_(std::make_unique<AnswerBook>()),
      lastBytesAt_(clock.elapsed())
{
    static_assert(patienceMs == AnswerBook::patienceMs);
}

Session::~Session() = default;

bool Session::send(Requester requester, const QByteArray& line)
{
    if (line.size() > longestLine || line.contains('\0'))
        return false;
    poll(); // what is there by now answers earlier queries
    return isQuery(line) ? sendQuery(requester, line, false) : transport_.write(line + '\n');
}

bool Session::sendQuery(Requester requester, const QByteArray& query, bool isFetch)
{
    const qint64 now = clock_.elapsed();
    const QByteArray marker = book_->markerBefore(query, isFetch, now);
    if (!marker.isEmpty() && !transport_.write(marker + '\n'))
        return false;
    framer_->distrustPart();
    return book_->asked(requester, query, now) && transport_.write(query + '\n');
}

bool Session::sendBlock(const QByteArray& line, const QByteArray& data, int limitMs)
{
    poll();
    return transport_.write(line + asBlock(data) + '\n') && transport_.flush(limitMs);
}

void Session::poll()
{
    const qint64 begin = clock_.elapsed();
    qsizetype size = 0;
    while (size < mostBytesAPoll && clock_.elapsed() - begin < longestPollMs) {
        const QByteArray bytes = transport_.read();
        size += bytes.size();
        if (!bytes.isEmpty())
            receive(bytes);
        if (bytes.size() < Transport::longestRead)
            break;
    }
    if (transport_.isIdle())
        book_->nothingIsComing();
}

void Session::receive(const QByteArray& bytes)
{
    lastBytesAt_ = clock_.elapsed();
    framer_->append(bytes);
    while (const auto answer = framer_->next(isFetching_ && book_->isNext(Requester::Control)))
        receiveLine(answer->text, answer->isWhole);
}

void Session::receiveLine(const QByteArray& line, bool isWhole)
{
    if (!isIdentified_ && (!book_->awaits(Requester::Control) || !readIdentity(line))) {
        if (rejected_.isEmpty())
            rejected_ = line.left(longestRejected);
        return;
    }
    if (!isIdentified_)
        book_->setIdentity(line);
    else if (!book_->awaits(Requester::Control) && !book_->awaits(Requester::Application) && readIdentity(line))
        unaskedIdentity_ = line;
    isIdentified_ = true;
    const bool isFetched = isFetching_ && book_->isNext(Requester::Control);
    book_->answered(line, isWhole);
    if (!isFetched && startsAsBlock(line))
        book_->distrust(); // a block that no member fetches comes in as many lines as it holds line ends
}

void Session::identifyAnew(const QByteArray& identity)
{
    book_->setIdentity(identity);
    book_->distrust();
}

const std::optional<QByteArray>& Session::answer(Requester requester) const
{
    return book_->answer(requester);
}

bool Session::isQuiet() const
{
    return book_->isQuiet(clock_.elapsed());
}

QByteArray Session::rejected() const
{
    return rejected_.isEmpty() ? framer_->part().left(longestRejected) : rejected_;
}

/// Until when it is worth waiting for the requester's answer.
qint64 Session::underWayUntil(Requester requester, int limitMs) const
{
    const qint64 asked = book_->askedAt(requester);
    return (framer_->isMidAnswer() ? std::max(asked, lastBytesAt_) : asked) + limitMs;
}

const std::optional<QByteArray>& Session::awaitAnswer(Requester requester, int limitMs)
{
    const qint64 end = clock_.elapsed() + limitMs;
    if (book_->askedAt(requester) + limitMs < end)
        poll(); // it may be there, or a part of it
    for (bool isReadable = true; isReadable && book_->awaits(requester); poll()) {
        const qint64 rest = std::min(end, underWayUntil(requester, limitMs)) - clock_.elapsed();
        isReadable = rest > 0 && transport_.waitReadable(static_cast<int>(rest));
    }
    return book_->answer(requester);
}

std::optional<QByteArray> Session::fetchBlock(const QByteArray& query, int limitMs)
{
    poll();
    const qint64 end = clock_.elapsed() + limitMs;
    isFetching_ = true;
    bool isOpen = sendQuery(Requester::Control, query, true);
    while (isOpen && book_->awaits(Requester::Control)) {
        const qint64 rest = end - clock_.elapsed();
        isOpen = rest > 0 &&
                 (transport_.waitReadable(static_cast<int>(rest)) || transport_.state() == Transport::State::Open);
        poll();
    }
    isFetching_ = false;
    const auto data = blockData(book_->answer(Requester::Control).value_or(QByteArray()));
    if (!data) {
        book_->abandon(Requester::Control);
        book_->distrust(); // what is still to come of the block may hold line ends
    }
    return data;
}

} // namespace orb
