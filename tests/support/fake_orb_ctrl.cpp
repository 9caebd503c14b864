// SPDX-License-Identifier: GPL-3.0-or-later
#include "fake_orb_ctrl.h"

namespace orb {

void FakeORBCtrl::write(const QString& line)
{
    if (journal_)
        journal_->write(line);
}

void FakeORBCtrl::called(const char* member, const std::function<void()>& then)
{
    calls.push_back(QString::fromLatin1(member));
    write(QStringLiteral("call ") + calls.back());
    if (then)
        then();
}

void FakeORBCtrl::SendCommand(const QString& command)
{
    write(QStringLiteral("send ") + command);
    sent.push_back(command);
    reply_ = onCommand ? onCommand(command) : QString();
}

QString FakeORBCtrl::Reply()
{
    QString reply = reply_;
    if (!replies.empty()) {
        reply = replies.front();
        replies.pop_front();
    }
    write(QStringLiteral("read Reply \"%1\"").arg(reply));
    return reply;
}

bool FakeORBCtrl::IsConnected()
{
    bool read = connected;
    if (!connectedReads.empty()) {
        read = connectedReads.front();
        connectedReads.pop_front();
    }
    write(read ? QStringLiteral("read IsConnected True") : QStringLiteral("read IsConnected False"));
    return read;
}

std::int16_t FakeORBCtrl::LinkType()
{
    write(QStringLiteral("read LinkType %1").arg(linkType));
    return linkType;
}

std::int16_t FakeORBCtrl::ChannelCount()
{
    write(QStringLiteral("read ChannelCount %1").arg(channelCount));
    return channelCount;
}

bool FakeORBCtrl::GrabScreen()
{
    called("GrabScreen");
    return screenGrabbed;
}

} // namespace orb
