// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "serial_address.h"
#include "transport.h"

#include <QSerialPort>

namespace orb {

/// How a serial line is run; both ends must agree.
struct SerialSettings {
    qint32 baudRate = QSerialPort::Baud9600;
    QSerialPort::DataBits dataBits = QSerialPort::Data8;
    QSerialPort::Parity parity = QSerialPort::NoParity;
    QSerialPort::StopBits stopBits = QSerialPort::OneStop;
    QSerialPort::FlowControl flowControl = QSerialPort::NoFlowControl;
};

/// A link over a serial line, or over a pseudo terminal that acts as one. No other program may open the line meanwhile.
class SerialTransport final : public Transport {
public:
    SerialTransport(const SerialAddress& address, const SerialSettings& settings);

    void begin() override;
    bool open(int limitMs) override;
    void close() override;
    State state() override;
    LinkError error() const override { return error_; }
    QString errorText() const override { return errorText_; }
    bool write(const QByteArray& bytes) override;
    bool flush(int limitMs) override;
    QByteArray read() override;
    bool waitReadable(int limitMs) override;

private:
    void fail(LinkError error, const QString& text);
    bool isBroken() const;

    QSerialPort port_;
    State state_ = State::Closed;
    LinkError error_ = LinkError::None;
    QString errorText_;
};

} // namespace orb
