// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "channel_poll.h"
#include "label.h"
#include "picture_button.h"

#include <QGridLayout>

#include <memory>

namespace orb {

class ChannelCard;

/// The instrument page: a card for each channel, or, without a link, a button that leads to the Connect page.
class ControlPage final : public Control<QWidget> {
private:
    QWidget cardArea_; // containers are declared before their contents
    QWidget emptyArea_;

public:
    Label lblNoLink;
    PictureButton cmdGoToConnect{QStringLiteral("Go to the Connect page")};
    /// One for each channel of the connected instrument.
    std::vector<std::unique_ptr<ChannelCard>> cards;

    /// The button of a channel, counted from 1, was pressed to switch its input on or off.
    std::function<void(int channel, bool on)> onLoad;

    explicit ControlPage(QWidget* parent = nullptr);
    ~ControlPage() override;

    /// Shows a card for each of `readouts`; where there are none, `noLinkText` in their place.
    void display(const ChannelReadouts& readouts, const QString& noLinkText);

private:
    void setCardCount(std::size_t count);

    QGridLayout* cardGrid_;
};

} // namespace orb
