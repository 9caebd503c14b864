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

volatile std::sig_atomic_t asked = 0;

void ask(int)
{
    asked = 1;
}

#else

// A signal handler may do next to nothing; writing a byte to a socket is allowed, and wakes the event loop.
int wakeEnds[2] = {-1, -1};

void ask(int)
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
        if (asked != 0)
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
    std::signal(SIGTERM, ask);
    std::signal(SIGINT, ask);
}

} // namespace orb
