// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "channel_changes.h"
#include "choice_box.h"
#include "label.h"
#include "picture_button.h"
#include "status_label.h"
#include "value_field.h"

#include <QBoxLayout>
#include <QFrame>

#include <array>

namespace orb {

/// A button that is pressed once however long Enter is held.
class LoadButton final : public PictureButton {
protected:
    void keyPressEvent(QKeyEvent* event) override;
};

/// One load channel on the Control page: its readings, its settings, which are edited in place, and the button of its
/// input.
class ChannelCard final : public Control<QFrame> {
public:
    Label lblNumber;
    Label lblModule;
    Label lblState;
    Label lblVolts;
    Label lblAmperes;
    Label lblWatts;
    ChoiceBox cmbMode;
    ChoiceBox cmbRange;
    ValueField txtSetValue;
    Label lblUnit;
    Label lblLimits;
    /// What a change has come to, why a value was refused, or what has tripped.
    Label lblNote;
    /// Its caption is what a press does. It switches on only an input that is known to be off.
    LoadButton cmdLoad;

    /// The operator confirmed a change.
    std::function<void(const ChannelChange& change)> onChange;

    explicit ChannelCard(int channel, QWidget* parent = nullptr);

    void display(const ChannelReadout& readout, const ChangeStatus& status);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void wire();
    void createLayout();
    QLayout* titleRow();
    QLayout* modeRow();
    QLayout* setValueRow();
    void nameControls();
    void choose(ChannelChange change);
    void displayState();
    void displaySettings();
    void displayNote();
    StatusLine note() const;
    void setSizes(int small);
    int readingSize(int small) const;
    std::array<Label*, 3> readings() { return {&lblVolts, &lblAmperes, &lblWatts}; }

    std::array<Label, 3> units_;
    QBoxLayout* setValueRow_ = nullptr;
    ChannelReadout readout_;
    ChangeStatus status_;
    bool offersOn_ = false;
};

} // namespace orb
