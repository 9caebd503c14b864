// SPDX-License-Identifier: GPL-3.0-or-later
#include "device_control.h"
#include "guarded.h"
#include "is_query.h"

#include <utility>

namespace orb {

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
    // Qt passes the focus of a control that gets hidden to another one, where the next key would have its effect.
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
    pageLeft();
    connectPage.abandonSearch();
    if (Session* session = link_.session(); session != nullptr && poll_.isAwaiting())
        session->awaitAnswer(Requester::Control, replyWaitMs);
    poll_.abandon();
}

bool DeviceControl::isOnScreen() const
{
    return isVisible() && !window()->isMinimized();
}

bool DeviceControl::isControlPageShown() const
{
    return active_ && isOnScreen() && controlPage.isVisible();
}

/// Reads the link once and sends one query at most, so that a tick ends however much an instrument sends.
void DeviceControl::pageTick()
{
    if (!isControlPageShown())
        pageLeft();
    else if (link_.isUp())
        pollChannels(*link_.session());
    if (isOnScreen() && connectPage.isVisible())
        connectPage.stepSearch(clock_.elapsed());
    else
        connectPage.abandonSearch();
    if (isOnScreen())
        display();
}

void DeviceControl::pollChannels(Session& session)
{
    isPolling_ = true;
    const bool areReadoutsNew = poll_.poll(session);
    if (const int number = poll_.numberOf(ChannelQueryKind::Readings); number > inputsNumber_) {
        inputsNumber_ = number;
        inputs_.polled(poll_.readouts());
    }
    if (changes_.step(session) || areReadoutsNew)
        displayChannels();
}

/// What was confirmed on the Control page and not sent is dropped, and what it knows ages.
void DeviceControl::pageLeft()
{
    if (!std::exchange(isPolling_, false))
        return;
    changes_.abandon();
    inputs_.left();
    displayBar();
}

/// Reads the link and sends nothing, so that the bar shows a link that is lost on any page.
void DeviceControl::watchTick()
{
    if (timerPage_.enabled() && isOnScreen())
        return; // the page's own tick does it
    link_.isUp();
    display();
}

void DeviceControl::change(int channel, const ChannelChange& change)
{
    Session* session = link_.session();
    if (session == nullptr)
        return;
    changes_.request(*session, channel, change);
    displayChannels();
}

void DeviceControl::cmdAllOffClick()
{
    Session* session = link_.session();
    allOffFailed_ = session == nullptr || !session->send(Requester::Control, allOffCommand());
    if (!allOffFailed_)
        lineSent(allOffCommand());
    poll_.hurry();
    link_.isUp();
    display();
    displayBar();
    if (allOffFailed_)
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
    const bool isUp = link_.stage() == InstrumentLink::Stage::Up;
    timerWatch_.setEnabled(isUp);
    lblLink.display(shortStatus(link_));
    connectPage.display(link_, resourceName_);
    if (!isUp)
        restartChannels();
    displayChannels();
}

void DeviceControl::restartChannels()
{
    poll_.restart(link_.channelCount());
    changes_.restart(link_.channelCount());
    inputs_.restart(link_.channelCount());
}

void DeviceControl::displayChannels()
{
    controlPage.display(poll_.readouts(), changes_, connectPage.lblStatus.caption());
    displayBar();
}

/// Answers to queries that went out before the line don't show what it did.
void DeviceControl::lineSent(const QByteArray& line)
{
    if (isQuery(line) && !line.contains(';'))
        return;
    inputs_.sent(line);
    inputsNumber_ = poll_.sentCount();
    displayBar();
}

void DeviceControl::displayBar()
{
    if (link_.stage() == InstrumentLink::Stage::Up) {
        const LinkKind* kind = kindOf(kinds_, resourceName_);
        const QString title = kind != nullptr ? kind->title.section(QLatin1Char(' '), 0, 0) : QString();
        const StatusLine inputs =
            allOffFailed_ ? StatusLine{QStringLiteral("OFF not sent"), Tone::Bad} : inputs_.status();
        return allOffBar.display(true, title, inputs, inputs_.sentence());
    }
    const bool isLost = link_.stage() == InstrumentLink::Stage::Down && link_.end() == InstrumentLink::End::Lost;
    const QString state = link_.isConnecting() ? QStringLiteral("Connecting") : QStringLiteral("Not connected");
    const QString lost = allOffFailed_ ? QStringLiteral("OFF not sent")
                         : isLost      ? QStringLiteral("Link lost")
                                       : QString();
    allOffBar.display(false, state, {lost, Tone::Bad}, lost);
}

} // namespace orb
