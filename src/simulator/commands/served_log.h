// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <deque>
#include <string>

namespace orb {

/// A query for the readings of all channels, as it came, and the answer that it was given.
struct ServedAnswer {
    std::string query;
    std::string answer;

    bool operator==(const ServedAnswer&) const = default;
};

/// What the instrument answered to queries for the readings of all channels, so that a record made of these answers
/// can be compared with them. Keeps the newest `capacity` answers.
class ServedLog {
public:
    static constexpr std::size_t capacity = 100'000;

    void add(std::string query, std::string answer);

    const std::deque<ServedAnswer>& answers() const { return answers_; }
    /// All answers there ever were, also those that are no longer kept.
    std::uint64_t total() const { return total_; }

private:
    std::deque<ServedAnswer> answers_;
    std::uint64_t total_ = 0;
};

} // namespace orb
