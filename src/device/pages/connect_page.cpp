// SPDX-License-Identifier: GPL-3.0-or-later
#include "connect_page.h"

#include <QFormLayout>
#include <QLineEdit>
#include <QVBoxLayout>

#include <algorithm>

namespace orb {

namespace {
constexpr int buttonWidth = 104;
constexpr int buttonHeight = 34;
} // namespace

ConnectPage::ConnectPage(const std::vector<LinkKind>& kinds, const LinkSettings& settings, QWidget* parent)
    : Control<QWidget>(parent), kinds_(kinds), settings_(settings), captions_{Label(QStringLiteral("Maker")),
                                                                              Label(QStringLiteral("Model")),
                                                                              Label(QStringLiteral("Serial number")),
                                                                              Label(QStringLiteral("Firmware")),
                                                                              Label(QStringLiteral("Load channels")),
                                                                              Label(QStringLiteral("Resource name"))}
{
    createLayout();
    for (const LinkKind& each : kinds_)
        cmbKind.addItem(each.title);
    chooseLast();

    cmbKind.onClick = [this] { cmbKindClick(); };
    cmbAddress.onChange = [this] { complain({}); };
    cmdConnect.onClick = [this] { cmdConnectClick(); };
    cmdCancel.onClick = [this] {
        if (onCancel)
            onCancel();
    };
    cmdDisconnect.onClick = [this] {
        if (onDisconnect)
            onDisconnect();
    };
    QObject::connect(cmbAddress.lineEdit(), &QLineEdit::returnPressed, this,
                     [this] { enter([this] { cmdConnectClick(); }); });
}

void ConnectPage::createLayout()
{
    auto* page = new QVBoxLayout(this);
    page->setContentsMargins(8, 2, 8, 4);
    page->setSpacing(8);
    page->setSizeConstraint(QLayout::SetNoConstraint);

    auto* form = new QFormLayout;
    form->setHorizontalSpacing(12);
    form->setVerticalSpacing(5);
    form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    lblKind_.setBuddy(&cmbKind);
    lblAddress_.setBuddy(&cmbAddress);
    cmbAddress.lineEdit()->setMaxLength(static_cast<int>(LinkSettings::longestName));
    cmbAddress.setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    lblHint.setWordWrap(true);
    form->addRow(&lblKind_, &cmbKind);
    form->addRow(&lblAddress_, &cmbAddress);
    form->addRow(nullptr, &lblHint);
    page->addLayout(form);

    auto* buttons = new QHBoxLayout;
    for (PictureButton* button : {&cmdConnect, &cmdCancel, &cmdDisconnect}) {
        button->setFixedSize(buttonWidth, buttonHeight);
        buttons->addWidget(button);
    }
    buttons->addStretch();
    page->addLayout(buttons);
    lblStatus.setMinimumHeight(52);
    page->addWidget(&lblStatus);

    auto* facts = new QFormLayout(&fraInstrument_);
    facts->setHorizontalSpacing(16);
    facts->setVerticalSpacing(4);
    Label* const values[] = {&lblMaker, &lblModel, &lblSerialNumber, &lblFirmware, &lblChannels, &lblResource};
    for (std::size_t i = 0; i < captions_.size(); ++i) {
        values[i]->setTextInteractionFlags(Qt::TextSelectableByMouse);
        values[i]->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
        facts->addRow(&captions_[i], values[i]);
    }
    page->addWidget(&fraInstrument_);
    page->addStretch();
}

void ConnectPage::chooseLast()
{
    const LinkKind* last = kindOf(kinds_, settings_.last());
    cmbKind.setListIndex(last == nullptr ? 0 : static_cast<int>(last - kinds_.data()));
    cmbKindClick();
    if (last != nullptr)
        cmbAddress.setText(last->typed(settings_.last()));
}

/// Another kind: its own recent addresses, the latest of them chosen.
void ConnectPage::cmbKindClick()
{
    cmbAddress.setText({});
    showRecent();
    if (cmbAddress.listCount() > 0)
        cmbAddress.setListIndex(0);
    const bool hasAddress = !kind().example.isEmpty();
    cmbAddress.setEnabled(hasAddress);
    cmbAddress.lineEdit()->setPlaceholderText(hasAddress ? QString() : QStringLiteral("needs no address"));
    lblHint.setCaption(hasAddress ? QStringLiteral("For example ") + kind().example
                                  : QStringLiteral("Runs inside this program: nothing to plug in."));
    complain({});
}

void ConnectPage::showRecent()
{
    const QString typed = cmbAddress.text();
    const QSignalBlocker quiet(cmbAddress);
    cmbAddress.clear();
    for (const QString& resourceName : settings_.recent())
        if (kindOf(kinds_, resourceName) == &kind() && !kind().example.isEmpty())
            cmbAddress.addItem(kind().typed(resourceName));
    cmbAddress.setText(typed);
}

void ConnectPage::cmdConnectClick()
{
    if (!cmdConnect.enabled())
        return;
    complain({});
    const QString typed = cmbAddress.text().trimmed();
    const auto resourceName = kind().resourceName(typed);
    if (!resourceName)
        complain(typed.isEmpty() ? QStringLiteral("An address is missing. Type where the instrument is.")
                                 : QStringLiteral("\"%1\" is no address of this kind of link.").arg(typed));
    else if (onConnect)
        onConnect(*resourceName);
}

/// Words of the page's own, which stand until the operator changes something.
void ConnectPage::complain(const QString& words)
{
    complaint_ = words;
    if (!words.isEmpty())
        lblStatus.display({words, Tone::Bad});
}

void ConnectPage::display(const InstrumentLink& connection, const QString& resourceName)
{
    const bool down = connection.stage() == InstrumentLink::Stage::Down;
    const LinkKind* kind = kindOf(kinds_, resourceName);
    if (!down)
        complaint_.clear();
    if (complaint_.isEmpty())
        lblStatus.display(linkStatus(connection, kind != nullptr ? kind->remoteName(resourceName) : QString()));
    const bool hadFocus = isAncestorOf(window()->focusWidget());
    if (hadFocus && !down && cmdConnect.enabled())
        focusWhenDown_ = window()->focusWidget();
    cmbKind.setEnabled(down);
    cmbAddress.setEnabled(down && !this->kind().example.isEmpty());
    cmdConnect.setEnabled(down);
    cmdCancel.setEnabled(connection.isConnecting());
    cmdDisconnect.setEnabled(connection.stage() == InstrumentLink::Stage::Up);
    if (hadFocus)
        moveFocus(connection.stage());
    displayInstrument(connection, resourceName);
}

/// A control that goes out of use would hand the focus on to its neighbour, and a second press of Enter would then
/// cancel or end what the first one began.
void ConnectPage::moveFocus(InstrumentLink::Stage stage)
{
    if (stage != InstrumentLink::Stage::Down)
        setFocus();
    else
        (focusWhenDown_ != nullptr ? focusWhenDown_ : &cmdConnect)->setFocus();
}

void ConnectPage::displayInstrument(const InstrumentLink& connection, const QString& resourceName)
{
    const bool up = connection.stage() == InstrumentLink::Stage::Up;
    const Identity& identity = connection.identity();
    lblMaker.setCaption(identity.maker);
    lblModel.setCaption(identity.model);
    lblSerialNumber.setCaption(identity.serialNumber);
    lblFirmware.setCaption(identity.firmware);
    lblChannels.setCaption(up ? QString::number(connection.channelCount()) : QString());
    lblResource.setCaption(up ? resourceName : QString());
    fraInstrument_.setEnabled(up);
}

} // namespace orb
