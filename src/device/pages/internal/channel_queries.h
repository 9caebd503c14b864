// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "channel_poll.h"

#include <array>

namespace orb {

/// A query about all channels and the evaluation of its answer.
struct ChannelQuery {
    /// The query for channels of which so much is known; empty where there is nothing to ask.
    QByteArray (*text)(const ChannelReadouts& readouts);
    /// Puts an answer into the readouts. What it lacks, and all of it where it is not the answer to the query, becomes
    /// unknown.
    void (*read)(const QByteArray& answer, ChannelReadouts& readouts);
};

/// By `ChannelQueryKind`: the modules; readings and loads; modes, voltage ranges, levels and protection; the limits of
/// the set values, once for each mode and range; the set values.
extern const std::array<ChannelQuery, 5> channelQueries;

} // namespace orb
