// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <deque>
#include <string>

namespace orb {

/// A query for the readings of all channels, as received, and its answer.
struct ServedAnswer {
    std::string query;
    std::string answer;

    bool operator==(const ServedAnswer&) const = default;
};

/// The answers to queries for the readings of all channels, for comparison with a record made of them. Keeps the
/// newest `capacity` answers.
class ServedLog {
public:
    static constexpr std::size_t capacity = 100'000;

    void add(std::string query, std::string answer);

    const std::deque<ServedAnswer>& answers() const { return answers_; }
    /// The number of all answers, those that are no longer kept included.
    std::uint64_t total() const { return total_; }

private:
    std::deque<ServedAnswer> answers_;
    std::uint64_t total_ = 0;
};

} // namespace orb
