// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "label.h"
#include "link_words.h"

namespace orb {

/// A line of words on a colored ground.
class StatusLabel final : public Label {
public:
    explicit StatusLabel(QWidget* parent = nullptr);

    void display(const StatusLine& status);
    const StatusLine& status() const { return status_; }

private:
    StatusLine status_;
};

/// The ground behind words in white.
QColor toneColor(Tone tone);

} // namespace orb
