// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "transport.h"

#include <memory>

namespace orb {

/// A link over USB, through the device file of the kernel's USBTMC driver. Such a file is read only when an answer is
/// due, since a read without one makes the instrument report an error; and a read blocks until the answer has come or
/// the driver's time is up. A thread of its own does that.
class UsbtmcTransport final : public Transport {
public:
    explicit UsbtmcTransport(QString deviceFile);
    ~UsbtmcTransport() override;
    UsbtmcTransport(const UsbtmcTransport&) = delete;
    UsbtmcTransport& operator=(const UsbtmcTransport&) = delete;

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
    struct Worker;

    void fail(LinkError error, int systemError);

    QString deviceFile_;
    std::shared_ptr<Worker> worker_; // shared with the thread, which may outlive a link in a blocked read
    State state_ = State::Closed;
    LinkError error_ = LinkError::None;
    QString errorText_;
};

} // namespace orb
