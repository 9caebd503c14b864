// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace orb {

/// Cuts a stream of bytes into program messages. A message ends at a line feed, or a carriage return and a line feed;
/// a line feed inside of a definite-length block is one of its bytes. Empty messages are passed over.
class MessageFramer {
public:
    struct Message {
        /// Without line end; empty where it was too long.
        std::string text;
        /// It was longer than the limit, and is lost.
        bool overrun = false;
    };

    /// `limit`: the longest message that is kept, in bytes. No more than that is ever buffered.
    explicit MessageFramer(std::size_t limit) : limit_(limit) {}

    /// Takes what has come and gives the messages that are complete with it.
    std::vector<Message> take(std::string_view bytes);

    /// Bytes of a message that is not complete yet.
    std::size_t buffered() const { return buffer_.size(); }

private:
    enum class State { Plain, String, NumberSign, BlockLength, Block };

    void takeByte(char byte);
    void follow(char byte);
    void takeBlockLength(char byte);
    bool endsMessage(char byte) const;
    Message finish();

    std::size_t limit_;
    std::string buffer_;
    State state_ = State::Plain;
    char quote_ = 0;
    std::size_t lengthDigits_ = 0;
    std::size_t blockLength_ = 0;
    std::size_t blockEnd_ = 0; // of the last whole block in the buffer
    bool overrun_ = false;
};

} // namespace orb
