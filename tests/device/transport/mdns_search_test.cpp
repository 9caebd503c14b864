// SPDX-License-Identifier: GPL-3.0-or-later
#include "mdns_search.h"

#include <QElapsedTimer>
#include <QThread>

#include <gtest/gtest.h>

namespace orb {
namespace {

TEST(MdnsSearchTest, WhereNoDaemonRunsASentenceSaysSo)
{
    qputenv("DBUS_SYSTEM_BUS_ADDRESS", "unix:path=/nonexistent/bus");
    const auto search = searchByMdns();
    QElapsedTimer timer;
    timer.start();
    while (search->failure().isEmpty() && !timer.hasExpired(30'000))
        QThread::msleep(1);

#ifdef ORB_HAVE_AVAHI
    EXPECT_EQ(search->failure(),
              "No Avahi daemon runs on this machine, so the network can't be searched. Type the address.");
#else
    EXPECT_EQ(search->failure(),
              "This program was built without Avahi, so the network can't be searched. Type the address.");
#endif
    EXPECT_TRUE(search->found().isEmpty());
}

} // namespace
} // namespace orb
