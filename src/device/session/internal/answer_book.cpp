// SPDX-License-Identifier: GPL-3.0-or-later
#include "answer_book.h"

#include <algorithm>

namespace orb {

namespace {

constexpr qsizetype mostRemembered = 256;
constexpr int mostDoublings = 12;
const QByteArray identityQuery = QByteArrayLiteral("*IDN?");

int identitiesAsked(const QByteArray& query)
{
    return static_cast<int>(query.toUpper().count(identityQuery));
}

} // namespace

QByteArray AnswerBook::markerBefore(const QByteArray& query, bool isFetch, qint64 now)
{
    if (identity_.isEmpty() || !needsMarker(isFetch || identitiesAsked(query) > 0, now))
        return {};
    int identities = 1; // one more than any other query, so that its answer is like no other
    for (const Query& other : queries_)
        if (!other.isCrossedOut)
            identities = std::max(identities, other.identities + 1);
    QByteArray text = identityQuery;
    for (int i = 1; i < identities; ++i)
        text += ';' + identityQuery;
    queries_.push_back({.text = text, .at = now, .identities = identities, .isMarker = true});
    return text;
}

bool AnswerBook::needsMarker(bool isUrgent, qint64 now) const
{
    const auto markers = std::ranges::count_if(queries_, &Query::isMarker);
    if (markers > 0) { // one that is late is asked for again, at ever longer intervals
        const auto last = std::ranges::find_if(queries_.rbegin(), queries_.rend(), &Query::isMarker);
        return now - last->at >= patienceMs << std::min<qint64>(markers - 1, mostDoublings);
    }
    const bool isOld = !queries_.empty() && now - queries_.front().at >= patienceMs;
    return isDistrusted_ || std::ranges::any_of(queries_, [&](const Query& query) {
               return isOpen(query) && (isOld || isUrgent || unanswered_.contains(query.text));
           });
}

bool AnswerBook::asked(Requester requester, const QByteArray& text, qint64 now)
{
    slot(requester) = {text, now, std::nullopt};
    if (queries_.size() >= mostOpen)
        return false;
    queries_.push_back({.text = text,
                        .at = now,
                        .requester = requester,
                        .identities = identitiesAsked(text),
                        .isJoined = text.count('?') > 1});
    return true;
}

void AnswerBook::answered(const QByteArray& line, bool isWhole)
{
    auto marker = firstMarker();
    if (marker != queries_.end()) {
        if (takeIdentities(identitiesAtEnd(line)))
            return;
        if (marker->received > 0) { // the lines of one answer follow each other, so these were all of them
            finishWith(marker);
            marker = firstMarker();
        }
    }
    // An answer that comes before the marker's belongs to a query before it.
    const auto query = std::find_if(queries_.begin(), marker, isOpen);
    if (query != marker && !isDistrusted_)
        crossOut(*query, line, isWhole);
    if (std::ranges::all_of(queries_, &Query::isCrossedOut))
        finishBefore(queries_.end(), false);
}

void AnswerBook::crossOut(Query& query, const QByteArray& answer, bool isWhole)
{
    bool isOneText = true;
    bool mayGoOn = false; // joined queries may be answered in a line each
    for (const Query& other : queries_) {
        isOneText = isOneText && (!isOpen(other) || other.text == query.text);
        mayGoOn = mayGoOn || (isOpen(other) && other.isJoined);
    }
    if (mayGoOn && !answer.contains(';'))
        distrust();
    if (isWhole && isOneText)
        for (const Requester requester : {Requester::Application, Requester::Control})
            if (awaits(requester))
                slot(requester).answer = answer;
    query.isCrossedOut = true;
}

/// How many identities, joined by semicolons, the line ends in. Another answer that was cut off may stand before them.
int AnswerBook::identitiesAtEnd(const QByteArray& line) const
{
    int count = 0;
    QByteArrayView rest = line;
    for (; rest.endsWith(identity_); ++count) {
        rest.chop(identity_.size());
        if (!rest.endsWith(';'))
            return count + 1;
        rest.chop(1);
    }
    return count;
}

/// The first that can have been answered like this has been: a query of the application among them, if it asks the same.
bool AnswerBook::takeIdentities(int count)
{
    const auto query = std::ranges::find_if(queries_, [&](const Query& candidate) {
        return !candidate.isCrossedOut && candidate.identities > 0 && (count == 1 || count == candidate.identities);
    });
    if (count == 0 || query == queries_.end())
        return false;
    query->received += count;
    if (query->received >= query->identities)
        finishWith(query);
    return true;
}

/// The query is answered, and so nothing before it will be any more. Where it is the application's, it may be another
/// query that asked the same, and then it is itself among the missing.
void AnswerBook::finishWith(Queries::iterator query)
{
    const bool isMarker = query->isMarker;
    finishBefore(query + 1, !isMarker || std::any_of(queries_.begin(), query, isOpen));
    if (isMarker && firstMarker() == queries_.end())
        isDistrusted_ = false;
}

/// The queries before `end` are over; `isMissing`: one of them, it is not known which, was not answered.
void AnswerBook::finishBefore(Queries::iterator end, bool isMissing)
{
    for (auto query = queries_.begin(); query != end; ++query) {
        if (!isMissing)
            unanswered_.remove(query->text);
        else if (!query->isMarker && unanswered_.size() < mostRemembered)
            unanswered_.insert(query->text);
    }
    queries_.erase(queries_.begin(), end);
}

AnswerBook::Queries::iterator AnswerBook::firstMarker()
{
    return std::ranges::find_if(queries_, &Query::isMarker);
}

void AnswerBook::nothingIsComing()
{
    queries_.clear();
    isDistrusted_ = false;
}

bool AnswerBook::awaits(Requester requester) const
{
    const Slot& last = slot(requester);
    return !last.answer && std::ranges::any_of(queries_, [&](const Query& query) {
        return isOpen(query) && query.requester == requester && query.text == last.text;
    });
}

bool AnswerBook::isNext(Requester requester) const
{
    const auto first = std::ranges::find_if_not(queries_, &Query::isCrossedOut);
    return first != queries_.end() && first->requester == requester && first->text == slot(requester).text;
}

bool AnswerBook::isQuiet(qint64 now) const
{
    return std::ranges::none_of(queries_, isOpen) || now - queries_.back().at >= patienceMs;
}

} // namespace orb
