// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "label.h"
#include "link_status_text.h"
#include "picture_button.h"

#include <QBoxLayout>
#include <QShortcut>

namespace orb {

/// A small bar for every page of the program: how the link stands, which inputs are on, and the button ALL OFF, which
/// is there while the link stands. F12 presses it from anywhere in the program.
class AllOffBar final : public Control<QWidget> {
public:
    Label lblLink;
    Label lblInputs;
    PictureButton cmdAllOff{QStringLiteral("ALL OFF")};
    QShortcut keyAllOff;

    AllOffBar();

    void display(bool isConnected, const QString& link, const StatusLine& inputs, const QString& sentence);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void fitTexts();

    QBoxLayout* layout_;
};

} // namespace orb
