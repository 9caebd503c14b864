// SPDX-License-Identifier: GPL-3.0-or-later
#include "socket_keepalive.h"

#ifdef Q_OS_WIN
#include <winsock2.h>
#else
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>
#endif

namespace orb {

namespace {

void setOption(qintptr descriptor, int level, int option, int value)
{
#ifdef Q_OS_WIN
    setsockopt(static_cast<SOCKET>(descriptor), level, option, reinterpret_cast<const char*>(&value), sizeof value);
#else
    setsockopt(static_cast<int>(descriptor), level, option, &value, sizeof value);
#endif
}

} // namespace

void keepAlive(qintptr descriptor)
{
    setOption(descriptor, SOL_SOCKET, SO_KEEPALIVE, 1);
#ifdef TCP_KEEPIDLE
    setOption(descriptor, IPPROTO_TCP, TCP_KEEPIDLE, 4);
#endif
#ifdef TCP_KEEPINTVL
    setOption(descriptor, IPPROTO_TCP, TCP_KEEPINTVL, 2);
#endif
#ifdef TCP_KEEPCNT
    setOption(descriptor, IPPROTO_TCP, TCP_KEEPCNT, 3);
#endif
#ifdef TCP_USER_TIMEOUT
    // What was sent and not acknowledged.
    setOption(descriptor, IPPROTO_TCP, TCP_USER_TIMEOUT, 10'000);
#endif
}

} // namespace orb
