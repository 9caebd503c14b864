// SPDX-License-Identifier: GPL-3.0-or-later
#include "link_status_text.h"

namespace orb {

namespace {

constexpr qsizetype longestName = 40;

/// A limit as the operator reads it.
QString seconds(int ms)
{
    return ms == 1000 ? QStringLiteral("1 second") : QStringLiteral("%1 seconds").arg(ms / 1000.0);
}

/// The end of a sentence, with the system's reason where there is one.
QString becauseOf(const QString& reason)
{
    return reason.isEmpty() ? QStringLiteral(".") : QStringLiteral(": %1.").arg(reason);
}

/// Why the transport did not open, or closed before the instrument was identified.
QString failedText(const InstrumentLink& link, const QString& name)
{
    switch (link.error()) {
    case LinkError::HostNotFound:
        return QStringLiteral("%1 was not found: no host has this name. Check it, or give the address in numbers.")
            .arg(name);
    case LinkError::Refused:
        return QStringLiteral("%1 refused the connection. The host is there, but nothing takes connections at this "
                              "port.")
            .arg(name);
    case LinkError::Unreachable:
        return QStringLiteral("%1 can't be reached from this network%2").arg(name, becauseOf(link.errorText()));
    case LinkError::TimedOut:
        return QStringLiteral("%1 did not answer within %2. Is it switched on, and is this its address?")
            .arg(name, seconds(link.limits().connect));
    case LinkError::NoDevice:
        return QStringLiteral("There is no %1 on this machine. Is the cable plugged in?").arg(name);
    case LinkError::DeviceDenied:
        return QStringLiteral(
                   "%1 can't be opened. Another program may use it, or your user may not: on Linux the group "
                   "that owns it, often \"dialout\", must have you as a member.")
            .arg(name);
    case LinkError::ClosedRemotely:
        return QStringLiteral("%1 closed the connection before it identified itself.").arg(name);
    case LinkError::None:
    case LinkError::BadAddress:
    case LinkError::Broken:
        break;
    }
    return QStringLiteral("The link to %1 failed%2").arg(name, becauseOf(link.errorText()));
}

QString lostText(const InstrumentLink& link, const QString& name)
{
    if (link.error() == LinkError::ClosedRemotely)
        return QStringLiteral("%1 closed the link.").arg(name);
    return QStringLiteral("The link to %1 broke%2").arg(name, becauseOf(link.errorText()));
}

StatusLine endStatus(const InstrumentLink& link, const QString& name)
{
    switch (link.end()) {
    case InstrumentLink::End::Never:
        return {QStringLiteral("Not connected. Choose the link and press Connect."), Tone::Neutral};
    case InstrumentLink::End::Disconnected:
        return {QStringLiteral("Disconnected."), Tone::Neutral};
    case InstrumentLink::End::Cancelled:
        return {QStringLiteral("Connecting was cancelled."), Tone::Neutral};
    case InstrumentLink::End::Failed:
        return {failedText(link, name), Tone::Bad};
    case InstrumentLink::End::Silent:
        return {QStringLiteral("%1 took the connection, but did not answer *IDN? within %2. Is it an instrument?")
                    .arg(name, seconds(link.limits().identify)),
                Tone::Bad};
    case InstrumentLink::End::NoInstrument:
        return {QStringLiteral("%1 answered, but not as an instrument does. It said: \"%2\"")
                    .arg(name, link.rejectedText()),
                Tone::Bad};
    case InstrumentLink::End::Lost:
        return {lostText(link, name), Tone::Bad};
    }
    return {};
}

StatusLine shortEndStatus(InstrumentLink::End end)
{
    using End = InstrumentLink::End;
    if (end == End::Lost)
        return {QStringLiteral("Not connected: the link was lost"), Tone::Bad};
    const bool isFailed = end == End::Failed || end == End::Silent || end == End::NoInstrument;
    return {isFailed ? QStringLiteral("Not connected: the last attempt failed") : QStringLiteral("Not connected"),
            Tone::Neutral};
}

StatusLine stageStatus(const InstrumentLink& link, const QString& name)
{
    switch (link.stage()) {
    case InstrumentLink::Stage::Down:
        break;
    case InstrumentLink::Stage::Connecting:
        return {QStringLiteral("Connecting to %1...").arg(name), Tone::Busy};
    case InstrumentLink::Stage::Identifying:
        return {QStringLiteral("%1 took the connection. Asking what it is...").arg(name), Tone::Busy};
    case InstrumentLink::Stage::Sizing:
        return {QStringLiteral("%1 is an instrument. Asking for its channels...").arg(name), Tone::Busy};
    case InstrumentLink::Stage::Up:
        return {QStringLiteral("Connected to %1.").arg(name), Tone::Good};
    }
    return endStatus(link, name);
}

} // namespace

StatusLine shortStatus(const InstrumentLink& link)
{
    if (link.isConnecting())
        return {QStringLiteral("Connecting..."), Tone::Busy};
    if (link.stage() == InstrumentLink::Stage::Down)
        return shortEndStatus(link.end());
    const Identity& identity = link.identity();
    const QString name = shownText((identity.maker + QLatin1Char(' ') + identity.model).toUtf8(), longestName);
    const int channels = link.channelCount();
    return {channels == 1 ? QStringLiteral("%1, 1 channel").arg(name)
                          : QStringLiteral("%1, %2 channels").arg(name, QString::number(channels)),
            Tone::Good};
}

/// "the simulated instrument" gets a capital at the beginning of a sentence; the name of a host stays as it is.
StatusLine linkStatus(const InstrumentLink& link, const QString& name)
{
    StatusLine status = stageStatus(link, name);
    if (status.text.startsWith(QStringLiteral("the ")))
        status.text[0] = QLatin1Char('T');
    return status;
}

} // namespace orb
