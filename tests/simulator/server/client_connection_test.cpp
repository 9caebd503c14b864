// SPDX-License-Identifier: GPL-3.0-or-later
#include "client_connection.h"

#include "loopback.h"

#include <QTcpServer>

#include <gmock/gmock.h>

namespace orb {
namespace {

/// One connection with a real socket at each end.
class ClientConnectionTest : public testing::Test {
protected:
    ClientConnectionTest()
    {
        EXPECT_TRUE(listener.listen(QHostAddress::LocalHost));
        client = std::make_unique<Client>(listener.serverPort());
        EXPECT_TRUE(client->connect());
        EXPECT_TRUE(waitUntil([this] { return listener.hasPendingConnections(); }));
    }

    void begin(qint64 maxUnread = 1024 * 1024)
    {
        std::unique_ptr<QTcpSocket> socket(listener.nextPendingConnection());
        socket->setParent(nullptr);
        QObject::connect(socket.get(), &QTcpSocket::bytesWritten, &listener,
                         [this](qint64 size) { writes.push_back(size); });
        ClientConnection::Handler handler;
        handler.respond = [this](const MessageFramer::Message& message) { return answerTo(message); };
        handler.record = [this](const std::string& record) { records.push_back(record); };
        handler.ended = [this] { ++ended; };
        connection = std::make_unique<ClientConnection>(std::move(socket), std::move(handler), 100, maxUnread);
    }

    std::vector<OutgoingStep> answerTo(const MessageFramer::Message& message)
    {
        messages.push_back(message.text);
        std::vector<OutgoingStep> steps;
        for (DeliveryStep& step : deliver(fault, answer, 1))
            steps.push_back({std::move(step), "record"});
        return steps;
    }

    QTcpServer listener;
    std::unique_ptr<Client> client;
    Fault fault;
    std::string answer = "answer";
    std::vector<std::string> messages;
    std::vector<std::string> records;
    std::vector<qint64> writes;
    int ended = 0;
    std::unique_ptr<ClientConnection> connection;
};

TEST_F(ClientConnectionTest, EachAnswerIsSentInOneWrite)
{
    begin();
    answer = std::string(20'000, 'x');
    client->query("A");
    client->query("B");
    EXPECT_THAT(writes, testing::ElementsAre(20'001, 20'001));
    answer = "answer";
    client->send("C\nD\n");
    client->line();
    client->line();
    EXPECT_THAT(writes, testing::ElementsAre(20'001, 20'001, 7, 7)) << "two messages in one";
}

TEST_F(ClientConnectionTest, EachPieceOfASplitAnswerIsSentInOneWrite)
{
    begin();
    fault = {.kind = Fault::Kind::Split, .delay = std::chrono::milliseconds(1), .count = 3};
    EXPECT_EQ(client->query("A"), "answer");
    EXPECT_THAT(writes, testing::ElementsAre(2, 2, 3));
    EXPECT_THAT(records, testing::SizeIs(3));
}

TEST_F(ClientConnectionTest, AConnectionReadsWhatWasReceivedBeforeItWasMade)
{
    client->send("A\nB\n");
    begin();
    EXPECT_TRUE(waitUntil([this] { return connection->read(), messages.size() == 2; }));
    EXPECT_EQ(client->line(), "answer");
}

TEST_F(ClientConnectionTest, AClientThatLeavesTooMuchUnreadIsDropped)
{
    begin(10);
    fault = {.kind = Fault::Kind::Late, .delay = std::chrono::hours(1)};
    client->send("A\n");
    EXPECT_TRUE(waitUntil([this] { return messages.size() == 1; }));
    EXPECT_TRUE(connection->isOpen()) << "7 bytes wait";
    client->send("B\n");
    EXPECT_TRUE(waitUntil([this] { return !client->isOpen(); }));
    EXPECT_FALSE(connection->isOpen()) << "14 bytes would wait";
    EXPECT_EQ(ended, 1);
}

TEST_F(ClientConnectionTest, AClosedConnectionHandlesNoMoreMessages)
{
    begin();
    fault = {.kind = Fault::Kind::Closed};
    client->send("A\nB\nC\n");
    EXPECT_TRUE(waitUntil([this] { return ended == 1; }));
    EXPECT_THAT(messages, testing::ElementsAre("A"));
    connection->read();
    EXPECT_THAT(messages, testing::SizeIs(1));
    EXPECT_TRUE(waitUntil([this] { return client->received() == "ans"; }));
}

TEST_F(ClientConnectionTest, TheEndOfAConnectionIsReportedOnce)
{
    begin();
    client->socket().abort();
    EXPECT_TRUE(waitUntil([this] { return ended == 1; }));
    EXPECT_FALSE(connection->isOpen());
    connection->send({{{.bytes = "x"}, "record"}});
    EXPECT_THAT(records, testing::IsEmpty());
}

} // namespace
} // namespace orb
