// SPDX-License-Identifier: GPL-3.0-or-later
#include "device_control.h"

#include "bulk_transfer.h"
#include "guarded.h"
#include "is_query.h"
#include "text_bytes.h"

#include <QVBoxLayout>

namespace orb {

namespace {

constexpr int designWidthTwips = 8115;
constexpr int designHeightTwips = 6675;
constexpr int designLines = 31; // of text, so that a desktop with a large font gets larger cards
constexpr int connectTickMs = 20;
constexpr int pageTickMs = 50;
constexpr int watchTickMs = 500;

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
      link_(clock, limits),
      poll_(clock),
      changes_(clock, poll_),
      timerConnect_(clock),
      timerPage_(clock),
      timerWatch_(clock)
{
    createLayout();
    wire();
    showPage(controlPage);
    display();
}

void DeviceControl::wire()
{
    allOffBar.cmdAllOff.onClick = [this] { cmdAllOffClick(); };
    controlPage.onChange = [this](int channel, const ChannelChange& change) { this->change(channel, change); };
    changes_.onSent = [this](const QByteArray& line) { lineSent(line); };
    controlPage.cmdGoToConnect.onClick = [this] {
        ShowConnectPage();
        if (onConnectPage)
            onConnectPage();
    };
    connectPage.onConnect = [this](const QString& resourceName, const QStringList& choices) {
        connectTo(resourceName, choices);
    };
    connectPage.cmdCancel.onClick = connectPage.cmdDisconnect.onClick = [this] { cmdDisconnectClick(); };
    timerConnect_.setInterval(connectTickMs);
    timerConnect_.onTick = [this] { connectTick(); };
    timerPage_.setInterval(pageTickMs);
    timerPage_.onTick = [this] { pageTick(); };
    timerWatch_.setInterval(watchTickMs);
    timerWatch_.onTick = [this] { watchTick(); };
}

void DeviceControl::createLayout()
{
    QFont font = lblLink.font();
    font.setBold(true);
    lblLink.setFont(font);

    auto* stack = new QVBoxLayout(this);
    stack->setContentsMargins(5, 5, 5, 5);
    stack->setSpacing(6);
    stack->setSizeConstraint(QLayout::SetNoConstraint);
    stack->addWidget(&lblLink);
    stack->addWidget(&controlPage, 1);
    stack->addWidget(&connectPage, 1);
    const int lines = twips(designLines * fontMetrics().lineSpacing());
    resizeTwips(designWidthTwips, std::max(designHeightTwips, lines));
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
    if (isSent)
        lineSent(line);
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
    restartChannels();
    unanswerable_ = false;
    allOffFailed_ = false;
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
