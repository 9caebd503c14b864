// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace orb {

/// What goes wrong with one answer, or with one connection.
struct Fault {
    enum class Kind {
        None,
        Late,      ///< the answer is sent after `delay`
        Split,     ///< the answer is sent in `count` pieces with `delay` between them
        CrLf,      ///< the answer ends in CR LF
        Missing,   ///< no answer
        AfterNext, ///< the answer is sent when the next message has been received
        Wrong,     ///< `text` instead of the answer
        Garbage,   ///< `count` random bytes instead of the answer
        Truncated, ///< only the first `count` bytes of the answer, and no line end
        Closed,    ///< the first `count` bytes of the answer, then the connection is closed
        Reset,     ///< the first `count` bytes of the answer, then the connection is reset
        Refused,   ///< the connection is closed, and new ones are refused for `delay` (0: for ever)
    };

    Kind kind = Kind::None;
    std::chrono::milliseconds delay{0};
    /// Without a count: half of the answer for Truncated and Closed, 0 for Reset.
    std::optional<std::uint64_t> count{};
    std::string text{};
};

/// A script that can't be read. `what()` begins with "line N: ".
class FaultScriptError : public std::runtime_error {
public:
    FaultScriptError(int line, const std::string& reason);
    int line() const { return line_; }

private:
    int line_;
};

/// One line of a script.
struct FaultRule {
    /// Compared with the message; empty for a connection.
    std::string pattern;
    /// The occurrences, counted from 1, both included.
    std::uint64_t first = 1;
    std::uint64_t last = 1;
    Fault fault;
    /// The number of occurrences so far.
    std::uint64_t seen = 0;
};

/// Rules for faults in the answers of an instrument. Each rule counts the messages of all clients that match it; where
/// several rules apply to one message, the first one does.
class FaultScript {
public:
    /// No faults.
    FaultScript() = default;
    explicit FaultScript(std::vector<FaultRule> rules) : rules_(std::move(rules)) {}
    /// Reads rules, one a line. Throws `FaultScriptError`.
    static FaultScript parse(std::string_view text);

    /// The fault of a client that has connected: None, Closed, Reset or Refused.
    Fault onConnect();
    /// The fault of the answer to a message.
    Fault onMessage(std::string_view message);

    const std::vector<FaultRule>& rules() const { return rules_; }

private:
    std::vector<FaultRule> rules_;
};

} // namespace orb
