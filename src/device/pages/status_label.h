// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "label.h"
#include "link_status_text.h"

namespace orb {

/// White text on the color of its tone.
class StatusLabel final : public Label {
public:
    explicit StatusLabel(QWidget* parent = nullptr);

    void display(const StatusLine& status);
    const StatusLine& status() const { return status_; }

private:
    StatusLine status_;
};

/// A background for white text.
QColor toneColor(Tone tone);

} // namespace orb
