// SPDX-License-Identifier: GPL-3.0-or-later
#include "simulator_server.h"

#include "client_connection.h"

#include <QFile>
#include <QTcpServer>

#include <algorithm>

namespace orb {

namespace {

constexpr std::chrono::milliseconds listenAgain{100};

/// One line of the file of what was served. A wrong answer may hold anything; a record stays one line.
std::string record(const std::string& query, std::string answer)
{
    for (char& c : answer) {
        if (c == '\t' || c == '\r' || c == '\n')
            c = ' ';
    }
    return query + '\t' + answer + '\n';
}

/// What the client is about to get in answer to queries for the readings of all channels.
std::string recordsOf(const std::deque<ServedAnswer>& answers, std::uint64_t count, const Fault& fault)
{
    std::string records;
    for (std::size_t i = answers.size() - static_cast<std::size_t>(count); i < answers.size(); ++i) {
        if (leavesWhole(fault))
            records += record(answers[i].query, answers[i].answer);
        else if (fault.kind == Fault::Kind::Wrong)
            records += record(answers[i].query, fault.text);
    }
    return records;
}

} // namespace

struct SimulatorServer::Parts {
    Parts(SimulatedInstrument& theInstrument, FaultScript script) : instrument(theInstrument), faults(std::move(script))
    {}

    int openCount() const;
    /// Clients that have closed do not count, even where the event loop has not noticed it yet.
    bool hasRoom();
    void acceptClients();
    void accept(std::unique_ptr<QTcpSocket> socket);
    std::vector<OutgoingStep> respond(const MessageFramer::Message& message);
    void refuse(std::chrono::milliseconds deaf);
    void listenOnceMore();
    void forgetClosed();

    SimulatedInstrument& instrument;
    FaultScript faults;
    quint16 port = 0;
    std::uint64_t messages = 0;
    QFile served;
    QTimer deafness;
    QTcpServer server;
    std::vector<std::unique_ptr<ClientConnection>> clients;
    QObject context; // last: what is still to be done later is dropped before anything else goes
};

SimulatorServer::SimulatorServer(SimulatedInstrument& instrument, FaultScript faults)
    : parts_(std::make_unique<Parts>(instrument, std::move(faults)))
{
    Parts* const parts = parts_.get();
    parts->deafness.setSingleShot(true);
    QObject::connect(&parts->server, &QTcpServer::newConnection, &parts->context, [parts] { parts->acceptClients(); });
    QObject::connect(&parts->deafness, &QTimer::timeout, &parts->context, [parts] { parts->listenOnceMore(); });
}

SimulatorServer::~SimulatorServer() = default;

bool SimulatorServer::listen(quint16 port)
{
    if (!parts_->server.listen(QHostAddress::LocalHost, port))
        return false;
    parts_->port = parts_->server.serverPort();
    return true;
}

quint16 SimulatorServer::port() const
{
    return parts_->port;
}

QString SimulatorServer::errorText() const
{
    return parts_->server.errorString();
}

bool SimulatorServer::writeServedTo(const QString& path)
{
    parts_->served.close();
    parts_->served.setFileName(path);
    return parts_->served.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Unbuffered);
}

int SimulatorServer::clientCount() const
{
    return parts_->openCount();
}

int SimulatorServer::Parts::openCount() const
{
    return static_cast<int>(std::ranges::count_if(clients, [](const auto& client) { return client->isOpen(); }));
}

bool SimulatorServer::Parts::hasRoom()
{
    if (openCount() == maxClients) {
        for (const auto& client : clients)
            client->poll();
    }
    return openCount() < maxClients;
}

void SimulatorServer::Parts::acceptClients()
{
    while (server.hasPendingConnections()) {
        std::unique_ptr<QTcpSocket> socket(server.nextPendingConnection());
        socket->setParent(nullptr);
        if (hasRoom())
            accept(std::move(socket));
    }
}

void SimulatorServer::Parts::accept(std::unique_ptr<QTcpSocket> socket)
{
    ClientConnection::Handler handler;
    handler.respond = [this](const MessageFramer::Message& message) { return respond(message); };
    handler.record = [this](const std::string& lines) {
        served.write(lines.data(), static_cast<qint64>(lines.size()));
    };
    handler.refuse = [this](std::chrono::milliseconds deaf) { refuse(deaf); };
    handler.over = [this] {
        QMetaObject::invokeMethod(
            &context, [this] { forgetClosed(); }, Qt::QueuedConnection);
    };
    clients.push_back(std::make_unique<ClientConnection>(std::move(socket), std::move(handler),
                                                         SimulatedInstrument::maxMessage, maxUnread));
    ClientConnection& client = *clients.back();
    for (DeliveryStep& step : deliver(faults.onConnect(), {}))
        client.send({{std::move(step), {}}});
    client.read();
}

std::vector<OutgoingStep> SimulatorServer::Parts::respond(const MessageFramer::Message& message)
{
    ++messages;
    if (message.overrun) {
        instrument.reportOverrun();
        return {};
    }
    const Fault fault = faults.onMessage(message.text);
    const std::uint64_t before = instrument.served().total();
    const std::string answer = instrument.execute(message.text);
    std::vector<OutgoingStep> steps;
    for (DeliveryStep& step : deliver(fault, answer, messages))
        steps.push_back({std::move(step), {}});
    const std::uint64_t added = instrument.served().total() - before;
    if (!steps.empty() && added > 0 && served.isOpen())
        steps.back().record = recordsOf(instrument.served().answers(), added, fault);
    return steps;
}

void SimulatorServer::Parts::refuse(std::chrono::milliseconds deaf)
{
    server.close();
    if (deaf.count() > 0)
        deafness.start(deaf);
    else
        deafness.stop();
}

void SimulatorServer::Parts::listenOnceMore()
{
    if (!server.isListening() && !server.listen(QHostAddress::LocalHost, port))
        deafness.start(listenAgain); // somebody else has the port just now
}

void SimulatorServer::Parts::forgetClosed()
{
    std::erase_if(clients, [](const auto& client) { return !client->isOpen(); });
}

} // namespace orb
