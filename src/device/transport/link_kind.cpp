// SPDX-License-Identifier: GPL-3.0-or-later
#include "link_kind.h"

#include "mdns_search.h"
#include "serial_transport.h"
#include "sim_transport.h"
#include "tcp_transport.h"
#include "usbtmc_address.h"
#include "usbtmc_transport.h"

#include <QSerialPortInfo>

#include <algorithm>

namespace orb {

namespace {

LinkKind simulatedKind(Clock& clock)
{
    const auto time = [&clock]() -> std::chrono::nanoseconds { return std::chrono::milliseconds(clock.elapsed()); };
    const auto instrument = std::make_shared<SimulatedInstrument>(defaultConfiguration(), time);
    return {
        .title = QStringLiteral("Simulated instrument"),
        .linkType = 0,
        .example = {},
        .resourceName = [](const QString& typed) -> std::optional<QString> {
            const bool own = typed.isEmpty() || typed.compare(SimTransport::resourceName(), Qt::CaseInsensitive) == 0;
            return own ? std::optional(SimTransport::resourceName()) : std::nullopt;
        },
        .typed = [](const QString&) { return QString(); },
        .remoteName = [](const QString&) { return QStringLiteral("the simulated instrument"); },
        .transport = [instrument](const QString&,
                                  const QStringList&) { return std::make_unique<SimTransport>(instrument); },
    };
}

LinkKind tcpKind()
{
    const auto shown = [](const QString& resourceName) {
        const auto address = readTcpAddress(resourceName);
        return address ? address->shown() : QString();
    };
    return {
        .title = QStringLiteral("Network (TCP)"),
        .linkType = 2,
        .example = QStringLiteral("192.168.0.7, load-3.lab:5025 or [fe80::1]:5025; without a port it is 5025"),
        .resourceName = [](const QString& typed) -> std::optional<QString> {
            const auto address = readTcpAddress(typed);
            return address ? std::optional(address->resourceName()) : std::nullopt;
        },
        .typed = shown,
        .remoteName = shown,
        .transport = [](const QString& resourceName, const QStringList&) -> std::unique_ptr<Transport> {
            return std::make_unique<TcpTransport>(readTcpAddress(resourceName).value_or(TcpAddress{}));
        },
        .search = searchByMdns,
    };
}

const std::vector<LinkOption>& serialOptions()
{
    const auto words = [](std::initializer_list<const char*> texts) {
        QStringList list;
        for (const char* text : texts)
            list += QString::fromLatin1(text);
        return list;
    };
    static const std::vector<LinkOption> options{
        {QStringLiteral("Baud rate"),
         words({"1200", "2400", "4800", "9600", "19200", "38400", "57600", "115200", "230400", "460800", "921600"}), 3},
        {QStringLiteral("Data bits"), words({"7", "8"}), 1},
        {QStringLiteral("Parity"), words({"None", "Even", "Odd"}), 0},
        {QStringLiteral("Stop bits"), words({"1", "2"}), 0},
        {QStringLiteral("Flow control"), words({"None", "RTS/CTS", "XON/XOFF"}), 0}};
    return options;
}

SerialSettings serialSettings(const QStringList& choices)
{
    constexpr std::array parities{QSerialPort::NoParity, QSerialPort::EvenParity, QSerialPort::OddParity};
    constexpr std::array controls{QSerialPort::NoFlowControl, QSerialPort::HardwareControl,
                                  QSerialPort::SoftwareControl};
    const auto& options = serialOptions();
    const auto index = [&](std::size_t option) { return static_cast<std::size_t>(choiceOf(options, option, choices)); };
    return {.baudRate = options[0].choices[static_cast<qsizetype>(index(0))].toInt(),
            .dataBits = index(1) == 0 ? QSerialPort::Data7 : QSerialPort::Data8,
            .parity = parities[index(2)],
            .stopBits = index(3) == 0 ? QSerialPort::OneStop : QSerialPort::TwoStop,
            .flowControl = controls[index(4)]};
}

QStringList presentSerialLines()
{
    QStringList lines;
    for (const QSerialPortInfo& port : QSerialPortInfo::availablePorts())
        lines += port.systemLocation();
    return lines;
}

LinkKind serialKind()
{
    const auto device = [](const QString& resourceName) {
        return readSerialAddress(resourceName).value_or(SerialAddress{}).device;
    };
    return {
        .title = QStringLiteral("Serial line"),
        .linkType = 1,
        .example = QStringLiteral("/dev/ttyUSB0 or /dev/pts/3, or COM3 on Windows"),
        .resourceName = [](const QString& typed) -> std::optional<QString> {
            const auto address = readSerialAddress(typed);
            return address ? std::optional(address->resourceName()) : std::nullopt;
        },
        .typed = device,
        .remoteName = device,
        .transport = [](const QString& resourceName, const QStringList& choices) -> std::unique_ptr<Transport> {
            return std::make_unique<SerialTransport>(readSerialAddress(resourceName).value_or(SerialAddress{}),
                                                     serialSettings(choices));
        },
        .options = serialOptions(),
        .found = presentSerialLines,
    };
}

#ifdef Q_OS_LINUX
LinkKind usbKind()
{
    return {
        .title = QStringLiteral("USB (USBTMC)"),
        .linkType = 3,
        .example = QStringLiteral("/dev/usbtmc0 or USB0::0x1234::0x5678::SERIAL::INSTR"),
        .resourceName = [](const QString& typed) { return UsbtmcDevices().resourceName(typed); },
        .typed = [](const QString& resourceName) { return resourceName; },
        .remoteName = [](const QString& resourceName) { return resourceName; },
        .transport = [](const QString& resourceName, const QStringList&) -> std::unique_ptr<Transport> {
            return std::make_unique<UsbtmcTransport>(UsbtmcDevices().deviceFile(resourceName));
        },
        .found =
            [] {
                QStringList names;
                const UsbtmcDevices devices;
                for (const QString& file : devices.present())
                    names += devices.resourceName(file).value_or(file);
                return names;
            },
    };
}
#endif

} // namespace

std::vector<LinkKind> standardLinkKinds(Clock& clock)
{
    std::vector<LinkKind> kinds{simulatedKind(clock), tcpKind(), serialKind()};
#ifdef Q_OS_LINUX
    kinds.push_back(usbKind());
#endif
    return kinds;
}

int choiceOf(const std::vector<LinkOption>& options, std::size_t option, const QStringList& choices)
{
    const auto index = static_cast<qsizetype>(option);
    const qsizetype choice = index < choices.size() ? options[option].choices.indexOf(choices[index]) : -1;
    return choice < 0 ? options[option].preset : static_cast<int>(choice);
}

const LinkKind* kindOf(const std::vector<LinkKind>& kinds, const QString& resourceName)
{
    const auto owns = [&](const LinkKind& kind) { return kind.resourceName(resourceName) == resourceName; };
    const auto found = std::ranges::find_if(kinds, owns);
    return found == kinds.end() || resourceName.isEmpty() ? nullptr : &*found;
}

} // namespace orb
