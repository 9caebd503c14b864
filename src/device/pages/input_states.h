// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "channel_readout.h"
#include "link_status_text.h"

namespace orb {

/// Which load inputs are on, as far as that is known from the last poll of the Control page and from what was sent
/// since. What may have changed in a way that can't be foreseen is unknown.
class InputStates {
public:
    /// Forgets everything and expects `channels` channels.
    void restart(int channels);
    /// The Control page has read the inputs.
    void polled(const ChannelReadouts& readouts);
    /// The Control page is not on the screen any more: from now on the states are those of its last poll.
    void left() { isFresh_ = false; }
    /// A line went out.
    void sent(const QByteArray& line);

    /// "1, 3 on", "5 on", "All off", with "Last: " where the Control page does not poll, "ALL OFF sent" after that, and
    /// "Inputs unknown".
    StatusLine status() const;
    /// The same in a sentence, with the numbers of all channels that are on.
    QString sentence() const;

private:
    void sentUnit(const QByteArray& unit);
    void mayGoOff(std::size_t channel);
    void setAll(const std::optional<bool>& isOn);
    bool isKnown() const;
    QStringList channelsOn() const;

    std::vector<std::optional<bool>> isOn_;
    bool isFresh_ = false;
    bool isAllOffSent_ = false;
};

} // namespace orb
