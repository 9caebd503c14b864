// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "combo_box.h"
#include "link_kind.h"
#include "link_settings.h"
#include "picture_button.h"
#include "status_label.h"

namespace orb {

/// The connection page: which link, to where, how it stands, and which instrument is at its other end.
class ConnectPage final : public Control<QWidget> {
    Frame fraInstrument_{QStringLiteral("Instrument")}; // a container stands before what it contains

public:
    ComboBox cmbKind{ComboBox::Kind::DropDownList};
    /// The address, typed or one of the recent ones. Enter connects.
    ComboBox cmbAddress{ComboBox::Kind::DropDown};
    Label lblHint;
    PictureButton cmdConnect{QStringLiteral("Connect")};
    PictureButton cmdCancel{QStringLiteral("Cancel")};
    PictureButton cmdDisconnect{QStringLiteral("Disconnect")};
    StatusLabel lblStatus;
    Label lblMaker;
    Label lblModel;
    Label lblSerialNumber;
    Label lblFirmware;
    Label lblChannels;
    Label lblResource;

    /// The operator wants the link of this resource name.
    std::function<void(const QString& resourceName)> onConnect;
    std::function<void()> onCancel;
    std::function<void()> onDisconnect;

    /// Both must outlive the page. Chosen is the link used last; on a first start the first kind.
    ConnectPage(const std::vector<LinkKind>& kinds, const LinkSettings& settings, QWidget* parent = nullptr);

    /// Shows how the link stands. `resourceName` is that of the link that was tried last, empty before the first.
    void display(const InstrumentLink& connection, const QString& resourceName);
    /// Fills the list of recent addresses again; what is typed stays.
    void showRecent();

    void cmbKindClick();
    void cmdConnectClick();

private:
    void createLayout();
    const LinkKind& kind() const { return kinds_[static_cast<std::size_t>(cmbKind.listIndex())]; }
    void chooseLast();
    void displayInstrument(const InstrumentLink& connection, const QString& resourceName);
    void moveFocus(InstrumentLink::Stage stage);
    void complain(const QString& words);

    const std::vector<LinkKind>& kinds_;
    const LinkSettings& settings_;
    QString complaint_;
    QWidget* focusWhenDown_ = nullptr; // where the operator was when the connecting began
    std::array<Label, 6> captions_;
    Label lblKind_{QStringLiteral("Kind of &link")};
    Label lblAddress_{QStringLiteral("&Address")};
};

} // namespace orb
