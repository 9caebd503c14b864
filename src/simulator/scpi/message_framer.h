// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace orb {

/// Splits a stream of bytes into messages. A message ends at a line feed, or a carriage return and a line feed; a line
/// feed inside of a definite-length block is one of its bytes. Empty messages are skipped.
class MessageFramer {
public:
    struct Message {
        /// Without line end; empty where it was too long.
        std::string text;
        /// It was longer than the limit and is lost.
        bool overrun = false;
    };

    /// `limit`: the longest message that is kept, in bytes. No more than that is ever buffered.
    explicit MessageFramer(std::size_t limit) : limit_(limit) {}

    /// Appends received bytes and returns the messages that they complete.
    std::vector<Message> feed(std::string_view bytes);

    /// The number of bytes of the message that is not complete yet.
    std::size_t buffered() const { return buffer_.size(); }

private:
    enum class State { Plain, String, NumberSign, BlockLength, Block };

    void append(char byte);
    void follow(char byte);
    void readBlockLength(char byte);
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
