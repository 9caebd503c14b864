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

/// The state of a link in full, for the Connect page. `name` is what a message calls the other end.
StatusLine linkStatus(const InstrumentLink& link, const QString& name);

/// The same in short, for the bar above both pages.
StatusLine shortStatus(const InstrumentLink& link);

} // namespace orb
