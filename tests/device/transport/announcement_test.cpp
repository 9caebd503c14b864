// SPDX-License-Identifier: GPL-3.0-or-later
#include "announcement.h"

#include <gmock/gmock.h>

namespace orb {
namespace {

using testing::ElementsAre;
using Service = Announcement::Service;

TEST(AnnouncementTest, ARawSocketIsAResourceOfItsPort)
{
    EXPECT_THAT(
        instrumentsOf({{Service::RawScpi, QStringLiteral("Load"), QStringLiteral("192.168.0.7"), 5555}}),
        ElementsAre(NetworkInstrument{QStringLiteral("TCPIP0::192.168.0.7::5555::SOCKET"), QStringLiteral("Load")}));
}

TEST(AnnouncementTest, AnInstrumentWithoutASocketOfItsOwnIsTakenToHaveItAtPort5025)
{
    EXPECT_THAT(
        instrumentsOf({{Service::Lxi, QStringLiteral("Load"), QStringLiteral("192.168.0.7"), 80}}),
        ElementsAre(NetworkInstrument{QStringLiteral("TCPIP0::192.168.0.7::5025::SOCKET"), QStringLiteral("Load")}));
}

TEST(AnnouncementTest, TheSocketCountsWhereAnInstrumentAnnouncesBoth)
{
    const QList<NetworkInstrument> found = instrumentsOf({{Service::Lxi, {}, QStringLiteral("10.0.0.1"), 80},
                                                          {Service::Lxi, {}, QStringLiteral("10.0.0.2"), 80},
                                                          {Service::RawScpi, {}, QStringLiteral("10.0.0.1"), 5026}});
    EXPECT_THAT(found, ElementsAre(NetworkInstrument{QStringLiteral("TCPIP0::10.0.0.2::5025::SOCKET"), {}},
                                   NetworkInstrument{QStringLiteral("TCPIP0::10.0.0.1::5026::SOCKET"), {}}));
}

TEST(AnnouncementTest, WhatIsAnnouncedOverTwoInterfacesIsOneInstrument)
{
    const Announcement load{Service::RawScpi, QStringLiteral("Load"), QStringLiteral("10.0.0.1"), 5025};
    EXPECT_EQ(instrumentsOf({load, load}).size(), 1);
}

} // namespace
} // namespace orb
