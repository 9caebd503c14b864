// SPDX-License-Identifier: GPL-3.0-or-later
#include "device_control.h"

#include "bulk_transfer.h"
#include "is_query.h"
#include "text_bytes.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

namespace orb {

namespace {

constexpr int designWidthTwips = 8115;
constexpr int designHeightTwips = 6675;
constexpr int connectTickMs = 20;
constexpr int pageTickMs = 50;
constexpr int replyWaitMs = 50;

const char* const allOffStyle =
    "QToolButton { background: #c01f1f; color: white; border: 2px solid #7d0f0f; border-radius: 5px;"
    " font-size: 16px; font-weight: bold; }"
    "QToolButton:hover { background: #d23434; }"
    "QToolButton:pressed { background: #8e1414; }"
    "QToolButton:focus { border-color: #202020; }";

/// Runs the body of a member. The members never throw: one that fails returns false, 0 or an empty text.
template <typename Body> auto guarded(const Body& body) noexcept
{
    using Result = decltype(body());
    try {
        return body();
    } catch (...) {
        return Result();
    }
}

} // namespace

DeviceControl::DeviceControl(Clock& clock, QWidget* parent)
    : DeviceControl(clock, standardLinkKinds(clock), LinkSettings::userFile(), {}, parent)
{}

DeviceControl::DeviceControl(Clock& clock, std::vector<LinkKind> kinds, const QString& settingsFile,
                             ConnectLimits limits, QWidget* parent)
    : ORBCtrl(parent),
      kinds_(std::move(kinds)),
      settings_(settingsFile),
      connectPage(kinds_, settings_),
      link_(clock, limits),
      poll_(clock),
      timerConnect_(clock),
      timerPage_(clock)
{
    createLayout();
    cmdAllOff.onClick = [this] { cmdAllOffClick(); };
    controlPage.onLoad = [this](int channel, bool on) { switchLoad(channel, on); };
    controlPage.cmdGoToConnect.onClick = [this] { ShowConnectPage(); };
    connectPage.onConnect = [this](const QString& resourceName, const QStringList& choices) {
        connectTo(resourceName, choices);
    };
    connectPage.cmdCancel.onClick = connectPage.cmdDisconnect.onClick = [this] { cmdDisconnectClick(); };
    timerConnect_.setInterval(connectTickMs);
    timerConnect_.onTick = [this] { connectTick(); };
    timerPage_.setInterval(pageTickMs);
    timerPage_.onTick = [this] { pageTick(); };
    showPage(controlPage);
    display();
}

void DeviceControl::createLayout()
{
    auto* bar = new QHBoxLayout;
    bar->setSpacing(6);
    QFont font = lblLink.font();
    font.setBold(true);
    lblLink.setFont(font);
    lblLink.setMinimumHeight(44);
    cmdAllOff.setFixedSize(120, 44);
    cmdAllOff.setStyleSheet(QString::fromLatin1(allOffStyle));
    cmdAllOff.setToolTip(QStringLiteral("Switches the inputs of all channels off"));
    bar->addWidget(&lblLink, 1);
    bar->addWidget(&cmdAllOff);

    auto* stack = new QVBoxLayout(this);
    stack->setContentsMargins(5, 5, 5, 5);
    stack->setSpacing(6);
    stack->setSizeConstraint(QLayout::SetNoConstraint);
    stack->addLayout(bar);
    stack->addWidget(&controlPage, 1);
    stack->addWidget(&connectPage, 1);
    setTabOrder(&connectPage.cmdDisconnect, &cmdAllOff);
    resizeTwips(designWidthTwips, designHeightTwips);
}

// Lines and replies.

/// A text with line ends is several lines, the empty ones among them left out. The empty text is a line of its own.
void DeviceControl::SendCommand(const QString& command)
{
    guarded([&] {
        QByteArray text = bytesOf(command);
        if (text.isEmpty())
            return sendLine(text);
        for (const QByteArray& line : text.replace('\r', '\n').split('\n'))
            if (!line.isEmpty())
                sendLine(line);
    });
}

void DeviceControl::sendLine(const QByteArray& line)
{
    Session* session = link_.session();
    const bool isSent = session != nullptr && session->send(Requester::Application, line);
    if (isQuery(line))
        unanswerable_ = !isSent;
}

QString DeviceControl::Reply()
{
    return guarded([&] {
        Session* session = link_.lastSession();
        if (session == nullptr || unanswerable_)
            return QString();
        const auto& answer = link_.session() != nullptr ? session->awaitAnswer(Requester::Application, replyWaitMs)
                                                        : session->answer(Requester::Application);
        return answer ? answerText(*answer) : QString();
    });
}

bool DeviceControl::IsConnected()
{
    return guarded([&] { return link_.isUp(); });
}

std::int16_t DeviceControl::LinkType()
{
    return guarded([&] {
        const LinkKind* kind = kindOf(kinds_, resourceName_);
        return kind != nullptr ? kind->linkType : std::int16_t{0};
    });
}

std::int16_t DeviceControl::ChannelCount()
{
    return static_cast<std::int16_t>(link_.channelCount());
}

// The link.

std::unique_ptr<Transport> DeviceControl::makeTransport() const
{
    const LinkKind* kind = kindOf(kinds_, resourceName_);
    return kind != nullptr ? kind->transport(resourceName_, choices_) : nullptr;
}

void DeviceControl::connectTo(const QString& resourceName, const QStringList& choices)
{
    resourceName_ = resourceName;
    choices_ = choices;
    auto transport = makeTransport();
    if (!transport)
        return;
    becomeActive(); // the operator pressed a button of the control, so it is on the screen
    link_.start(std::move(transport));
    timerConnect_.setEnabled(true);
    connectTick();
}

void DeviceControl::connectTick()
{
    link_.step(active_ && isOnScreen());
    if (!link_.isConnecting())
        timerConnect_.setEnabled(false);
    if (link_.stage() == InstrumentLink::Stage::Up)
        linkWentUp();
    display();
}

void DeviceControl::linkWentUp()
{
    settings_.use(resourceName_, choices_);
    connectPage.showRecent();
    poll_.restart(link_.channelCount());
    unanswerable_ = false;
}

void DeviceControl::Reconnect()
{
    guarded([&] {
        auto transport = makeTransport();
        if (!transport)
            return;
        timerConnect_.setEnabled(false);
        lblLink.display({QStringLiteral("Reconnecting..."), Tone::Busy});
        lblLink.repaint(); // no event runs before the link is up or failed
        if (link_.startAndWait(std::move(transport)))
            linkWentUp();
        display();
    });
}

// The pages.

void DeviceControl::ShowControlPage()
{
    guarded([&] {
        showPage(controlPage);
        becomeActive();
    });
}

void DeviceControl::ShowConnectPage()
{
    guarded([&] {
        showPage(connectPage);
        becomeActive();
        if (connectPage.cmdConnect.enabled())
            connectPage.cmdConnect.setFocus();
    });
}

void DeviceControl::showPage(QWidget& page)
{
    // Qt passes the focus of a control that gets hidden to ALL OFF, where the next key would press it.
    if (isAncestorOf(window()->focusWidget()))
        setFocus();
    controlPage.setVisible(&page == &controlPage);
    connectPage.setVisible(&page == &connectPage);
}

void DeviceControl::becomeActive()
{
    active_ = true;
    timerPage_.setEnabled(true);
    display();
}

void DeviceControl::PanelActive(bool active)
{
    guarded([&] {
        if (active)
            becomeActive();
        else if (active_)
            becomeInactive();
    });
}

/// Waits for the answer to the control's own query, so that the application's next one meets an idle link.
void DeviceControl::becomeInactive()
{
    active_ = false;
    timerPage_.setEnabled(false);
    if (Session* session = link_.session(); session != nullptr && poll_.isAwaiting())
        session->awaitAnswer(Requester::Control, replyWaitMs);
    poll_.abandon();
}

bool DeviceControl::isOnScreen() const
{
    return isVisible() && !window()->isMinimized();
}

/// Reads the link once and sends one query at most, so that a tick ends however much an instrument sends.
void DeviceControl::pageTick()
{
    if (!isOnScreen())
        return;
    if (link_.isUp() && controlPage.isVisible() && poll_.poll(*link_.session()))
        controlPage.display(poll_.readouts(), {});
    display();
}

void DeviceControl::switchLoad(int channel, bool on)
{
    if (Session* session = link_.session())
        session->send(Requester::Control, loadCommand(channel, on));
    poll_.hurry();
}

void DeviceControl::cmdAllOffClick()
{
    Session* session = link_.session();
    if (session != nullptr && session->send(Requester::Control, allOffCommand()))
        poll_.hurry();
    else
        lblLink.display({QStringLiteral("Not connected: nothing could be switched off from here."), Tone::Bad});
}

/// Ends the link, or the connecting.
void DeviceControl::cmdDisconnectClick()
{
    link_.drop();
    timerConnect_.setEnabled(false);
    display();
}

/// Shows the state of the link where it has changed.
void DeviceControl::display()
{
    if (displayed_ == link_.changes())
        return;
    displayed_ = link_.changes();
    lblLink.display(shortStatus(link_));
    connectPage.display(link_, resourceName_);
    if (link_.stage() != InstrumentLink::Stage::Up)
        poll_.restart(0);
    controlPage.display(poll_.readouts(), connectPage.lblStatus.caption());
}

// The bulk transfers.

/// Runs `body` while the link stands. A transfer takes the place of the control's own query.
bool DeviceControl::transfer(bool (*body)(Session& session))
{
    return guarded([&] {
        poll_.abandon();
        return link_.isUp() && body(*link_.session());
    });
}

bool DeviceControl::GrabScreen()
{
    return transfer(fetchScreen);
}

void DeviceControl::FetchSequenceFile()
{
    transfer(fetchSequenceFile);
}

void DeviceControl::FetchProgramFile()
{
    transfer(fetchProgramFile);
}

void DeviceControl::SendProgramFile()
{
    transfer(sendProgramFile);
}

} // namespace orb
