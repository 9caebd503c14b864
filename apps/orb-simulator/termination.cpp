// SPDX-License-Identifier: GPL-3.0-or-later
#include "termination.h"

#include <QTimer>

#include <csignal>

#ifndef _WIN32
#include <QSocketNotifier>

#include <sys/socket.h>
#include <unistd.h>
#endif

namespace orb {

namespace {

#ifdef _WIN32

volatile std::sig_atomic_t terminationRequested = 0;

void onSignal(int)
{
    terminationRequested = 1;
}

#else

// A signal handler may write a byte to a socket, which wakes the event loop, and do little else.
int wakeEnds[2] = {-1, -1};

void onSignal(int)
{
    const char byte = 0;
    [[maybe_unused]] const auto written = write(wakeEnds[0], &byte, 1);
}

#endif

} // namespace

void onTermination(QObject& context, const std::function<void()>& handler)
{
#ifdef _WIN32
    auto* const timer = new QTimer(&context);
    QObject::connect(timer, &QTimer::timeout, &context, [handler] {
        if (terminationRequested != 0)
            handler();
    });
    timer->start(100);
#else
    if (socketpair(AF_UNIX, SOCK_STREAM, 0, wakeEnds) != 0)
        return;
    auto* const notifier = new QSocketNotifier(wakeEnds[1], QSocketNotifier::Read, &context);
    QObject::connect(notifier, &QSocketNotifier::activated, &context, [notifier, handler] {
        notifier->setEnabled(false);
        handler();
    });
#endif
    std::signal(SIGTERM, onSignal);
    std::signal(SIGINT, onSignal);
}

} // namespace orb
