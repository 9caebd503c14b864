// SPDX-License-Identifier: GPL-3.0-or-later
#include "connect_page.h"

#include <QFormLayout>
#include <QGridLayout>
#include <QLineEdit>
#include <QVBoxLayout>

#include <algorithm>

namespace orb {

namespace {
constexpr int buttonWidth = 104;
constexpr int buttonHeight = 34;
constexpr int fieldSpacing = 6;
constexpr int captionMargin = 12;
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
    selectLast();

    cmbKind.onClick = [this] { cmbKindClick(); };
    cmbAddress.onChange = cmbAddress.onClick = [this] {
        showNote({});
        showChoices();
    };
    cmdSearch.onClick = [this] { cmdSearchClick(); };
    cmdConnect.onClick = [this] { cmdConnectClick(); };
    QObject::connect(cmbAddress.lineEdit(), &QLineEdit::returnPressed, this,
                     [this] { enter([this] { cmdConnectClick(); }); });
    cmdCancel.setToolTip(QStringLiteral("End the attempt (Esc)"));
    QObject::connect(&keyCancel_, &QShortcut::activated, this, [this] { cmdCancel.click(); });
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
    auto* address = new QHBoxLayout;
    address->addWidget(&cmbAddress, 1);
    address->setSpacing(fieldSpacing);
    address->addWidget(&cmdSearch);
    cmdSearch.setMinimumWidth(cmdSearch.fontMetrics().horizontalAdvance(cmdSearch.caption()) + 2 * captionMargin);
    form->addRow(&lblAddress_, address);
    form->addRow(nullptr, &lblHint);
    createOptions();
    form->addRow(nullptr, &options_);
    page->addLayout(form);

    page->addLayout(createButtonRow());
    lblStatus.setMinimumHeight(52);
    page->addWidget(&lblStatus);
    lblNotice.setWordWrap(true);
    lblNotice.setTextInteractionFlags(Qt::TextSelectableByMouse);
    lblNotice.setVisible(false);
    page->addWidget(&lblNotice);
    createInstrumentFrame();
    page->addWidget(&fraInstrument_);
    page->addStretch();
}

/// Texts on several lines count with all of them.
QSize ConnectPage::minimumSizeHint() const
{
    const QSize needed = Control<QWidget>::minimumSizeHint();
    return {needed.width(), layout()->minimumHeightForWidth(std::max(width(), needed.width()))};
}

QLayout* ConnectPage::createButtonRow()
{
    auto* buttons = new QHBoxLayout;
    for (PictureButton* button : {&cmdConnect, &cmdCancel, &cmdDisconnect}) {
        button->setMinimumSize(buttonWidth, buttonHeight);
        buttons->addWidget(button);
    }
    buttons->addStretch();
    return buttons;
}

void ConnectPage::createOptions()
{
    auto* grid = new QGridLayout(&options_);
    grid->setContentsMargins(0, 0, 0, 0);
    for (int i = 0; i < static_cast<int>(cmbOption.size()); ++i) {
        const auto index = static_cast<std::size_t>(i);
        optionTitles_[index].setBuddy(&cmbOption[index]);
        cmbOption[index].setSizeAdjustPolicy(QComboBox::AdjustToContents);
        grid->addWidget(&optionTitles_[index], 0, i);
        grid->addWidget(&cmbOption[index], 1, i);
    }
    grid->setColumnStretch(static_cast<int>(cmbOption.size()), 1);
}

void ConnectPage::createInstrumentFrame()
{
    auto* facts = new QFormLayout(&fraInstrument_);
    facts->setHorizontalSpacing(16);
    facts->setVerticalSpacing(4);
    facts->setSizeConstraint(QLayout::SetMinimumSize);
    Label* const values[] = {&lblMaker, &lblModel, &lblSerialNumber, &lblFirmware, &lblChannels, &lblResource};
    for (std::size_t i = 0; i < captions_.size(); ++i) {
        values[i]->setTextInteractionFlags(Qt::TextSelectableByMouse);
        values[i]->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
        facts->addRow(&captions_[i], values[i]);
    }
}

void ConnectPage::selectLast()
{
    const LinkKind* last = kindOf(kinds_, settings_.last());
    cmbKind.setListIndex(last == nullptr ? 0 : static_cast<int>(last - kinds_.data()));
    cmbKindClick();
    if (last != nullptr)
        cmbAddress.setText(last->typed(settings_.last()));
}

/// Offers the recent addresses of the selected kind and selects the latest.
void ConnectPage::cmbKindClick()
{
    dropSearch();
    offerOptions();
    cmdSearch.setVisible(kind().search != nullptr);
    cmbAddress.setText({});
    showRecent();
    if (cmbAddress.listCount() > 0)
        cmbAddress.setListIndex(0);
    const bool hasAddress = !kind().example.isEmpty();
    cmbAddress.setEnabled(hasAddress);
    cmbAddress.lineEdit()->setPlaceholderText(hasAddress ? QString() : QStringLiteral("needs no address"));
    lblHint.setCaption(hasAddress ? QStringLiteral("For example ") + kind().example
                                  : QStringLiteral("Runs inside this program: nothing to plug in."));
    showNote({});
}

void ConnectPage::offerOptions()
{
    const auto& options = kind().options;
    options_.setVisible(!options.empty());
    for (std::size_t i = 0; i < cmbOption.size(); ++i) {
        const bool exists = i < options.size();
        cmbOption[i].setVisible(exists);
        optionTitles_[i].setVisible(exists);
        cmbOption[i].clear();
        cmbOption[i].setAccessibleName(exists ? options[i].title : QStringLiteral("Option %1").arg(i + 1));
        if (!exists)
            continue;
        optionTitles_[i].setCaption(options[i].title);
        for (const QString& choice : options[i].choices)
            cmbOption[i].addItem(choice);
        cmbOption[i].setListIndex(options[i].preset);
    }
}

void ConnectPage::showChoices()
{
    const auto resourceName = kind().resourceName(cmbAddress.text());
    const QStringList used = resourceName ? settings_.choices(*resourceName) : QStringList();
    if (used.isEmpty())
        return;
    for (std::size_t i = 0; i < kind().options.size(); ++i)
        cmbOption[i].setListIndex(choiceOf(kind().options, i, used));
}

QStringList ConnectPage::choices() const
{
    QStringList texts;
    for (std::size_t i = 0; i < kind().options.size(); ++i)
        texts += cmbOption[i].text();
    return texts;
}

void ConnectPage::showRecent()
{
    const QString typed = cmbAddress.text();
    const QSignalBlocker quiet(cmbAddress);
    cmbAddress.clear();
    for (const QString& resourceName : settings_.recent())
        if (kindOf(kinds_, resourceName) == &kind() && !kind().example.isEmpty())
            cmbAddress.addItem(kind().typed(resourceName));
    for (const QString& address : kind().found ? kind().found() : QStringList())
        if (cmbAddress.findText(address) < 0)
            cmbAddress.addItem(address);
    if (kind().search)
        offerFound();
    cmbAddress.setText(typed);
}

void ConnectPage::cmdConnectClick()
{
    if (!cmdConnect.enabled())
        return;
    dropSearch();
    showNote({});
    const QString typed = cmbAddress.text().trimmed();
    const auto resourceName = kind().resourceName(typed);
    if (!resourceName) {
        const QString error =
            typed.isEmpty()
                ? QStringLiteral("An address is missing. Type where the instrument is.")
                : QStringLiteral("\"%1\" is not an address of this kind of link.").arg(shownText(typed.toUtf8()));
        showNote({error, Tone::Bad});
    } else if (onConnect) {
        onConnect(*resourceName, choices());
    }
}

void ConnectPage::showNotice(const QString& text)
{
    lblNotice.setCaption(text);
    lblNotice.setVisible(!text.isEmpty());
}

/// The note takes the place of the link's state until the kind or the address is changed.
void ConnectPage::showNote(const StatusLine& note)
{
    note_ = note;
    lblStatus.display(note.text.isEmpty() ? linkStatus_ : note);
}

void ConnectPage::display(const InstrumentLink& link, const QString& resourceName)
{
    const bool down = link.stage() == InstrumentLink::Stage::Down;
    const LinkKind* kind = kindOf(kinds_, resourceName);
    const QString name = kind != nullptr ? kind->remoteName(resourceName) : QString();
    linkStatus_ = linkStatus(link, shownText(name.toUtf8()));
    showNote(note_);
    const bool hadFocus = isAncestorOf(window()->focusWidget());
    if (hadFocus && !down && cmdConnect.enabled())
        focusWhenDown_ = window()->focusWidget();
    cmbKind.setEnabled(down);
    cmbAddress.setEnabled(down && !this->kind().example.isEmpty());
    options_.setEnabled(down);
    cmdSearch.setEnabled(down);
    cmdConnect.setEnabled(down);
    cmdCancel.setEnabled(link.isConnecting());
    keyCancel_.setEnabled(link.isConnecting());
    cmdDisconnect.setEnabled(link.stage() == InstrumentLink::Stage::Up);
    if (hadFocus)
        keepFocus(link.stage());
    displayInstrument(link, resourceName);
}

/// Qt passes the focus of a control that gets disabled to the next one: a second press of Enter would then cancel the
/// connecting or disconnect.
void ConnectPage::keepFocus(InstrumentLink::Stage stage)
{
    if (stage != InstrumentLink::Stage::Down)
        setFocus();
    else
        (focusWhenDown_ != nullptr ? focusWhenDown_ : &cmdConnect)->setFocus();
}

void ConnectPage::displayInstrument(const InstrumentLink& link, const QString& resourceName)
{
    const bool up = link.stage() == InstrumentLink::Stage::Up;
    const Identity& identity = link.identity();
    lblMaker.setCaption(identity.maker);
    lblModel.setCaption(identity.model);
    lblSerialNumber.setCaption(identity.serialNumber);
    lblFirmware.setCaption(identity.firmware);
    lblChannels.setCaption(up ? QString::number(link.channelCount()) : QString());
    lblResource.setCaption(up ? resourceName : QString());
    fraInstrument_.setEnabled(up);
}

} // namespace orb
