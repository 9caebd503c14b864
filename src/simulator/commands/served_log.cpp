// SPDX-License-Identifier: GPL-3.0-or-later
#include "served_log.h"

namespace orb {

void ServedLog::add(std::string query, std::string answer)
{
    answers_.push_back({std::move(query), std::move(answer)});
    if (answers_.size() > capacity)
        answers_.pop_front();
    ++total_;
}

} // namespace orb
