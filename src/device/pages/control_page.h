// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "channel_changes.h"
#include "label.h"
#include "picture_button.h"

#include <QHBoxLayout>

#include <array>
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

    /// The operator confirmed a change of a channel, counted from 1.
    std::function<void(int channel, const ChannelChange& change)> onChange;

    explicit ControlPage(QWidget* parent = nullptr);
    ~ControlPage() override;

    /// Shows a card for each of `readouts`, with the state of its last change in `changes`; where there are none,
    /// `noLinkText` in their place.
    void display(const ChannelReadouts& readouts, const ChannelChanges& changes, const QString& noLinkText);

private:
    void setCardCount(std::size_t count);
    void showCards(bool areShown);

    std::array<QHBoxLayout*, 2> cardRows_;
};

} // namespace orb
