// SPDX-License-Identifier: GPL-3.0-or-later
#include "control_page.h"

#include "channel_card.h"

#include <QVBoxLayout>

namespace orb {

namespace {

constexpr int mostColumns = 4;

/// Up to three cards stand in one row and four in a square, so that they are large.
int columnsFor(std::size_t count)
{
    if (count <= 3)
        return static_cast<int>(count);
    return count == 4 ? 2 : count <= 6 ? 3 : mostColumns;
}

} // namespace

ControlPage::ControlPage(QWidget* parent) : Control<QWidget>(parent), cardGrid_(new QGridLayout(&cardArea_))
{
    auto* stack = new QVBoxLayout(this);
    stack->setContentsMargins(0, 0, 0, 0);
    stack->setSizeConstraint(QLayout::SetNoConstraint);
    stack->addWidget(&cardArea_);
    stack->addWidget(&emptyArea_);

    cardGrid_->setContentsMargins(0, 0, 0, 0);
    cardGrid_->setSpacing(5);

    auto* empty = new QVBoxLayout(&emptyArea_);
    lblNoLink.setAlignment(Qt::AlignCenter);
    lblNoLink.setWordWrap(true);
    empty->addStretch(2);
    empty->addWidget(&lblNoLink);
    empty->addSpacing(16);
    empty->addWidget(&cmdGoToConnect, 0, Qt::AlignHCenter);
    empty->addStretch(3);
    cmdGoToConnect.setMinimumSize(180, 36);
    display({}, {});
}

ControlPage::~ControlPage() = default;

void ControlPage::setCardCount(std::size_t count)
{
    if (count == cards.size())
        return;
    cards.clear();
    const int columns = columnsFor(count);
    for (int i = 0; i < static_cast<int>(count); ++i) {
        auto& card = cards.emplace_back(std::make_unique<ChannelCard>(i + 1));
        card->onLoad = [this, channel = i + 1](bool on) {
            if (onLoad)
                onLoad(channel, on);
        };
        cardGrid_->addWidget(card.get(), i / columns, i % columns);
    }
    for (int i = 0; i < mostColumns; ++i) {
        cardGrid_->setColumnStretch(i, i < columns ? 1 : 0);
        cardGrid_->setRowStretch(i, i * columns < static_cast<int>(count) ? 1 : 0);
    }
}

void ControlPage::display(const ChannelReadouts& readouts, const QString& noLinkText)
{
    setCardCount(readouts.size());
    cardArea_.setVisible(!readouts.empty());
    emptyArea_.setVisible(readouts.empty());
    lblNoLink.setCaption(noLinkText);
    for (std::size_t i = 0; i < cards.size(); ++i)
        cards[i]->display(readouts[i]);
}

} // namespace orb
