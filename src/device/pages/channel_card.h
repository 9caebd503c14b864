// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "channel_poll.h"
#include "label.h"
#include "picture_button.h"

#include <QFrame>

namespace orb {

/// One load channel on the Control page: its readings, its settings, and the button of its input.
class ChannelCard final : public Control<QFrame> {
public:
    Label lblNumber;
    Label lblModule;
    Label lblState;
    Label lblVolts;
    Label lblAmperes;
    Label lblWatts;
    Label lblMode;
    Label lblSetValue;
    /// Its caption is what a press does. It switches on only an input that is known to be off.
    PictureButton cmdLoad;

    /// The button was pressed to switch the input on or off.
    std::function<void(bool on)> onLoad;

    explicit ChannelCard(int channel, QWidget* parent = nullptr);

    void display(const ChannelReadout& readout);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void createLayout();
    int readingSize(int small) const;
    void displayState(const ChannelReadout& readout);

    std::array<Label, 3> units_;
    bool offersOn_ = false;
};

} // namespace orb
