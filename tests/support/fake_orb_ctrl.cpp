// SPDX-License-Identifier: GPL-3.0-or-later
#include "fake_orb_ctrl.h"

namespace orb {

void FakeORBCtrl::SendCommand(const QString& command)
{
    sent.push_back(command);
    reply_ = onCommand ? onCommand(command) : QString();
}

QString FakeORBCtrl::Reply()
{
    if (replies.empty())
        return reply_;
    const QString reply = replies.front();
    replies.pop_front();
    return reply;
}

bool FakeORBCtrl::IsConnected()
{
    if (connectedReads.empty())
        return connected;
    const bool read = connectedReads.front();
    connectedReads.pop_front();
    return read;
}

void FakeORBCtrl::Reconnect()
{
    called("Reconnect");
    if (onReconnect)
        onReconnect();
}

bool FakeORBCtrl::GrabScreen()
{
    called("GrabScreen");
    return screenGrabbed;
}

} // namespace orb
