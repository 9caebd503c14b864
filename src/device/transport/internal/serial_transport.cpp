// SPDX-License-Identifier: GPL-3.0-or-later
#include "serial_transport.h"

#include <QDeadlineTimer>

namespace orb {

namespace {

/// What an instrument that reads nothing may leave unsent, in bytes: over a minute of the slowest line.
constexpr qint64 mostUnsent = 64 * 1024;

LinkError openError(QSerialPort::SerialPortError error)
{
    switch (error) {
    case QSerialPort::DeviceNotFoundError:
        return LinkError::NoDevice;
    case QSerialPort::PermissionError:
        return LinkError::DeviceDenied;
    default:
        return LinkError::Broken;
    }
}

} // namespace

SerialTransport::SerialTransport(const SerialAddress& address, const SerialSettings& settings)
{
    port_.setPortName(address.device);
    port_.setBaudRate(settings.baudRate);
    port_.setDataBits(settings.dataBits);
    port_.setParity(settings.parity);
    port_.setStopBits(settings.stopBits);
    port_.setFlowControl(settings.flowControl);
}

/// A serial line opens at once.
void SerialTransport::begin()
{
    open(0);
}

bool SerialTransport::open(int)
{
    if (!port_.open(QIODevice::ReadWrite)) {
        fail(openError(port_.error()), port_.errorString());
        return false;
    }
    port_.clear(); // what came before belongs to nobody here
    state_ = State::Open;
    return true;
}

void SerialTransport::close()
{
    port_.close();
    state_ = State::Closed;
    error_ = LinkError::None;
    errorText_.clear();
}

void SerialTransport::fail(LinkError error, const QString& text)
{
    port_.close();
    state_ = State::Closed;
    error_ = error;
    errorText_ = text;
}

/// A wait that ends without a byte is an error of the port too, but no break of the line.
bool SerialTransport::isBroken() const
{
    const auto error = port_.error();
    return error == QSerialPort::ResourceError || error == QSerialPort::ReadError || error == QSerialPort::WriteError;
}

Transport::State SerialTransport::state()
{
    if (state_ == State::Open && isBroken() && port_.bytesAvailable() == 0)
        fail(LinkError::Broken, port_.errorString());
    return state_;
}

bool SerialTransport::write(const QByteArray& bytes)
{
    if (state() != State::Open)
        return false;
    if (port_.bytesToWrite() + bytes.size() > mostUnsent) {
        fail(LinkError::Broken, QStringLiteral("the instrument takes no more commands"));
        return false;
    }
    const bool taken = port_.write(bytes) == bytes.size();
    port_.flush();
    return taken;
}

bool SerialTransport::flush(int limitMs)
{
    const QDeadlineTimer deadline(limitMs);
    while (state() == State::Open && port_.bytesToWrite() > 0)
        if (!port_.waitForBytesWritten(static_cast<int>(deadline.remainingTime())))
            break;
    return state() == State::Open && port_.bytesToWrite() == 0;
}

/// The port reads in an event loop or in a wait, and none of the first may be running.
QByteArray SerialTransport::read()
{
    if (state() != State::Open)
        return {};
    port_.flush();
    if (port_.bytesAvailable() == 0)
        port_.waitForReadyRead(0);
    return port_.read(longestRead);
}

bool SerialTransport::waitReadable(int limitMs)
{
    if (state() != State::Open)
        return false;
    return port_.bytesAvailable() > 0 || port_.waitForReadyRead(limitMs) || isBroken();
}

} // namespace orb
