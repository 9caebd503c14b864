// SPDX-License-Identifier: GPL-3.0-or-later
#include "sim_transport.h"

#include <algorithm>

namespace orb {

namespace {
constexpr qsizetype mostUnread = 16 * 1024 * 1024;
}

bool SimTransport::open(int)
{
    begin();
    return true;
}

void SimTransport::close()
{
    state_ = State::Closed;
    unread_.clear();
}

/// Each write is one whole message, ended by a line feed.
bool SimTransport::write(const QByteArray& bytes)
{
    if (state_ != State::Open)
        return false;
    const std::string_view message(bytes.constData(), static_cast<std::size_t>(bytes.size()));
    const std::string answer =
        instrument_->execute(message.substr(0, message.size() - (message.ends_with('\n') ? 1 : 0)));
    if (!answer.empty() && unread_.size() < mostUnread)
        unread_.append(answer.data(), static_cast<qsizetype>(answer.size())).append('\n');
    return true;
}

QByteArray SimTransport::read()
{
    const QByteArray bytes = unread_.left(longestRead);
    unread_.remove(0, bytes.size());
    return bytes;
}

bool SimTransport::waitReadable(int)
{
    return !unread_.isEmpty(); // nothing more will come
}

} // namespace orb
