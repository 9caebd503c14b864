// SPDX-License-Identifier: GPL-3.0-or-later
#include "usbtmc_transport.h"

#include "is_query.h"

#include <QDeadlineTimer>
#include <QFile>

#ifdef Q_OS_LINUX

#include <algorithm>
#include <array>
#include <cerrno>
#include <condition_variable>
#include <cstring>
#include <deque>
#include <fcntl.h>
#include <linux/usb/tmc.h>
#include <mutex>
#include <poll.h>
#include <sys/ioctl.h>
#include <system_error>
#include <thread>
#include <unistd.h>

namespace orb {

namespace {

/// How long the driver waits for an answer. A session that has no answer by then asks for its place.
constexpr __u32 readLimitMs = 2000;
constexpr qsizetype mostUnsent = 1024 * 1024;
constexpr qint64 longestWaitMs = 50;

LinkError openError(int systemError)
{
    switch (systemError) {
    case ENOENT:
    case ENODEV:
    case ENXIO:
        return LinkError::NoDevice;
    case EACCES:
    case EPERM:
    case EBUSY:
        return LinkError::DeviceDenied;
    default:
        return LinkError::Broken;
    }
}

/// An answer that did not come in time is no end of the link.
bool isTimeout(int systemError)
{
    return systemError == ETIMEDOUT || systemError == EAGAIN || systemError == EINTR;
}

/// The bytes of a block that is sent may be anything, question marks too.
bool expectsAnswer(QByteArrayView message)
{
    const qsizetype block = message.indexOf(",#");
    return isQuery(block < 0 ? message : message.first(block));
}

} // namespace

/// What the thread and the transport share. The file is the thread's alone once it runs.
struct UsbtmcTransport::Worker {
    explicit Worker(int openFile) : file(openFile) {}
    ~Worker() { ::close(file); }
    Worker(const Worker&) = delete;
    Worker& operator=(const Worker&) = delete;

    void run();
    void send(const QByteArray& message);
    void readAnswer();
    void fail(int systemError);
    void append(const char* bytes, qsizetype size);
    bool isPulled() const;
    template <class Condition> bool wait(int limitMs, Condition condition)
    {
        std::unique_lock lock(mutex);
        return changed.wait_for(lock, std::chrono::milliseconds(limitMs), condition);
    }

    const int file;
    std::mutex mutex;
    std::condition_variable changed;
    std::deque<QByteArray> unsent;
    qsizetype unsentBytes = 0;
    QByteArray unread;
    int systemError = 0; // that ended the link
    bool ending = false;
};

void UsbtmcTransport::Worker::run()
{
    std::unique_lock lock(mutex);
    while (true) {
        changed.wait(lock, [this] { return ending || !unsent.empty(); });
        if (ending || systemError != 0)
            return;
        const QByteArray message = unsent.front();
        lock.unlock();
        send(message);
        if (expectsAnswer(message))
            readAnswer();
        lock.lock();
    }
}

/// A message is written in one call, which the driver makes one message of the bus.
void UsbtmcTransport::Worker::send(const QByteArray& message)
{
    const ssize_t written = ::write(file, message.constData(), static_cast<std::size_t>(message.size()));
    const int error = written < 0 && !isTimeout(errno) ? errno : 0;
    const std::scoped_lock lock(mutex);
    systemError = error;
    unsentBytes -= message.size();
    unsent.pop_front();
    changed.notify_all();
}

/// A read that fills less than its buffer has reached the end of the message.
void UsbtmcTransport::Worker::readAnswer()
{
    std::array<char, 16 * 1024> buffer{};
    char last = '\n';
    while (true) {
        const ssize_t size = ::read(file, buffer.data(), buffer.size());
        if (size < 0 && !isTimeout(errno))
            fail(errno);
        if (size > 0) {
            last = buffer[static_cast<std::size_t>(size) - 1];
            append(buffer.data(), static_cast<qsizetype>(size));
        }
        if (size < static_cast<ssize_t>(buffer.size()))
            break;
    }
    if (last != '\n')
        append("\n", 1); // the end of the message stood for it
}

void UsbtmcTransport::Worker::append(const char* bytes, qsizetype size)
{
    const std::scoped_lock lock(mutex);
    unread.append(bytes, size);
    changed.notify_all();
}

void UsbtmcTransport::Worker::fail(int error)
{
    const std::scoped_lock lock(mutex);
    systemError = error;
    changed.notify_all();
}

/// The driver knows it at once, though nothing is written or read.
bool UsbtmcTransport::Worker::isPulled() const
{
    pollfd poll{file, 0, 0};
    return ::poll(&poll, 1, 0) > 0 && (poll.revents & POLLHUP) != 0;
}

UsbtmcTransport::UsbtmcTransport(QString deviceFile) : deviceFile_(std::move(deviceFile)) {}

UsbtmcTransport::~UsbtmcTransport()
{
    close();
}

void UsbtmcTransport::begin()
{
    open(0);
}

bool UsbtmcTransport::open(int)
{
    const int file = ::open(QFile::encodeName(deviceFile_).constData(), O_RDWR | O_CLOEXEC | O_NOCTTY);
    if (file < 0) {
        fail(openError(errno), errno);
        return false;
    }
    __u32 limit = readLimitMs;
    ::ioctl(file, USBTMC_IOCTL_SET_TIMEOUT, &limit);
    worker_ = std::make_shared<Worker>(file);
    try {
        std::thread([worker = worker_] { worker->run(); }).detach();
        state_ = State::Open;
    } catch (const std::system_error& error) {
        worker_.reset();
        fail(LinkError::Broken, error.code().value());
    }
    return state_ == State::Open;
}

void UsbtmcTransport::close()
{
    if (worker_) {
        const std::scoped_lock lock(worker_->mutex);
        worker_->ending = true;
        worker_->changed.notify_all();
    }
    worker_.reset();
    state_ = State::Closed;
    error_ = LinkError::None;
    errorText_.clear();
}

void UsbtmcTransport::fail(LinkError error, int systemError)
{
    close();
    error_ = error;
    errorText_ = QString::fromLocal8Bit(std::strerror(systemError));
}

Transport::State UsbtmcTransport::state()
{
    if (!worker_)
        return state_;
    int systemError = 0;
    {
        const std::scoped_lock lock(worker_->mutex);
        if (worker_->unread.isEmpty())
            systemError = worker_->systemError == 0 && worker_->isPulled() ? ENODEV : worker_->systemError;
    }
    if (systemError != 0)
        fail(LinkError::Broken, systemError);
    return state_;
}

bool UsbtmcTransport::write(const QByteArray& bytes)
{
    if (state() != State::Open)
        return false;
    {
        const std::scoped_lock lock(worker_->mutex);
        if (worker_->unsentBytes + bytes.size() <= mostUnsent) {
            worker_->unsent.push_back(bytes);
            worker_->unsentBytes += bytes.size();
            worker_->changed.notify_all();
            return true;
        }
    }
    fail(LinkError::Broken, EPIPE);
    return false;
}

bool UsbtmcTransport::flush(int limitMs)
{
    if (state() != State::Open)
        return false;
    Worker& worker = *worker_;
    const bool isSent = worker.wait(limitMs, [&] { return worker.unsent.empty() || worker.systemError != 0; });
    return isSent && state() == State::Open;
}

QByteArray UsbtmcTransport::read()
{
    if (state() != State::Open)
        return {};
    const std::scoped_lock lock(worker_->mutex);
    const QByteArray bytes = worker_->unread.left(longestRead);
    worker_->unread.remove(0, bytes.size());
    return bytes;
}

bool UsbtmcTransport::waitReadable(int limitMs)
{
    if (state() != State::Open)
        return false;
    const QDeadlineTimer deadline(limitMs);
    const auto worker = worker_;
    const auto isReadable = [&] { return !worker->unread.isEmpty() || worker->systemError != 0; };
    // A device that is pulled wakes nobody.
    while (!worker->wait(static_cast<int>(std::min(deadline.remainingTime(), longestWaitMs)), isReadable))
        if (deadline.hasExpired() || state() != State::Open)
            return false;
    return true;
}

} // namespace orb

#endif
