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

/// The modules, which are asked for once; readings and loads; modes, levels and protection; set values, which depend on
/// the modes.
extern const std::array<ChannelQuery, 4> channelQueries;

} // namespace orb
