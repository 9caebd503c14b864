// SPDX-License-Identifier: GPL-3.0-or-later
#include "usbtmc_address.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>

namespace orb {

namespace {

/// The one line of a small file of the kernel; empty where there is none.
QString lineOf(const QString& path)
{
    constexpr qint64 longestLine = 200;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return QString::fromUtf8(file.read(longestLine)).trimmed();
}

bool isHexId(const QString& text)
{
    static const QRegularExpression id(QStringLiteral("^[0-9a-fA-F]{4}$"));
    return id.match(text).hasMatch();
}

QString nameOfIdentity(const QString& vendor, const QString& product, const QString& serialNumber)
{
    return QStringLiteral("USB0::0x%1::0x%2::%3::INSTR").arg(vendor.toUpper(), product.toUpper(), serialNumber);
}

/// "0x12AB" or "4779", as four hexadecimal digits; empty where it is none.
QString hexId(const QString& text)
{
    bool isNumber = false;
    const uint value = text.toUInt(&isNumber, 0);
    return isNumber && value <= 0xFFFF ? QStringLiteral("%1").arg(value, 4, 16, QLatin1Char('0')) : QString();
}

std::optional<QString> canonicalName(const QString& text)
{
    static const QRegularExpression resource(
        QStringLiteral("^USB\\d?::(\\w+)::(\\w+)::([^:\\s]{1,100})(::\\d{1,3})?(::INSTR)?$"),
        QRegularExpression::CaseInsensitiveOption);
    const auto match = resource.match(text);
    if (!match.hasMatch())
        return std::nullopt;
    const QString vendor = hexId(match.captured(1));
    const QString product = hexId(match.captured(2));
    if (vendor.isEmpty() || product.isEmpty())
        return std::nullopt;
    return nameOfIdentity(vendor, product, match.captured(3));
}

} // namespace

UsbtmcDevices::UsbtmcDevices(QString classFolder, QString deviceFolder)
    : classFolder_(std::move(classFolder)), deviceFolder_(std::move(deviceFolder))
{}

QStringList UsbtmcDevices::present() const
{
    QStringList files;
    const auto names = QDir(classFolder_).entryList({QStringLiteral("usbtmc*")}, QDir::Dirs | QDir::System, QDir::Name);
    for (const QString& name : names)
        files += deviceFolder_ + QLatin1Char('/') + name;
    return files;
}

/// The identity stands with the USB device; the class folder leads to one of its interfaces.
QString UsbtmcDevices::identityOf(const QString& name) const
{
    const QString device = classFolder_ + QLatin1Char('/') + name + QStringLiteral("/device/../");
    const QString vendor = lineOf(device + QStringLiteral("idVendor"));
    const QString product = lineOf(device + QStringLiteral("idProduct"));
    const QString serialNumber = lineOf(device + QStringLiteral("serial"));
    if (!isHexId(vendor) || !isHexId(product) || serialNumber.isEmpty())
        return {};
    return nameOfIdentity(vendor, product, serialNumber);
}

std::optional<QString> UsbtmcDevices::resourceName(const QString& typed) const
{
    static const QRegularExpression file(QStringLiteral("^(?:USB)?(?:.*/)?(usbtmc\\d{1,3})(?:::INSTR)?$"),
                                         QRegularExpression::CaseInsensitiveOption);
    const QString text = typed.trimmed();
    if (auto canonical = canonicalName(text))
        return canonical;
    const auto match = file.match(text);
    if (!match.hasMatch())
        return std::nullopt;
    const QString name = match.captured(1).toLower();
    const QString identity = identityOf(name);
    return identity.isEmpty() ? QStringLiteral("USB%1/%2::INSTR").arg(deviceFolder_, name) : identity;
}

QString UsbtmcDevices::deviceFile(const QString& resourceName) const
{
    for (const QString& file : present())
        if (this->resourceName(file) == resourceName)
            return file;
    return {};
}

} // namespace orb
