// SPDX-License-Identifier: GPL-3.0-or-later
#include "message_framer.h"

#include "ascii.h"

#include <utility>

namespace orb {

std::vector<MessageFramer::Message> MessageFramer::feed(std::string_view bytes)
{
    std::vector<Message> messages;
    for (const char byte : bytes) {
        if (!endsMessage(byte)) {
            append(byte);
            continue;
        }
        Message message = finish();
        if (message.overrun || !message.text.empty())
            messages.push_back(std::move(message));
    }
    return messages;
}

bool MessageFramer::endsMessage(char byte) const
{
    return byte == '\n' && state_ != State::Block;
}

MessageFramer::Message MessageFramer::finish()
{
    Message message{std::exchange(buffer_, {}), std::exchange(overrun_, false)};
    // A carriage return that is the last byte of a block is no part of the line end.
    while (message.text.size() > blockEnd_ && message.text.back() == '\r')
        message.text.pop_back();
    state_ = State::Plain;
    blockEnd_ = 0;
    return message;
}

void MessageFramer::append(char byte)
{
    if (overrun_)
        return;
    if (buffer_.size() == limit_) {
        // The rest of the line is dropped too, up to its first line feed, inside of a block or not.
        overrun_ = true;
        buffer_ = {};
        state_ = State::Plain;
        return;
    }
    follow(byte);
    buffer_ += byte;
}

/// Keeps track of strings and blocks; `byte` is not in the buffer yet.
void MessageFramer::follow(char byte)
{
    switch (state_) {
    case State::Plain:
        if (byte == '"' || byte == '\'') {
            state_ = State::String;
            quote_ = byte;
        } else if (byte == '#' && !buffer_.empty() && (ascii::isSpace(buffer_.back()) || buffer_.back() == ',')) {
            state_ = State::NumberSign;
        }
        break;
    case State::String:
        if (byte == quote_)
            state_ = State::Plain;
        break;
    case State::NumberSign:
        lengthDigits_ = byte >= '1' && byte <= '9' ? static_cast<std::size_t>(byte - '0') : 0;
        blockLength_ = 0;
        state_ = lengthDigits_ > 0 ? State::BlockLength : State::Plain;
        break;
    case State::BlockLength:
        readBlockLength(byte);
        break;
    case State::Block:
        if (--blockLength_ == 0) {
            state_ = State::Plain;
            blockEnd_ = buffer_.size() + 1;
        }
        break;
    }
}

void MessageFramer::readBlockLength(char byte)
{
    if (!ascii::isDigit(byte)) {
        state_ = State::Plain;
        return;
    }
    blockLength_ = blockLength_ * 10 + static_cast<std::size_t>(byte - '0');
    if (--lengthDigits_ > 0)
        return;
    // A block that can't fit is not read: the line ends at its line feed.
    state_ = blockLength_ > 0 && blockLength_ <= limit_ ? State::Block : State::Plain;
}

} // namespace orb
