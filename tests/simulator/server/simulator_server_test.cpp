// SPDX-License-Identifier: GPL-3.0-or-later
#include "simulator_server.h"

#include "instrument_fixture.h"
#include "loopback.h"

#include <QFile>
#include <QHostAddress>
#include <QTemporaryDir>

namespace orb {
namespace {

class SimulatorServerTest : public InstrumentFixture {
protected:
    void serve(std::string_view script = "")
    {
        server = std::make_unique<SimulatorServer>(*instrument, FaultScript::parse(script));
        ASSERT_TRUE(server->listen(0)) << server->errorText().toStdString();
        ASSERT_NE(server->port(), 0);
    }
    std::unique_ptr<Client> client()
    {
        auto made = std::make_unique<Client>(server->port());
        EXPECT_TRUE(made->connect());
        return made;
    }

    static constexpr const char* identity = "ZN,ORB3000,SIM0001,1.0";
    static constexpr const char* currents = "0.0000,0.0000,0.0000,";
    static constexpr const char* voltages = "12.0000,12.0000,12.0000,";

    std::unique_ptr<SimulatorServer> server;
};

TEST_F(SimulatorServerTest, AQueryIsAnsweredOverTheSocket)
{
    serve();
    const auto one = client();
    EXPECT_EQ(one->query("*IDN?"), identity);
    EXPECT_EQ(one->query(":FETC:ALLV?"), voltages);
}

TEST_F(SimulatorServerTest, AMessageMayEndInCarriageReturnAndLineFeedAndTheAnswerEndsInLineFeed)
{
    serve();
    const auto one = client();
    one->send("*OPC?\r\n*TST?\n");
    EXPECT_TRUE(waitUntil([&] { return one->received().size() >= 4; }));
    EXPECT_EQ(one->received(), "1\n0\n");
}

TEST_F(SimulatorServerTest, EachAnswerArrivesAsAWhole)
{
    build(defaultConfiguration());
    serve();
    const auto one = client();
    for (int i = 0; i < 50; ++i)
        one->query(":FETC:ALLC?;ALLV?;ALLP?;*IDN?");
    EXPECT_EQ(one->reads().size(), 50U);
}

TEST_F(SimulatorServerTest, AMessageMayComeInPieces)
{
    serve();
    const auto one = client();
    const auto two = client();
    one->send("*ID");
    EXPECT_EQ(two->query("*OPC?"), "1") << "meanwhile another client is served";
    one->send("N?");
    EXPECT_EQ(two->query("*OPC?"), "1");
    EXPECT_EQ(one->received(), "");
    EXPECT_EQ(one->query(""), identity);
}

TEST_F(SimulatorServerTest, EachOfSeveralClientsGetsItsOwnAnswers)
{
    serve();
    const auto one = client();
    const auto two = client();
    one->send("*OPC?\n:CHAN:COUN?\n");
    EXPECT_EQ(two->query("*IDN?"), identity);
    EXPECT_EQ(one->line(), "1");
    EXPECT_EQ(one->line(), "3");
    two->query(":CHAN 2;*OPC?");
    EXPECT_EQ(one->query(":CHAN?"), "2") << "there is one instrument";
    EXPECT_EQ(server->clientCount(), 2);
}

TEST_F(SimulatorServerTest, AClientThatVanishesDisturbsNoOther)
{
    serve();
    const auto one = client();
    for (int i = 0; i < 2 * SimulatorServer::maxClients; ++i) {
        const auto vanishing = client();
        vanishing->send("*IDN?\n*IDN?\n:CURR 1");
        vanishing->socket().abort();
    }
    EXPECT_EQ(one->query("*IDN?"), identity);
    EXPECT_TRUE(waitUntil([&] { return server->clientCount() == 1; }));
}

TEST_F(SimulatorServerTest, TheLimitsAreThoseOfTheDocument)
{
    EXPECT_EQ(SimulatorServer::maxClients, 16);
    EXPECT_EQ(SimulatorServer::maxUnread, 4'194'304);
}

TEST_F(SimulatorServerTest, OneClientMoreThanTheLimitIsClosed)
{
    serve();
    std::vector<std::unique_ptr<Client>> clients;
    for (int i = 0; i < SimulatorServer::maxClients; ++i) {
        clients.push_back(client());
        EXPECT_EQ(clients.back()->query("*OPC?"), "1");
    }
    Client last(server->port());
    last.connect();
    EXPECT_TRUE(waitUntil([&] { return !last.isOpen(); }));
    EXPECT_EQ(clients.front()->query("*OPC?"), "1");
}

TEST_F(SimulatorServerTest, AClientIsServedRightAfterAllOthersHaveClosed)
{
    serve();
    std::vector<std::unique_ptr<Client>> clients;
    for (int i = 0; i < SimulatorServer::maxClients; ++i) {
        clients.push_back(client());
        EXPECT_EQ(clients.back()->query("*OPC?"), "1");
    }
    for (const auto& each : clients) {
        each->send("*WAI\n");
        each->socket().disconnectFromHost();
    }
    EXPECT_EQ(client()->query("*IDN?"), identity);
}

TEST_F(SimulatorServerTest, AMessageThatIsTooLongIsAnErrorAndTheNextOneIsAnswered)
{
    serve();
    const auto one = client();
    one->send(std::string(3 * SimulatedInstrument::maxMessage, 'x'));
    EXPECT_EQ(one->query("\n:SYST:ERR?"), "-363,\"Input buffer overrun\"");
}

TEST_F(SimulatorServerTest, HostileBytesAreErrorsAndTheNextQueryIsAnswered)
{
    serve();
    const auto one = client();
    one->send(std::string_view("\0\xFF\xFE #9\n'\n\"\n*IDN", 15));
    EXPECT_EQ(one->query("?"), identity);
    EXPECT_EQ(one->query(":SYST:ERR:COUN?"), "3");
}

TEST_F(SimulatorServerTest, AClientThatReadsNothingIsDropped)
{
    SimulatorConfiguration longAnswer = quietConfiguration();
    longAnswer.identity = std::string(50'000, 'x');
    build(longAnswer);
    serve();
    const auto other = client();
    const auto deaf = client();
    deaf->socket().setReadBufferSize(1);
    const std::string query = "*IDN?;*IDN?;*IDN?;*IDN?;*IDN?;*IDN?;*IDN?;*IDN?;*IDN?;*IDN?\n";
    EXPECT_TRUE(waitUntil([&] {
        deaf->send(query);
        return server->clientCount() == 1;
    }));
    EXPECT_EQ(other->query("*OPC?"), "1");
}

TEST_F(SimulatorServerTest, APortInUseIsAnError)
{
    serve();
    SimulatorServer second(*instrument);
    EXPECT_FALSE(second.listen(server->port()));
    EXPECT_NE(second.errorText(), QString());
    EXPECT_EQ(second.port(), 0);
}

TEST_F(SimulatorServerTest, TheServerCanEndWithClientsAndQueuedAnswers)
{
    serve("1 *IDN? late 3600s\n");
    const auto one = client();
    one->send("*IDN?\n");
    EXPECT_EQ(client()->query("*OPC?"), "1");
    server.reset();
    EXPECT_TRUE(waitUntil([&] { return !one->isOpen(); }));
    EXPECT_EQ(one->received(), "");
}

TEST_F(SimulatorServerTest, ALateAnswerDelaysNoOtherClient)
{
    serve("1 *IDN? late 3600s\n1 *OPC? late 1ms\n");
    const auto one = client();
    const auto two = client();
    one->send("*IDN?\n");
    EXPECT_EQ(two->query("*OPC?"), "1");
    EXPECT_EQ(two->query("*IDN?"), identity);
    EXPECT_EQ(one->received(), "");
}

TEST_F(SimulatorServerTest, TheAnswerAfterALateOneIsSentAfterIt)
{
    serve("1 *IDN? late 30ms\n");
    const auto one = client();
    one->send("*IDN?\n*OPC?\n");
    EXPECT_EQ(one->line(), identity);
    EXPECT_EQ(one->line(), "1");
}

TEST_F(SimulatorServerTest, ASplitAnswerComesInPieces)
{
    serve("1 *IDN? split 2 3600s\n2 *IDN? split 5 1ms\n");
    const auto one = client();
    one->send("*IDN?\n");
    const auto two = client();
    EXPECT_EQ(two->query("*IDN?"), identity);
    EXPECT_TRUE(waitUntil([&] { return !one->received().empty(); }));
    EXPECT_EQ(one->received(), std::string(identity).substr(0, 11)) << "the rest takes an hour";
}

TEST_F(SimulatorServerTest, AnAnswerMayEndInCarriageReturnAndLineFeed)
{
    serve("1 *IDN? crlf\n");
    const auto one = client();
    EXPECT_EQ(one->query("*IDN?"), std::string(identity) + '\r');
    EXPECT_EQ(one->query("*IDN?"), identity);
}

TEST_F(SimulatorServerTest, AMissingAnswerNeverComes)
{
    serve("1 :FETC:ALLC? missing\n");
    const auto one = client();
    one->send(":FETC:ALLC?\n");
    EXPECT_EQ(one->query("*OPC?"), "1");
    EXPECT_EQ(one->query(":FETC:ALLC?"), currents);
}

TEST_F(SimulatorServerTest, AnAnswerMayBeSentAfterTheNextMessage)
{
    serve("1 :FETC:ALLC? after-next\n");
    const auto one = client();
    const auto two = client();
    one->send(":FETC:ALLC?\n");
    EXPECT_EQ(two->query("*OPC?"), "1") << "a message of another client is not the next one";
    EXPECT_EQ(one->received(), "");
    EXPECT_EQ(one->query(":FETC:ALLV?"), currents);
    EXPECT_EQ(one->line(), voltages);
}

TEST_F(SimulatorServerTest, AnAnswerMayBeWrongOrGarbage)
{
    serve("1 *IDN? wrong \"no \\\"instrument\\\"\"\n2 *IDN? garbage 40\n");
    const auto one = client();
    EXPECT_EQ(one->query("*IDN?"), "no \"instrument\"");
    EXPECT_EQ(one->query("*IDN?").size(), 40U);
    EXPECT_EQ(one->query("*IDN?"), identity);
}

TEST_F(SimulatorServerTest, ATruncatedAnswerHasNoEnd)
{
    serve("1 *IDN? truncated 5\n");
    const auto one = client();
    EXPECT_EQ(one->query("*IDN?\n*OPC?"), "ZN,OR1");
}

TEST_F(SimulatorServerTest, AConnectionMayBeClosedInsideOfAnAnswer)
{
    serve("1 *IDN? closed 4\n");
    const auto one = client();
    one->send("*IDN?\n");
    EXPECT_TRUE(waitUntil([&] { return !one->isOpen(); }));
    EXPECT_EQ(one->received(), "ZN,O");
    EXPECT_EQ(client()->query("*IDN?"), identity) << "and made anew";
}

TEST_F(SimulatorServerTest, NoMessageIsExecutedAfterItsConnectionWasClosed)
{
    serve("1 *IDN? closed\n");
    const auto one = client();
    one->send("*IDN?\n:LOAD ON\n");
    EXPECT_TRUE(waitUntil([&] { return !one->isOpen(); }));
    EXPECT_EQ(client()->query(":LOAD?"), "0");
}

TEST_F(SimulatorServerTest, AConnectionMayBeRefusedForAWhile)
{
    serve("1 *IDN? refused 1ms\n");
    const auto one = client();
    one->send("*IDN?\n");
    EXPECT_TRUE(waitUntil([&] { return !one->isOpen(); }));
    EXPECT_TRUE(waitUntil([&] { return Client(server->port()).connect(); }));
    EXPECT_EQ(client()->query("*IDN?"), identity);
}

TEST_F(SimulatorServerTest, ConnectionsMayBeRefusedForEverWhileOthersGoOn)
{
    serve("1 *IDN? refused\n");
    const auto one = client();
    const auto two = client();
    EXPECT_EQ(two->query("*OPC?"), "1");
    one->send("*IDN?\n");
    EXPECT_TRUE(waitUntil([&] { return !one->isOpen(); }));
    EXPECT_EQ(one->received(), "");
    Client late(server->port());
    EXPECT_FALSE(late.connect());
    EXPECT_EQ(late.socket().error(), QAbstractSocket::ConnectionRefusedError);
    EXPECT_EQ(two->query("*IDN?"), identity);
}

TEST_F(SimulatorServerTest, AConnectionMayBeClosedAsSoonAsItIsMade)
{
    serve("1 connect closed\n");
    Client one(server->port());
    one.connect();
    EXPECT_TRUE(waitUntil([&] { return !one.isOpen(); }));
    EXPECT_EQ(client()->query("*IDN?"), identity);
}

/// The file of what was served.
class ServedFileTest : public SimulatorServerTest {
protected:
    void serveInto(std::string_view script = "")
    {
        serve(script);
        ASSERT_TRUE(server->writeServedTo(path));
    }
    std::string written() const
    {
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll().toStdString();
    }

    QTemporaryDir folder;
    QString path = folder.filePath("served.txt");
};

TEST_F(ServedFileTest, TheFileHasEachListThatWasSent)
{
    serveInto();
    const auto one = client();
    one->query(":FETC:ALLC?");
    EXPECT_EQ(written(), std::string(":FETC:ALLC?\t") + currents + "\n") << "as soon as the client has it";
    one->query("*IDN?");
    one->query("fetc:allv?;*OPC?");
    EXPECT_EQ(written(), std::string(":FETC:ALLC?\t") + currents + "\nfetc:allv?\t" + voltages + "\n");
}

TEST_F(ServedFileTest, TheFileHasNoAnswerThatWasNotSentWhole)
{
    serveInto("1 :FETC:ALLC? missing\n2 :FETC:ALLC? garbage 9\n3 :FETC:ALLC? truncated\n4 :FETC:ALLC? after-next\n"
              "5 :FETC:ALLC? late 3600s\n");
    const auto one = client();
    one->send(":FETC:ALLC?\n");
    EXPECT_EQ(one->query(":FETC:ALLC?").size(), 9U);
    one->send(":FETC:ALLC?\n:FETC:ALLC?\n");
    EXPECT_EQ(one->query("*OPC?"), "0.0000,0.0" + std::string(currents));
    EXPECT_EQ(one->line(), "1");
    one->send(":FETC:ALLC?\n");
    EXPECT_EQ(client()->query("*OPC?"), "1");
    EXPECT_EQ(written(), std::string(":FETC:ALLC?\t") + currents + "\n") << "the one sent after the next message";
}

TEST_F(ServedFileTest, TheFileHasAWrongAnswerAsItWasSent)
{
    serveInto("1 :FETC:ALLC? wrong \"1,2,\\t3,\"\n");
    EXPECT_EQ(client()->query(":FETC:ALLC?"), "1,2,\t3,");
    EXPECT_EQ(written(), ":FETC:ALLC?\t1,2, 3,\n");
}

TEST_F(ServedFileTest, AFileThatCanNotBeWrittenIsRefused)
{
    serve();
    EXPECT_FALSE(server->writeServedTo(folder.filePath("no/such/folder")));
}

} // namespace
} // namespace orb
