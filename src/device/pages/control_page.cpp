// SPDX-License-Identifier: GPL-3.0-or-later
#include "control_page.h"

#include "channel_card.h"

#include <QVBoxLayout>

namespace orb {

namespace {

constexpr int cardSpacing = 5;

/// How many cards stand in the first row: up to three in one row and four in a square, so that they are large.
int columnsFor(int count)
{
    if (count <= 3)
        return count;
    return count == 4 ? 2 : (count + 1) / 2;
}

} // namespace

ControlPage::ControlPage(QWidget* parent) : Control<QWidget>(parent), cardRows_{new QHBoxLayout, new QHBoxLayout}
{
    auto* stack = new QVBoxLayout(this);
    stack->setContentsMargins(0, 0, 0, 0);
    stack->setSizeConstraint(QLayout::SetNoConstraint);
    stack->addWidget(&cardArea_);
    stack->addWidget(&emptyArea_);

    auto* rows = new QVBoxLayout(&cardArea_);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(cardSpacing);
    for (QHBoxLayout* row : cardRows_) {
        row->setSpacing(cardSpacing);
        rows->addLayout(row, 1);
    }

    auto* empty = new QVBoxLayout(&emptyArea_);
    lblNoLink.setAlignment(Qt::AlignCenter);
    lblNoLink.setWordWrap(true);
    empty->addStretch(2);
    empty->addWidget(&lblNoLink);
    empty->addSpacing(16);
    empty->addWidget(&cmdGoToConnect, 0, Qt::AlignHCenter);
    empty->addStretch(3);
    cmdGoToConnect.setMinimumSize(180, 36);
    setCardCount(0);
    showCards(false);
}

ControlPage::~ControlPage() = default;

void ControlPage::setCardCount(std::size_t count)
{
    if (count == cards.size())
        return;
    cards.clear();
    const int total = static_cast<int>(count);
    const int inFirst = columnsFor(total);
    for (int i = 0; i < total; ++i) {
        auto& card = cards.emplace_back(std::make_unique<ChannelCard>(i + 1));
        card->onChange = [this, channel = i + 1](const ChannelChange& change) {
            if (onChange)
                onChange(channel, change);
        };
        cardRows_[i < inFirst ? 0 : 1]->addWidget(card.get(), 1);
    }
    auto* rows = static_cast<QVBoxLayout*>(cardArea_.layout());
    rows->setStretch(1, total > inFirst ? 1 : 0);
    rows->setSpacing(total > inFirst ? cardSpacing : 0);
}

void ControlPage::showCards(bool areShown)
{
    cardArea_.setVisible(areShown);
    emptyArea_.setVisible(!areShown);
}

void ControlPage::display(const ChannelReadouts& readouts, const ChannelChanges& changes, const QString& noLinkText)
{
    setCardCount(readouts.size());
    showCards(!readouts.empty());
    lblNoLink.setCaption(noLinkText);
    for (std::size_t i = 0; i < cards.size(); ++i)
        cards[i]->display(readouts[i], changes.status(static_cast<int>(i) + 1));
}

} // namespace orb
