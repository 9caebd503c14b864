// SPDX-License-Identifier: GPL-3.0-or-later
#include "socket_reset.h"

#ifdef _WIN32
#include <winsock2.h>
#else
#include <sys/socket.h>
#endif

namespace orb {

void resetOnClose(QAbstractSocket& socket)
{
    linger option{};
    option.l_onoff = 1;
    option.l_linger = 0;
    setsockopt(static_cast<decltype(::socket(0, 0, 0))>(socket.socketDescriptor()), SOL_SOCKET, SO_LINGER,
               reinterpret_cast<const char*>(&option), sizeof(option));
}

} // namespace orb
