// SPDX-License-Identifier: GPL-3.0-or-later
#include "answer_book.h"

#include <algorithm>

namespace orb {

namespace {
constexpr std::size_t mostOpen = 64;
constexpr std::size_t mostRemembered = 64; // texts of lost queries
constexpr int lostOften = 2;
constexpr int enoughPromptAnswers = 3;
constexpr qint64 doubtMs = 10'000; // how long an answer that was written off is still thought possible
} // namespace

void AnswerBook::asked(Requester requester, const QByteArray& question, qint64 now)
{
    pass(now);
    held_.reset(); // it came before this query, so it isn't its answer
    writeOffMissing(now);
    while (!open_.empty() && now - open_.front().at >= patienceFor(open_.front().question))
        writeOffFront(now);
    if (open_.size() == mostOpen)
        writeOffFront(now);
    if (!open_.empty()) {
        if (!behindSince_)
            behindSince_ = now;
        if (answersSinceAsked_ == 0 && unheard_.size() < mostOpen)
            unheard_.push_back(open_.back().question);
    }
    open_.push_back({question, now});
    answersSinceAsked_ = 0;
    slot(requester) = {question, now, true, std::nullopt};
}

void AnswerBook::answered(const QByteArray& answer, qint64 now, qint64 earliest, bool begunBefore)
{
    pass(now);
    ++answersSinceAsked_;
    // With its beginning before the last query it answers an earlier one: the oldest, or one that was written off.
    if (open_.empty() || (begunBefore && open_.size() == 1))
        return extra(answer, now);

    const Query last = open_.back();
    const bool certain =
        !begunBefore && std::ranges::all_of(open_, [&](const Query& query) { return query.question == last.question; });
    open_.pop_front();
    if (open_.empty())
        settleDebt();
    else
        weigh(now, earliest - last.at <= promptMs);
    if (!certain)
        return;
    if (writtenOff_ == 0)
        handOut(last.question, answer);
    else
        held_ = {last.question, answer, now};
}

/// One more than was open: an answer that was written off has come after all. If one is held back, that was it, and
/// this is the one that it was taken for.
void AnswerBook::extra(const QByteArray& answer, qint64 now)
{
    if (writtenOff_ > 0)
        --writtenOff_;
    if (!held_)
        return;
    held_->answer = answer;
    held_->at = now;
    if (writtenOff_ == 0) {
        handOut(held_->question, held_->answer);
        held_.reset();
    }
}

/// Queries are open behind an answer: one is missing, or the instrument is slow. An answer that comes at once behind
/// the last query and alone speaks for a missing one.
void AnswerBook::weigh(qint64 now, bool prompt)
{
    if (!behindSince_)
        return;
    if (prompt && answersSinceAsked_ == 1) {
        ++promptAnswers_;
        return;
    }
    behindSince_ = now;
    promptAnswers_ = 0;
    unheard_.clear();
}

void AnswerBook::pass(qint64 now)
{
    if (held_ && now - held_->at >= settleMs) {
        handOut(held_->question, held_->answer);
        held_.reset();
        writtenOff_ = 0; // answers come in order: nothing older can follow
    }
    if (writtenOff_ > 0 && now >= writtenOffUntil_)
        writtenOff_ = 0;
    // The last query is waited for without a limit: as long as nothing else is asked, an answer can only be its own.
    while (open_.size() > 1 && now - open_.front().at >= patienceFor(open_.front().question))
        writeOffFront(now);
}

bool AnswerBook::isQuiet(qint64 now) const
{
    return open_.empty() || now - open_.back().at >= patienceFor(open_.back().question);
}

void AnswerBook::nothingIsComing()
{
    open_.clear();
    writtenOff_ = 0;
    settleDebt();
    for (Slot& slot : slots_)
        slot.waiting = false;
}

std::optional<qint64> AnswerBook::settlesAt() const
{
    return held_ ? std::optional(held_->at + settleMs) : std::nullopt;
}

qint64 AnswerBook::patienceFor(const QByteArray& question) const
{
    const auto lost = lost_.find(question);
    return lost != lost_.end() && lost->second >= lostOften ? shortPatienceMs : patienceMs;
}

void AnswerBook::handOut(const QByteArray& question, const QByteArray& answer)
{
    lost_.erase(question);
    for (Slot& slot : slots_)
        if (slot.waiting && !slot.answer && slot.question == question)
            slot.answer = answer;
}

void AnswerBook::writeOffFront(qint64 now)
{
    countAsLost(open_.front().question);
    open_.pop_front();
    ++writtenOff_;
    writtenOffUntil_ = now + doubtMs;
    if (open_.empty())
        settleDebt();
}

/// Where queries follow each other without a pause, one missing answer would leave them all in doubt for ever. When
/// every answer for as long as the patience lasts came at once and alone, no slow instrument gave them.
void AnswerBook::writeOffMissing(qint64 now)
{
    if (!behindSince_ || now - *behindSince_ < patienceMs || promptAnswers_ < enoughPromptAnswers)
        return;
    writtenOff_ += static_cast<int>(open_.size());
    writtenOffUntil_ = now + doubtMs;
    open_.clear();
    for (const QByteArray& question : unheard_)
        countAsLost(question);
    settleDebt();
}

void AnswerBook::countAsLost(const QByteArray& question)
{
    if (lost_.size() >= mostRemembered && !lost_.contains(question))
        lost_.clear();
    ++lost_[question];
}

void AnswerBook::settleDebt()
{
    behindSince_.reset();
    promptAnswers_ = 0;
    unheard_.clear();
}

} // namespace orb
