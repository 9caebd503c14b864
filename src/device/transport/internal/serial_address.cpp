// SPDX-License-Identifier: GPL-3.0-or-later
#include "serial_address.h"

#include <QRegularExpression>

namespace orb {

namespace {

constexpr qsizetype longestDevice = 200;

/// The line that a number means in a resource name, counted from 1.
QString numberedDevice(int number)
{
#ifdef Q_OS_WIN
    return QStringLiteral("COM%1").arg(number);
#else
    return QStringLiteral("/dev/ttyS%1").arg(number - 1);
#endif
}

std::optional<SerialAddress> readDevice(const QString& text)
{
    static const QRegularExpression path(QStringLiteral("^(/[^/\\s:]+)+$"));
    static const QRegularExpression terminal(QStringLiteral("^tty\\w+$"));
    static const QRegularExpression port(QStringLiteral("^com(\\d{1,3})$"), QRegularExpression::CaseInsensitiveOption);
    if (text.size() > longestDevice)
        return std::nullopt;
    if (path.match(text).hasMatch())
        return SerialAddress{text};
    if (terminal.match(text).hasMatch())
        return SerialAddress{QStringLiteral("/dev/") + text};
    if (const auto match = port.match(text); match.hasMatch())
        return SerialAddress{QStringLiteral("COM") + match.captured(1)};
    return std::nullopt;
}

} // namespace

QString SerialAddress::resourceName() const
{
    return QStringLiteral("ASRL%1::INSTR").arg(device);
}

std::optional<SerialAddress> readSerialAddress(const QString& typed)
{
    static const QRegularExpression resource(QStringLiteral("^ASRL(.+?)(::INSTR)?$"),
                                             QRegularExpression::CaseInsensitiveOption);
    const QString text = typed.trimmed();
    const auto match = resource.match(text);
    if (!match.hasMatch())
        return readDevice(text);
    bool isNumber = false;
    const int number = match.captured(1).toInt(&isNumber);
    if (!isNumber)
        return readDevice(match.captured(1));
    constexpr int mostLines = 256;
    return number >= 1 && number <= mostLines ? std::optional(SerialAddress{numberedDevice(number)}) : std::nullopt;
}

} // namespace orb
