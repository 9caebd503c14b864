// SPDX-License-Identifier: GPL-3.0-or-later
#include "link_words.h"

namespace orb {

namespace {

constexpr qsizetype longestName = 40;

/// A limit as the operator reads it.
QString seconds(int ms)
{
    return ms == 1000 ? QStringLiteral("1 second") : QStringLiteral("%1 seconds").arg(ms / 1000.0);
}

/// "The simulated instrument" at the head of a sentence; the name of a host stays as it is written.
QString asSentence(QString text)
{
    if (text.startsWith(QStringLiteral("the ")))
        text[0] = QLatin1Char('T');
    return text;
}

QString broken(const QString& words)
{
    return words.isEmpty() ? QStringLiteral(".") : QStringLiteral(": %1.").arg(words);
}

/// Why the transport did not open, or closed before the peer had said what it is.
QString failedText(const InstrumentLink& connection, const QString& peer)
{
    switch (connection.error()) {
    case LinkError::HostNotFound:
        return QStringLiteral("%1 was not found: no host has this name. Check it, or give the address in numbers.")
            .arg(peer);
    case LinkError::Refused:
        return QStringLiteral("%1 refused the connection. The host is there, but nothing takes connections at this "
                              "port.")
            .arg(peer);
    case LinkError::Unreachable:
        return QStringLiteral("%1 can't be reached from this network%2").arg(peer, broken(connection.errorText()));
    case LinkError::TimedOut:
        return QStringLiteral("%1 did not answer within %2. Is it switched on, and is this its address?")
            .arg(peer, seconds(connection.limits().connect));
    case LinkError::ClosedRemotely:
        return QStringLiteral("%1 closed the connection before it had said what it is.").arg(peer);
    case LinkError::None:
    case LinkError::BadAddress:
    case LinkError::Broken:
        break;
    }
    return QStringLiteral("The link to %1 failed%2").arg(peer, broken(connection.errorText()));
}

QString lostText(const InstrumentLink& connection, const QString& peer)
{
    if (connection.error() == LinkError::ClosedRemotely)
        return QStringLiteral("%1 closed the link.").arg(peer);
    return QStringLiteral("The link to %1 broke%2").arg(peer, broken(connection.errorText()));
}

StatusLine endStatus(const InstrumentLink& connection, const QString& peer)
{
    switch (connection.end()) {
    case InstrumentLink::End::Never:
        return {QStringLiteral("Not connected. Choose the link and press Connect."), Tone::Neutral};
    case InstrumentLink::End::Disconnected:
        return {QStringLiteral("Disconnected."), Tone::Neutral};
    case InstrumentLink::End::Cancelled:
        return {QStringLiteral("Connecting was cancelled."), Tone::Neutral};
    case InstrumentLink::End::Failed:
        return {failedText(connection, peer), Tone::Bad};
    case InstrumentLink::End::Silent:
        return {QStringLiteral("%1 took the connection, but did not answer *IDN? within %2. Is it an instrument?")
                    .arg(peer, seconds(connection.limits().identify)),
                Tone::Bad};
    case InstrumentLink::End::NoInstrument:
        if (connection.rejectedText().isEmpty())
            return {QStringLiteral("%1 answered, but not as an instrument does.").arg(peer), Tone::Bad};
        // The last argument alone may hold anything, a %1 among it.
        return {QStringLiteral("%1 answered, but not as an instrument does. It said: \"%2\"")
                    .arg(peer, connection.rejectedText()),
                Tone::Bad};
    case InstrumentLink::End::Lost:
        return {lostText(connection, peer), Tone::Bad};
    }
    return {};
}

QString shortDown(InstrumentLink::End end)
{
    switch (end) {
    case InstrumentLink::End::Failed:
    case InstrumentLink::End::Silent:
    case InstrumentLink::End::NoInstrument:
        return QStringLiteral("Not connected: the last attempt failed");
    case InstrumentLink::End::Lost:
        return QStringLiteral("Not connected: the link was lost");
    case InstrumentLink::End::Never:
    case InstrumentLink::End::Disconnected:
    case InstrumentLink::End::Cancelled:
        break;
    }
    return QStringLiteral("Not connected");
}

} // namespace

StatusLine shortStatus(const InstrumentLink& connection)
{
    if (connection.isConnecting())
        return {QStringLiteral("Connecting..."), Tone::Busy};
    if (connection.stage() == InstrumentLink::Stage::Down) {
        const bool isLost = connection.end() == InstrumentLink::End::Lost;
        return {shortDown(connection.end()), isLost ? Tone::Bad : Tone::Neutral};
    }
    const Identity& identity = connection.identity();
    const QString name = shownText((identity.maker + QLatin1Char(' ') + identity.model).toUtf8(), longestName);
    const int channels = connection.channelCount();
    return {channels == 1 ? QStringLiteral("%1, 1 channel").arg(name)
                          : QStringLiteral("%1, %2 channels").arg(name, QString::number(channels)),
            Tone::Good};
}

StatusLine linkStatus(const InstrumentLink& connection, const QString& peer)
{
    StatusLine status;
    switch (connection.stage()) {
    case InstrumentLink::Stage::Down:
        status = endStatus(connection, peer);
        break;
    case InstrumentLink::Stage::Connecting:
        status = {QStringLiteral("Connecting to %1...").arg(peer), Tone::Busy};
        break;
    case InstrumentLink::Stage::Identifying:
        status = {QStringLiteral("%1 took the connection. Asking what it is...").arg(peer), Tone::Busy};
        break;
    case InstrumentLink::Stage::Sizing:
        status = {QStringLiteral("%1 is an instrument. Asking for its channels...").arg(peer), Tone::Busy};
        break;
    case InstrumentLink::Stage::Up:
        status = {QStringLiteral("Connected to %1.").arg(peer), Tone::Good};
        break;
    }
    status.text = asSentence(status.text);
    return status;
}

} // namespace orb
