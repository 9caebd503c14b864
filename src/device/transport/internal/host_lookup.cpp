// SPDX-License-Identifier: GPL-3.0-or-later
#include "host_lookup.h"

#include <QHostInfo>

#include <condition_variable>
#include <mutex>
#include <system_error>
#include <thread>

namespace orb {

struct HostLookup::Shared {
    mutable std::mutex mutex;
    std::condition_variable changed;
    bool done = false;
    QList<QHostAddress> addresses;

    void finish(const QList<QHostAddress>& found)
    {
        const std::scoped_lock lock(mutex);
        addresses = found;
        done = true;
        changed.notify_all();
    }
};

HostLookup::HostLookup(const QString& name) : shared_(std::make_shared<Shared>())
{
    try {
        std::thread([shared = shared_, name] { shared->finish(QHostInfo::fromName(name).addresses()); }).detach();
    } catch (const std::system_error&) {
        shared_->finish({}); // no thread could be started
    }
}

bool HostLookup::isDone() const
{
    const std::scoped_lock lock(shared_->mutex);
    return shared_->done;
}

bool HostLookup::wait(int limitMs) const
{
    std::unique_lock lock(shared_->mutex);
    return shared_->changed.wait_for(lock, std::chrono::milliseconds(limitMs), [this] { return shared_->done; });
}

QList<QHostAddress> HostLookup::addresses() const
{
    const std::scoped_lock lock(shared_->mutex);
    return shared_->addresses;
}

} // namespace orb
