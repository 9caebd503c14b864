// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "instrument_link.h"

namespace orb {

/// How a status line is colored.
enum class Tone { Neutral, Busy, Good, Bad };

struct StatusLine {
    QString text;
    Tone tone = Tone::Neutral;

    bool operator==(const StatusLine&) const = default;
};

/// What the Connect page says of a link to `peer`, which is what a message calls the other end.
StatusLine linkStatus(const InstrumentLink& connection, const QString& peer);

/// The same in a few words, for the bar above both pages.
StatusLine shortStatus(const InstrumentLink& connection);

} // namespace orb
