// SPDX-License-Identifier: GPL-3.0-or-later
#include "faulty_link.h"

#include "definite_length_block.h"
#include "faulty_instrument.h"
#include "scripted_line.h"
#include "serial_line.h"
#include "serial_transport.h"
#include "tcp_transport.h"
#include "test_bitmap.h"
#include "test_servers.h"
#include "usbtmc_transport.h"

#include <QFile>
#include <QTemporaryDir>

#include <algorithm>
#include <mutex>
#include <thread>

namespace orb {

namespace {

using End = DeliveryStep::End;

/// An instrument that a thread serves and a test asks.
struct SharedInstrument {
    explicit SharedInstrument(std::unique_ptr<FaultyInstrument> theInstrument) : instrument(std::move(theInstrument)) {}

    std::vector<DeliveryStep> receive(const std::string& message)
    {
        const std::scoped_lock lock(mutex);
        return instrument->receive(message);
    }
    std::string execute(const std::string& message)
    {
        const std::scoped_lock lock(mutex);
        return instrument->execute(message);
    }

    std::mutex mutex;
    std::unique_ptr<FaultyInstrument> instrument;
};

/// The instrument in the process, its link on virtual time.
class SimulatedLink final : public FaultyLink {
public:
    SimulatedLink(const std::string& script, VirtualClock& clock) : instrument_(script), line_(clock)
    {
        line_.onLine = [this](const QByteArray& message) { receive(message.toStdString()); };
    }

    std::unique_ptr<Transport> transport() override { return std::make_unique<ScriptedTransport>(line_); }
    void restore() override
    {
        line_.closesAt.reset();
        line_.openError = LinkError::None;
    }
    std::string execute(const std::string& message) override { return instrument_.execute(message); }

private:
    void receive(const std::string& message)
    {
        const auto& arrivals = line_.arrivals; // no answer overtakes another
        const qint64 last = arrivals.empty() ? 0 : arrivals.rbegin()->first - line_.clock.elapsed();
        int at = std::max(0, static_cast<int>(last));
        for (const DeliveryStep& step : instrument_.receive(message)) {
            at += static_cast<int>(step.wait.count());
            line_.say(QByteArray::fromStdString(step.bytes), at);
            if (step.end != End::None)
                line_.close(at);
            if (step.end == End::Refuse)
                line_.openError = LinkError::Refused;
        }
    }

    FaultyInstrument instrument_;
    ScriptedLine line_;
};

class TcpLink final : public FaultyLink {
public:
    TcpLink(const std::string& script, VirtualClock& clock) : server_(script), clock_(clock) {}

    std::unique_ptr<Transport> transport() override
    {
        return std::make_unique<PacedTransport>(
            std::make_unique<TcpTransport>(TcpAddress{QStringLiteral("127.0.0.1"), server_.port()}), clock_, pace);
    }
    std::string execute(const std::string& message) override { return server_.execute(message); }

private:
    ServedInstrument server_;
    VirtualClock& clock_;
};

/// A device file that is a link to the pseudo terminal of the day, so that it can be pulled and plugged in again.
class PluggedDevice {
public:
    explicit PluggedDevice(const std::shared_ptr<SharedInstrument>& instrument, cc_t readLimit = 0)
        : instrument_(instrument), readLimit_(readLimit)
    {
        plug();
    }
    ~PluggedDevice() { line_->unplug(); } // its thread uses `line_`
    PluggedDevice(const PluggedDevice&) = delete;
    PluggedDevice& operator=(const PluggedDevice&) = delete;

    QString path() const { return folder_.filePath(QStringLiteral("line")); }
    void plug()
    {
        if (line_)
            line_->unplug();
        line_ = std::make_unique<SerialLine>([this](const std::string& message) { return receive(message); });
        if (readLimit_ > 0)
            line_->limitReads(readLimit_);
        QFile::remove(path());
        QFile::link(line_->device(), path());
    }

private:
    std::string receive(const std::string& message)
    {
        for (const DeliveryStep& step : instrument_->receive(message)) {
            std::this_thread::sleep_for(step.wait);
            // The USB driver passes no part of a message when the device goes; a read of a pseudo terminal might.
            if (readLimit_ == 0 || step.end == End::None)
                line_->say(step.bytes);
            if (step.end != End::None)
                line_->hangUp();
        }
        return {};
    }

    std::shared_ptr<SharedInstrument> instrument_;
    cc_t readLimit_;
    QTemporaryDir folder_;
    std::unique_ptr<SerialLine> line_;
};

class SerialLink final : public FaultyLink {
public:
    SerialLink(const std::string& script, VirtualClock& clock)
        : instrument_(std::make_shared<SharedInstrument>(std::make_unique<FaultyInstrument>(script))),
          device_(instrument_),
          clock_(clock)
    {}

    std::unique_ptr<Transport> transport() override
    {
        return std::make_unique<PacedTransport>(
            std::make_unique<SerialTransport>(SerialAddress{device_.path()}, SerialSettings{}), clock_, pace);
    }
    void restore() override { device_.plug(); }
    std::string execute(const std::string& message) override { return instrument_->execute(message); }

private:
    std::shared_ptr<SharedInstrument> instrument_;
    PluggedDevice device_;
    VirtualClock& clock_;
};

/// Its blocks are so short that one read of the pseudo terminal has the whole answer, as one of the driver has.
class ShortBlockInstrument final : public FaultyInstrument {
public:
    using FaultyInstrument::FaultyInstrument;

protected:
    std::string answer(const std::string& message) override
    {
        if (message.starts_with(":HCOP"))
            return asBlock(testBitmap(4, 4)).toStdString();
        return message.starts_with(":MMEM:DATA?") ? "#15file\n" : FaultyInstrument::answer(message);
    }
};

class UsbtmcLink final : public FaultyLink {
public:
    UsbtmcLink(const std::string& script, VirtualClock& clock)
        : instrument_(std::make_shared<SharedInstrument>(std::make_unique<ShortBlockInstrument>(script))),
          device_(instrument_, 1),
          clock_(clock)
    {}

    std::unique_ptr<Transport> transport() override
    {
        return std::make_unique<PacedTransport>(std::make_unique<UsbtmcTransport>(device_.path()), clock_, pace);
    }
    void restore() override { device_.plug(); }
    std::string execute(const std::string& message) override { return instrument_->execute(message); }

private:
    std::shared_ptr<SharedInstrument> instrument_;
    PluggedDevice device_;
    VirtualClock& clock_;
};

} // namespace

std::unique_ptr<FaultyLink> makeFaultyLink(LinkName name, const std::string& script, VirtualClock& clock)
{
    switch (name) {
    case LinkName::Simulated:
        return std::make_unique<SimulatedLink>(script, clock);
    case LinkName::Tcp:
        return std::make_unique<TcpLink>(script, clock);
    case LinkName::Serial:
        return std::make_unique<SerialLink>(script, clock);
    case LinkName::Usbtmc:
        break;
    }
    return std::make_unique<UsbtmcLink>(script, clock);
}

} // namespace orb
