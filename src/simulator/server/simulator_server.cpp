// SPDX-License-Identifier: GPL-3.0-or-later
#include "simulator_server.h"

#include "client_connection.h"

#include <QFile>
#include <QTcpServer>

#include <algorithm>

namespace orb {

namespace {

constexpr std::chrono::milliseconds retryAfter{100};

/// One line of the served file. A wrong answer may hold any character.
std::string record(const std::string& query, std::string answer)
{
    for (char& c : answer) {
        if (c == '\t' || c == '\r' || c == '\n')
            c = ' ';
    }
    return query + '\t' + answer + '\n';
}

/// The lines for the last `count` answers.
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
    /// Clients that have closed do not count, even if the event loop has not handled that yet.
    bool hasRoom();
    void acceptClients();
    void accept(std::unique_ptr<QTcpSocket> socket);
    std::vector<OutgoingStep> respond(const MessageFramer::Message& message);
    void refuse(std::chrono::milliseconds refusal);
    void listenAgain();
    void removeClosed();

    SimulatedInstrument& instrument;
    FaultScript faults;
    quint16 port = 0;
    std::uint64_t messages = 0;
    QFile served;
    QTimer refusing;
    QTcpServer server;
    std::vector<std::unique_ptr<ClientConnection>> clients;
    QObject context; // last: destroyed first, so that no queued call runs after the rest is gone
};

SimulatorServer::SimulatorServer(SimulatedInstrument& instrument, FaultScript faults)
    : parts_(std::make_unique<Parts>(instrument, std::move(faults)))
{
    Parts* const parts = parts_.get();
    parts->refusing.setSingleShot(true);
    QObject::connect(&parts->server, &QTcpServer::newConnection, &parts->context, [parts] { parts->acceptClients(); });
    QObject::connect(&parts->refusing, &QTimer::timeout, &parts->context, [parts] { parts->listenAgain(); });
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
    handler.refuse = [this](std::chrono::milliseconds refusal) { refuse(refusal); };
    handler.ended = [this] {
        QMetaObject::invokeMethod(
            &context, [this] { removeClosed(); }, Qt::QueuedConnection);
    };
    clients.push_back(std::make_unique<ClientConnection>(std::move(socket), std::move(handler),
                                                         SimulatedInstrument::maxMessage, maxUnread));
    for (DeliveryStep& step : deliver(faults.onConnect(), {}, messages))
        clients.back()->send({{std::move(step), {}}});
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

void SimulatorServer::Parts::refuse(std::chrono::milliseconds refusal)
{
    server.close();
    if (refusal.count() > 0)
        refusing.start(refusal);
    else
        refusing.stop();
}

void SimulatorServer::Parts::listenAgain()
{
    if (!server.isListening() && !server.listen(QHostAddress::LocalHost, port))
        refusing.start(retryAfter); // another process has the port
}

void SimulatorServer::Parts::removeClosed()
{
    std::erase_if(clients, [](const auto& client) { return !client->isOpen(); });
}

} // namespace orb
