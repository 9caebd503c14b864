// SPDX-License-Identifier: GPL-3.0-or-later
// Qt reports a reset connection and a closed one in the same way; the system's sockets distinguish them.
#ifndef _WIN32

#include "instrument_fixture.h"
#include "loopback.h"
#include "simulator_server.h"

#include <arpa/inet.h>
#include <cerrno>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

namespace orb {
namespace {

/// A client straight on the system's sockets, in the thread of the server.
class PlainClient {
public:
    explicit PlainClient(quint16 port)
    {
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_port = htons(port);
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        EXPECT_EQ(::connect(descriptor_, reinterpret_cast<const sockaddr*>(&address), sizeof(address)), 0);
    }
    ~PlainClient() { ::close(descriptor_); }
    PlainClient(const PlainClient&) = delete;
    PlainClient& operator=(const PlainClient&) = delete;

    void send(std::string_view bytes)
    {
        EXPECT_EQ(::send(descriptor_, bytes.data(), bytes.size(), MSG_NOSIGNAL), static_cast<ssize_t>(bytes.size()));
    }
    void endSending() { EXPECT_EQ(::shutdown(descriptor_, SHUT_WR), 0); }
    /// Waits for what comes next: bytes, "closed" or "reset".
    std::string next()
    {
        EXPECT_TRUE(waitUntil([this] {
            pollfd ready{descriptor_, POLLIN, 0};
            return ::poll(&ready, 1, 0) > 0;
        }));
        char buffer[4096];
        const ssize_t count = ::recv(descriptor_, buffer, sizeof(buffer), 0);
        if (count < 0)
            return errno == ECONNRESET ? "reset" : "error";
        return count == 0 ? "closed" : std::string(buffer, static_cast<std::size_t>(count));
    }

private:
    int descriptor_ = ::socket(AF_INET, SOCK_STREAM, 0);
};

class SocketResetTest : public InstrumentFixture {
protected:
    quint16 serve(std::string_view script)
    {
        server = std::make_unique<SimulatorServer>(*instrument, FaultScript::parse(script));
        EXPECT_TRUE(server->listen(0));
        return server->port();
    }

    std::unique_ptr<SimulatorServer> server;
};

TEST_F(SocketResetTest, AConnectionMayBeResetInsteadOfAnAnswer)
{
    PlainClient client(serve("2 *OPC? reset\n"));
    client.send("*OPC?\n");
    EXPECT_EQ(client.next(), "1\n");
    client.send("*OPC?\n");
    EXPECT_EQ(client.next(), "reset");
}

TEST_F(SocketResetTest, AConnectionMayBeResetAsSoonAsItIsMade)
{
    const quint16 port = serve("1 connect reset\n");
    EXPECT_EQ(PlainClient(port).next(), "reset");
    PlainClient second(port);
    second.send("*OPC?\n");
    EXPECT_EQ(second.next(), "1\n");
}

TEST_F(SocketResetTest, AClosedConnectionIsNotReset)
{
    PlainClient client(serve("1 *IDN? closed 3\n"));
    client.send("*IDN?\n");
    EXPECT_EQ(client.next(), "ZN,");
    EXPECT_EQ(client.next(), "closed");
}

TEST_F(SocketResetTest, TheFirstReadReturnsTheWholeAnswer)
{
    PlainClient client(serve(""));
    for (int i = 0; i < 100; ++i) {
        client.send("*IDN?;:FETC:ALLV?\n");
        EXPECT_EQ(client.next(), "ZN,ORB3000,SIM0001,1.0;12.0000,12.0000,12.0000,\n");
    }
}

TEST_F(SocketResetTest, AClientThatHasShutDownItsOutputGetsItsAnswer)
{
    PlainClient client(serve(""));
    client.send("*OPC?\n");
    client.endSending();
    EXPECT_EQ(client.next(), "1\n");
    EXPECT_EQ(client.next(), "closed");
}

} // namespace
} // namespace orb

#endif
