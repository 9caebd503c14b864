// SPDX-License-Identifier: GPL-3.0-or-later
#include "tcp_control.h"
#include "tcp_transport.h"
#include "test_servers.h"

#include <QCoreApplication>

#include <gtest/gtest.h>

#include <arpa/inet.h>
#include <netinet/tcp.h>
#include <sys/socket.h>

namespace orb {

namespace {

TcpAddress local(quint16 port)
{
    return {QStringLiteral("127.0.0.1"), port};
}

/// The descriptor of this process's socket that is connected to a port.
int socketTo(quint16 port)
{
    for (int descriptor = 0; descriptor < 1024; ++descriptor) {
        sockaddr_in address{};
        socklen_t size = sizeof address;
        if (::getpeername(descriptor, reinterpret_cast<sockaddr*>(&address), &size) == 0 &&
            ntohs(address.sin_port) == port)
            return descriptor;
    }
    return -1;
}

int option(int descriptor, int level, int name)
{
    int value = -1;
    socklen_t size = sizeof value;
    ::getsockopt(descriptor, level, name, &value, &size);
    return value;
}

} // namespace

TEST(TcpTransportTest, ATransportOpensWithoutAnEventLoopWithinALimit)
{
    ServedInstrument instrument;
    TcpTransport transport(local(instrument.port()));
    ASSERT_TRUE(transport.open(generousMs));
    EXPECT_TRUE(transport.write("*IDN?\n"));
    EXPECT_TRUE(transport.flush(generousMs));
    ASSERT_TRUE(transport.waitReadable(generousMs));
    EXPECT_EQ(transport.read(), "ZN,ORB3000,SIM0001,1.0\n");
    EXPECT_EQ(transport.read(), "");
    transport.close();
    EXPECT_EQ(transport.state(), Transport::State::Closed);
    EXPECT_EQ(transport.error(), LinkError::None);
    EXPECT_FALSE(transport.write("*IDN?\n"));
}

TEST(TcpTransportTest, ATransportOpensWhileTheEventLoopRuns)
{
    ServedInstrument instrument;
    TcpTransport transport(local(instrument.port()));
    transport.begin();
    EXPECT_TRUE(waitUntil([&] { return transport.state() == Transport::State::Open; }));
}

TEST(TcpTransportTest, EveryAddressOfANameIsTried)
{
    ServedInstrument instrument; // listens on 127.0.0.1 alone, and the name may lead to ::1 first
    TcpTransport blocking({QStringLiteral("localhost"), instrument.port()});
    EXPECT_TRUE(blocking.open(generousMs));
    TcpTransport waiting({QStringLiteral("localhost"), instrument.port()});
    waiting.begin();
    EXPECT_TRUE(waitUntil([&] { return waiting.state() == Transport::State::Open; }));
    EXPECT_EQ(waiting.error(), LinkError::None);
}

TEST(TcpTransportTest, ARefusingPortIsReported)
{
    TcpTransport blocking(local(refusingPort()));
    EXPECT_FALSE(blocking.open(generousMs));
    EXPECT_EQ(blocking.error(), LinkError::Refused);
    TcpTransport waiting(local(refusingPort()));
    waiting.begin();
    EXPECT_TRUE(waitUntil([&] { return waiting.state() == Transport::State::Closed; }));
    EXPECT_EQ(waiting.error(), LinkError::Refused);
    TcpTransport named({QStringLiteral("localhost"), refusingPort()});
    EXPECT_FALSE(named.open(generousMs));
    EXPECT_EQ(named.error(), LinkError::Refused);
}

TEST(TcpTransportTest, ANameThatNoHostHasIsReported)
{
    TcpTransport blocking({QStringLiteral("no-such-load.invalid"), 5025});
    EXPECT_FALSE(blocking.open(generousMs));
    EXPECT_EQ(blocking.error(), LinkError::HostNotFound);
    TcpTransport waiting({QStringLiteral("no-such-load.invalid"), 5025});
    waiting.begin();
    EXPECT_TRUE(waitUntil([&] { return waiting.state() == Transport::State::Closed; }));
    EXPECT_EQ(waiting.error(), LinkError::HostNotFound);
}

TEST(TcpTransportTest, ALookupMayBeAbandoned)
{
    for (int i = 0; i < 5; ++i) {
        TcpTransport transport({QStringLiteral("no-such-load.invalid"), 5025});
        transport.begin();
        transport.close();
        EXPECT_EQ(transport.state(), Transport::State::Closed);
    }
}

TEST(TcpTransportTest, WhatCameBeforeTheCloseIsRead)
{
    FaultyServer server([](ClientConnection& client) { client.say("the end"); });
    TcpTransport transport(local(server.port()));
    ASSERT_TRUE(transport.open(generousMs));
    QByteArray bytes;
    while (transport.waitReadable(generousMs))
        bytes += transport.read();
    EXPECT_EQ(bytes, "the end");
    EXPECT_EQ(transport.state(), Transport::State::Closed);
    EXPECT_EQ(transport.error(), LinkError::ClosedRemotely);
    EXPECT_FALSE(transport.waitReadable(generousMs)); // at once
}

TEST(TcpTransportTest, AResetEndsTheLinkAndNothingElse)
{
    FaultyServer server([](ClientConnection& client) {
        client.line();
        client.reset();
    });
    TcpTransport transport(local(server.port()));
    ASSERT_TRUE(transport.open(generousMs));
    transport.write("a\n");
    while (transport.waitReadable(generousMs))
        EXPECT_EQ(transport.read(), "");
    for (int i = 0; i < 10; ++i)
        EXPECT_FALSE(transport.write("b\n")); // and no signal ends the process
    EXPECT_EQ(transport.state(), Transport::State::Closed);
}

TEST(TcpTransportTest, ALinkThatTakesNothingMoreIsCut)
{
    std::atomic<bool> done = false;
    FaultyServer server([&](ClientConnection&) {
        while (!done)
            QThread::msleep(1); // reads nothing
    });
    TcpTransport transport(local(server.port()));
    ASSERT_TRUE(transport.open(generousMs));
    int writes = 0;
    while (transport.write(QByteArray(64 * 1024, 'x')))
        ASSERT_LT(++writes, 1000);
    EXPECT_EQ(transport.state(), Transport::State::Closed);
    EXPECT_EQ(transport.error(), LinkError::Broken);
    done = true;
}

TEST(TcpTransportTest, ASocketSendsShortLinesAtOnceAndNoticesARemoteEndThatIsGone)
{
    ServedInstrument instrument;
    TcpTransport transport(local(instrument.port()));
    ASSERT_TRUE(transport.open(generousMs));
    const int descriptor = socketTo(instrument.port());
    EXPECT_EQ(option(descriptor, IPPROTO_TCP, TCP_NODELAY), 1);
    EXPECT_EQ(option(descriptor, SOL_SOCKET, SO_KEEPALIVE), 1);
    // Silent for 4 s, then asked three times, 2 s apart: 10 s in all.
    EXPECT_EQ(option(descriptor, IPPROTO_TCP, TCP_KEEPIDLE), 4);
    EXPECT_EQ(option(descriptor, IPPROTO_TCP, TCP_KEEPINTVL), 2);
    EXPECT_EQ(option(descriptor, IPPROTO_TCP, TCP_KEEPCNT), 3);
    EXPECT_EQ(option(descriptor, IPPROTO_TCP, TCP_USER_TIMEOUT), 10'000);
}

} // namespace orb
