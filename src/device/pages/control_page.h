// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "channel_card.h"

#include <QGridLayout>

#include <memory>

namespace orb {

/// The instrument page: a card for each channel, or, without a link, the way to the Connect page.
class ControlPage final : public Control<QWidget> {
private:
    QWidget cardArea_; // containers stand before what they contain
    QWidget emptyArea_;

public:
    Label lblNoLink;
    PictureButton cmdGoToConnect{QStringLiteral("Go to the Connect page")};
    /// One for each channel of the connected instrument.
    std::vector<std::unique_ptr<ChannelCard>> cards;

    std::function<void()> onGoToConnect;
    /// The operator wants the input of a channel, counted from 1, on or off.
    std::function<void(int channel, bool on)> onLoad;

    explicit ControlPage(QWidget* parent = nullptr);

    /// Shows `readouts`, a card for each; none, and `words` in their place, without a link.
    void display(const std::vector<ChannelReadout>& readouts, const QString& words);

private:
    void setCardCount(std::size_t count);

    QGridLayout* cardGrid_;
};

} // namespace orb
