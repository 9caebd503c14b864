// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "combo_box.h"
#include "link_kind.h"
#include "link_settings.h"
#include "picture_button.h"
#include "status_label.h"

#include <QShortcut>

namespace orb {

/// The connection page: the kind and address of the link, its state, and the connected instrument.
class ConnectPage final : public Control<QWidget> {
    Control<QWidget> options_; // a container is declared before its contents
    Frame fraInstrument_{QStringLiteral("Instrument")};

public:
    ComboBox cmbKind{ComboBox::Kind::DropDownList};
    /// The address, typed or one of the recent ones. Enter connects.
    ComboBox cmbAddress{ComboBox::Kind::DropDown};
    /// Searches the network for instruments that announce themselves, and stops that; hidden where the kind has no search.
    PictureButton cmdSearch{QStringLiteral("Search network")};
    Label lblHint;
    /// The settings of the line beside the address; those that the selected kind does not have are hidden.
    std::array<ComboBox, LinkKind::mostOptions> cmbOption{
        ComboBox(ComboBox::Kind::DropDownList), ComboBox(ComboBox::Kind::DropDownList),
        ComboBox(ComboBox::Kind::DropDownList), ComboBox(ComboBox::Kind::DropDownList),
        ComboBox(ComboBox::Kind::DropDownList)};
    PictureButton cmdConnect{QStringLiteral("Connect")};
    PictureButton cmdCancel{QStringLiteral("Cancel")};
    PictureButton cmdDisconnect{QStringLiteral("Disconnect")};
    StatusLabel lblStatus;
    /// What the operator should know from the start; hidden while it has no text.
    Label lblNotice;
    Label lblMaker;
    Label lblModel;
    Label lblSerialNumber;
    Label lblFirmware;
    Label lblChannels;
    Label lblResource;

    /// Connect was pressed with a valid address. `choices` has one for each option of the kind.
    std::function<void(const QString& resourceName, const QStringList& choices)> onConnect;

    /// Both must outlive the page. The link used last is selected, on a first start the first kind.
    ConnectPage(const std::vector<LinkKind>& kinds, const LinkSettings& settings, QWidget* parent = nullptr);

    /// Shows the state of the link. `resourceName` is that of the link tried last, empty before the first.
    void display(const InstrumentLink& link, const QString& resourceName);
    /// Shows a sentence under the state of the link until the program ends.
    void showNotice(const QString& text);
    /// Fills the list of recent addresses again and keeps the typed text.
    void showRecent();

    /// Takes what a search has found, `now` in milliseconds of the control's clock. A search ends after five seconds.
    void stepSearch(qint64 now);
    /// The page is not on the screen any more: a search is stopped.
    void abandonSearch();

    QSize minimumSizeHint() const override;

    void cmbKindClick();
    void cmdSearchClick();
    void cmdConnectClick();

private:
    void createLayout();
    QLayout* createButtonRow();
    void createOptions();
    void createInstrumentFrame();
    void offerOptions();
    /// Selects what the link of the typed address was used with.
    void showChoices();
    QStringList choices() const;
    const LinkKind& kind() const { return kinds_[static_cast<std::size_t>(cmbKind.listIndex())]; }
    void selectLast();
    void displayInstrument(const InstrumentLink& link, const QString& resourceName);
    void keepFocus(InstrumentLink::Stage stage);
    void showNote(const StatusLine& note);
    void offerFound();
    void endSearch(const StatusLine& note);
    void dropSearch();

    const std::vector<LinkKind>& kinds_;
    const LinkSettings& settings_;
    StatusLine linkStatus_;
    StatusLine note_; // takes the place of the link's state
    std::unique_ptr<NetworkSearch> search_;
    std::optional<qint64> searchEnd_;
    QList<NetworkInstrument> found_;                          // by the last search
    QShortcut keyCancel_{QKeySequence(Qt::Key_Escape), this}; ///< wherever the focus is while the page is shown
    QWidget* focusWhenDown_ = nullptr; // the control that had the focus when the connecting began
    std::array<Label, LinkKind::mostOptions> optionTitles_;
    std::array<Label, 6> captions_;
    Label lblKind_{QStringLiteral("Kind of &link")};
    Label lblAddress_{QStringLiteral("&Address")};
};

} // namespace orb
