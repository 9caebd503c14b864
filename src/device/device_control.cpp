// SPDX-License-Identifier: GPL-3.0-or-later
#include "device_control.h"

#include "bulk_transfer.h"
#include "text_bytes.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

namespace orb {

namespace {

constexpr int designWidthTwips = 8115;
constexpr int designHeightTwips = 6675;
constexpr int connectTickMs = 20;
constexpr int pageTickMs = 50;
constexpr qint64 roundMs = 500; // between the beginnings of two rounds of the Control page
constexpr int replyWaitMs = 50;

const char* const allOffStyle =
    "QToolButton { background: #c01f1f; color: white; border: 2px solid #7d0f0f; border-radius: 5px;"
    " font-size: 16px; font-weight: bold; }"
    "QToolButton:hover { background: #d23434; }"
    "QToolButton:pressed { background: #8e1414; }"
    "QToolButton:focus { border-color: #202020; }";

/// The members of the control never throw: whatever goes wrong inside shows by the result.
template <typename Result, typename Body> Result guarded(Result otherwise, const Body& body) noexcept
{
    try {
        return body();
    } catch (...) {
        return otherwise;
    }
}

template <typename Body> void guarded(const Body& body) noexcept
{
    try {
        body();
    } catch (...) {
    }
}

} // namespace

DeviceControl::DeviceControl(Clock& clock, QWidget* parent)
    : DeviceControl(clock, standardLinkKinds(clock), LinkSettings::userFile(), {}, parent)
{}

DeviceControl::DeviceControl(Clock& clock, std::vector<LinkKind> kinds, const QString& settingsFile,
                             ConnectLimits limits, QWidget* parent)
    : ORBCtrl(parent),
      clock_(clock),
      kinds_(std::move(kinds)),
      settings_(settingsFile),
      connectPage(kinds_, settings_),
      connection_(clock, limits),
      timerConnect_(clock),
      timerPage_(clock)
{
    createLayout();
    cmdAllOff.onClick = [this] { cmdAllOffClick(); };
    controlPage.onLoad = [this](int channel, bool on) { switchLoad(channel, on); };
    controlPage.onGoToConnect = [this] { ShowConnectPage(); };
    connectPage.onConnect = [this](const QString& resourceName) { connectTo(resourceName); };
    connectPage.onCancel = connectPage.onDisconnect = [this] {
        connection_.drop();
        timerConnect_.setEnabled(false);
        display();
    };
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

// The conversation of the application.

void DeviceControl::SendCommand(const QString& command)
{
    guarded([&] {
        const QByteArray text = bytesOf(command);
        if (!text.contains('\n') && !text.contains('\r'))
            return sendLine(text);
        for (const QByteArray& line : QByteArray(text).replace('\r', '\n').split('\n'))
            sendLine(line);
    });
}

void DeviceControl::sendLine(const QByteArray& line)
{
    if (line.isEmpty())
        return;
    Session* session = connection_.session();
    const bool isSent = session != nullptr && session->send(Requester::Application, line);
    if (isQuery(line))
        unanswerable_ = !isSent;
}

QString DeviceControl::Reply()
{
    return guarded(QString(), [&] {
        Session* session = connection_.lastSession();
        if (session == nullptr || unanswerable_)
            return QString();
        const bool up = connection_.stage() == InstrumentLink::Stage::Up;
        const auto& answer =
            up ? session->awaitAnswer(Requester::Application, replyWaitMs) : session->answer(Requester::Application);
        return answer ? answerText(*answer) : QString();
    });
}

bool DeviceControl::IsConnected()
{
    return guarded(false, [&] { return connection_.isUp(); });
}

std::int16_t DeviceControl::LinkType()
{
    return guarded(std::int16_t{0}, [&] {
        const LinkKind* kind = kindOf(kinds_, resourceName_);
        return kind != nullptr ? kind->linkType : std::int16_t{0};
    });
}

std::int16_t DeviceControl::ChannelCount()
{
    return static_cast<std::int16_t>(connection_.channelCount());
}

// The link.

std::unique_ptr<Transport> DeviceControl::makeTransport() const
{
    const LinkKind* kind = kindOf(kinds_, resourceName_);
    return kind != nullptr ? kind->transport(resourceName_) : nullptr;
}

void DeviceControl::connectTo(const QString& resourceName)
{
    resourceName_ = resourceName;
    auto transport = makeTransport();
    if (!transport)
        return;
    becomeActive(); // the operator pressed a button of the control, so it is on the screen
    connection_.start(std::move(transport));
    timerConnect_.setEnabled(true);
    connectTick();
}

void DeviceControl::connectTick()
{
    connection_.step(active_ && isVisible());
    if (!connection_.isConnecting())
        timerConnect_.setEnabled(false);
    if (connection_.stage() == InstrumentLink::Stage::Up)
        wentUp();
    display();
}

void DeviceControl::wentUp()
{
    settings_.use(resourceName_);
    connectPage.showRecent();
    poll_.restart(connection_.channelCount());
    polledAt_.reset();
    roundAt_.reset();
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
        if (connection_.startAndWait(std::move(transport)))
            wentUp();
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
    // A control that is hidden would hand the focus on to ALL OFF, and a stray key would press it.
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
            leaveLinkToApplication();
    });
}

/// An answer to the Control page that is still under way is awaited, so that the application meets an idle line.
void DeviceControl::leaveLinkToApplication()
{
    active_ = false;
    timerPage_.setEnabled(false);
    if (Session* session = connection_.session(); session != nullptr && polledAt_)
        session->awaitAnswer(Requester::Control, replyWaitMs);
    polledAt_.reset();
    poll_.beginRound();
}

bool DeviceControl::isOnScreen() const
{
    return isVisible() && !window()->isMinimized();
}

void DeviceControl::pageTick()
{
    if (!isOnScreen())
        return;
    connection_.isUp();
    if (controlPage.isVisible())
        pollChannels();
    display();
}

void DeviceControl::pollChannels()
{
    constexpr int queriesOfARound = 4;
    for (int i = 0; i < queriesOfARound; ++i) {
        Session* session = connection_.session();
        if (session == nullptr || !pollOnce(*session))
            return;
    }
}

/// Takes the answer that is due and sends the query that is next, one at a time. True when it got on.
bool DeviceControl::pollOnce(Session& session)
{
    const qint64 now = clock_.elapsed();
    session.poll();
    if (polledAt_) {
        const auto& answer = session.answer(Requester::Control);
        if (!answer && now - *polledAt_ < Session::patienceMs)
            return false;
        polledAt_.reset();
        poll_.take(answer.value_or(QByteArray()));
        controlPage.display(poll_.readouts(), {});
        return true;
    }
    const bool isRoundDue = !roundAt_ || now - *roundAt_ >= roundMs;
    if ((poll_.isAtRoundBegin() && !isRoundDue) || !session.isQuiet())
        return false;
    if (poll_.isAtRoundBegin())
        roundAt_ = now;
    polledAt_ = now;
    session.send(Requester::Control, poll_.query());
    return true;
}

void DeviceControl::switchLoad(int channel, bool on)
{
    if (Session* session = connection_.session())
        session->send(Requester::Control, loadCommand(channel, on));
    roundAt_.reset(); // its effect is looked for at once
}

void DeviceControl::cmdAllOffClick()
{
    Session* session = connection_.session();
    if (session != nullptr && session->send(Requester::Control, allOffCommand())) {
        roundAt_.reset();
        return;
    }
    lblLink.display({QStringLiteral("Not connected: nothing could be switched off from here."), Tone::Bad});
}

/// Shows how the link stands, where that is another than what is shown.
void DeviceControl::display()
{
    if (displayed_ == connection_.changes())
        return;
    displayed_ = connection_.changes();
    lblLink.display(shortStatus(connection_));
    connectPage.display(connection_, resourceName_);
    if (connection_.stage() != InstrumentLink::Stage::Up)
        poll_.restart(0);
    controlPage.display(poll_.readouts(), connectPage.lblStatus.caption());
}

// The bulk transfers.

/// The conversation for a transfer, null without a link. An answer to the Control page that is under way is given up.
Session* DeviceControl::sessionForTransfer()
{
    polledAt_.reset();
    return connection_.isUp() ? connection_.session() : nullptr;
}

bool DeviceControl::GrabScreen()
{
    return guarded(false, [&] {
        Session* session = sessionForTransfer();
        return session != nullptr && fetchScreen(*session);
    });
}

void DeviceControl::FetchSequenceFile()
{
    guarded([&] {
        if (Session* session = sessionForTransfer())
            fetchSequenceFile(*session);
    });
}

void DeviceControl::FetchProgramFile()
{
    guarded([&] {
        if (Session* session = sessionForTransfer())
            fetchProgramFile(*session);
    });
}

void DeviceControl::SendProgramFile()
{
    guarded([&] {
        if (Session* session = sessionForTransfer())
            sendProgramFile(*session);
    });
}

} // namespace orb
