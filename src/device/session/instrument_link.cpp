// SPDX-License-Identifier: GPL-3.0-or-later
#include "instrument_link.h"

#include <QList>

#include <algorithm>
#include <array>
#include <utility>

namespace orb {

namespace {

constexpr int blockingStepMs = 20;

/// A plain number, or a list of readings with a field for each channel.
int channelsIn(const QByteArray& answer, bool isList)
{
    bool isNumber = false;
    const int count = isList ? static_cast<int>(listFields(answer).size()) : answer.trimmed().toInt(&isNumber);
    return isList || isNumber ? count : 0;
}

const std::array sizingQueries{QByteArrayLiteral(":CHAN:COUN?"), QByteArrayLiteral(":FETC:ALLC?")};

} // namespace

void InstrumentLink::prepare(std::unique_ptr<Transport> transport)
{
    drop();
    session_.reset();
    transport_ = std::move(transport);
    error_ = LinkError::None;
    errorText_.clear();
    rejectedText_.clear();
    isIdentifiedAnew_ = false;
    enterStage(Stage::Connecting);
}

void InstrumentLink::start(std::unique_ptr<Transport> transport)
{
    prepare(std::move(transport));
    transport_->begin();
}

bool InstrumentLink::startAndWait(std::unique_ptr<Transport> transport)
{
    prepare(std::move(transport));
    transport_->open(limits_.connect);
    for (step(true); isConnecting(); step(true))
        if (!transport_->waitReadable(blockingStepMs) && transport_->isIdle())
            clock_.sleep(blockingStepMs);
    return stage_ == Stage::Up;
}

void InstrumentLink::step(bool maySend)
{
    while (stepOnce(maySend)) {
    }
}

/// True when another stage began, which may get on at once.
bool InstrumentLink::stepOnce(bool maySend)
{
    switch (stage_) {
    case Stage::Connecting:
        return stepConnecting();
    case Stage::Identifying:
        return stepIdentifying(maySend);
    case Stage::Sizing:
        return stepSizing(maySend);
    case Stage::Down:
    case Stage::Up:
        break;
    }
    return false;
}

bool InstrumentLink::stepConnecting()
{
    const auto state = transport_->state();
    if (state == Transport::State::Open) {
        session_.emplace(clock_, *transport_);
        enterStage(Stage::Identifying);
        return true;
    }
    if (state == Transport::State::Closed) {
        lose();
    } else if (isOver(limits_.connect)) {
        error_ = LinkError::TimedOut;
        goDown(End::Failed);
    }
    return false;
}

bool InstrumentLink::ask(const QByteArray& query, bool maySend)
{
    if (!asked_) {
        if (!maySend)
            return false;
        asked_ = true;
        since_ = clock_.elapsed();
        session_->send(Requester::Control, query);
    }
    session_->poll();
    return true;
}

bool InstrumentLink::stepIdentifying(bool maySend)
{
    if (!ask(QByteArrayLiteral("*IDN?"), maySend)) {
        loseIfClosed();
        return false;
    }
    if (const auto& answer = session_->answer(Requester::Control)) {
        identity_ = readIdentity(*answer).value_or(Identity{});
        enterStage(Stage::Sizing);
        return true;
    }
    if (!isClosed() && !isOver(limits_.identify))
        return false;
    rejectedText_ = shownText(session_->rejected());
    if (!rejectedText_.isEmpty())
        goDown(End::NoInstrument);
    else if (isClosed())
        lose();
    else
        goDown(End::Silent);
    return false;
}

bool InstrumentLink::stepSizing(bool maySend)
{
    if (takeLateIdentity(session_->takeUnaskedIdentity()))
        return true;
    const auto query = static_cast<std::size_t>(attempt_);
    if (!ask(sizingQueries[query], maySend)) {
        loseIfClosed();
        return false;
    }
    const auto& answer = session_->answer(Requester::Control);
    if (answer && takeLateIdentity(*answer))
        return true;
    const int channels = answer ? channelsIn(*answer, attempt_ == 1) : 0;
    if (channels >= 1 && (attempt_ == 1 || channels <= mostChannels)) {
        goUp(std::min(channels, mostChannels));
    } else if (isClosed()) {
        lose();
    } else if (answer || isOver(limits_.size)) {
        asked_ = false;
        if (++attempt_ < static_cast<int>(sizingQueries.size()))
            return true;
        goUp(1);
    }
    return false;
}

bool InstrumentLink::takeLateIdentity(const QByteArray& answer)
{
    bool isNumber = false;
    answer.left(answer.indexOf(',')).toDouble(&isNumber);
    const auto identity = isNumber ? std::nullopt : readIdentity(answer);
    if (!identity || *identity == identity_ || std::exchange(isIdentifiedAnew_, true))
        return false;
    identity_ = *identity;
    session_->identifyAnew(answer);
    asked_ = false; // the sizing begins again, after a marker
    return true;
}

void InstrumentLink::enterStage(Stage stage)
{
    stage_ = stage;
    ++changes_;
    since_ = clock_.elapsed();
    asked_ = false;
    attempt_ = 0;
}

void InstrumentLink::goUp(int channels)
{
    channelCount_ = channels;
    enterStage(Stage::Up);
}

bool InstrumentLink::isUp()
{
    if (stage_ != Stage::Up)
        return false;
    session_->poll();
    loseIfClosed();
    return stage_ == Stage::Up;
}

bool InstrumentLink::isClosed()
{
    return transport_->state() == Transport::State::Closed;
}

/// The transport went down by itself.
void InstrumentLink::lose()
{
    error_ = transport_->error();
    errorText_ = transport_->errorText();
    goDown(stage_ == Stage::Up ? End::Lost : End::Failed);
}

void InstrumentLink::loseIfClosed()
{
    if (isClosed())
        lose();
}

void InstrumentLink::drop()
{
    if (stage_ != Stage::Down)
        goDown(stage_ == Stage::Up ? End::Disconnected : End::Cancelled);
}

void InstrumentLink::goDown(End end)
{
    transport_->close(); // the session stays, so that its last answer can be read again
    identity_ = {};
    channelCount_ = 0;
    end_ = end;
    enterStage(Stage::Down);
}

} // namespace orb
