// SPDX-License-Identifier: GPL-3.0-or-later
#include "connection_supervisor.h"

namespace orb {

namespace {
constexpr int watchIntervalMs = 1200;
const QString title = QStringLiteral("ZN ORB Device");
} // namespace

ConnectionSupervisor::ConnectionSupervisor(Clock& clock, const Paths& paths, ORBCtrl& CORB, Form& form,
                                           PictureButton& pageControl, PictureButton& pageDisplay,
                                           PictureButton& pageCommand)
    : TimerChkConnected(clock),
      paths_(paths),
      CORB_(CORB),
      form_(form),
      pageControl_(pageControl),
      pageDisplay_(pageDisplay),
      pageCommand_(pageCommand)
{
    TimerChkConnected.onTick = [this] { TimerChkConnectedTimer(); };
    TimerChkConnected.setInterval(watchIntervalMs);
    TimerChkConnected.setEnabled(true);
}

QString ConnectionSupervisor::disconnectedTitle()
{
    return title + QStringLiteral("[DisConnected]");
}

void ConnectionSupervisor::TimerChkConnectedTimer()
{
    if (CORB_.IsConnected())
        showConnected();
    else
        showDisconnected();
    // Each button has a read of its own: the link may change between them.
    pageControl_.setEnabled(CORB_.IsConnected());
    pageDisplay_.setEnabled(CORB_.IsConnected());
    pageCommand_.setEnabled(CORB_.IsConnected());
}

void ConnectionSupervisor::showConnected()
{
    TimerChkConnected.setEnabled(false);
    pageControl_.setPicture(paths_.inApplication(QStringLiteral("\\ICON\\A3RMTCTRL.jpg")));
    form_.setCaption(title + QStringLiteral("[Connected]"));
}

void ConnectionSupervisor::showDisconnected()
{
    pageControl_.setPicture(paths_.inApplication(QStringLiteral("\\ICON\\A3RMTCTRLSTOP.JPG")));
    pageControl_.setEnabled(false);
    form_.setCaption(disconnectedTitle());
}

bool askToReconnect(ORBCtrl& CORB, Dialogs& dialogs)
{
    if (!CORB.IsConnected())
        return true;
    const auto answer =
        dialogs.message(QStringLiteral("Do you want to reconnect ORB device?"), Icon::None, Buttons::YesNo);
    if (answer == Answer::No)
        return false;
    CORB.Reconnect();
    return true;
}

} // namespace orb
