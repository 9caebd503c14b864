// SPDX-License-Identifier: GPL-3.0-or-later
// The control against a server of another make, which answers in the ways that instruments do.
#include "channel_card.h"
#include "definite_length_block.h"
#include "paths.h"
#include "tcp_control.h"
#include "test_bitmap.h"
#include "test_servers.h"

#include <gmock/gmock.h>

#include <map>
#include <mutex>

namespace orb {

namespace {

using testing::AnyOf;
using testing::ElementsAreArray;

/// How joined queries are answered.
enum class Joined { InOneLine, InALineEach, OnlyTheFirst };

/// How a server delivers its answers.
struct Manners {
    const char* name;
    std::string banner = {}; ///< sent when a client connects
    std::string lineEnd = "\n";
    std::size_t packet = 0; ///< bytes of each packet, 0 for a whole answer
    int pauseMs = 0;        ///< between the packets of one answer
    int lateMs = 0;         ///< before each answer
    Joined joined = Joined::InOneLine;
    int gatheredMs = 0; ///< answers are held until no query has come for so long, and then leave together
};

std::ostream& operator<<(std::ostream& stream, const Manners& manners)
{
    return stream << manners.name;
}

/// A load of two channels that knows a handful of queries and nothing else.
class ForeignLoad {
public:
    explicit ForeignLoad(Manners manners) : manners_(std::move(manners)) {}

    /// The conversation with one client.
    void serve(ClientConnection& client)
    {
        client.sendAtOnce();
        client.say(manners_.banner);
        std::string held;
        for (std::string line = client.line(); !line.empty(); line = client.line()) {
            {
                const std::scoped_lock lock(mutex_);
                received_.push_back(line);
            }
            held += answerTo(line);
            if (manners_.gatheredMs == 0 || !client.isReadable(manners_.gatheredMs))
                deliver(client, std::exchange(held, {}));
        }
    }

    std::vector<std::string> received()
    {
        const std::scoped_lock lock(mutex_);
        return received_;
    }

    const QByteArray picture = testBitmap(40, 30, QColor(10, 13, 10)); // its pixels are line ends
    const QByteArray sequenceFile = QByteArray("\n\r\n#14\n;\"*IDN?\n", 16).repeated(273) + "\r\n\r\n\r\n\n\n\n\n\n\n";

private:
    std::string answerTo(const std::string& line) const
    {
        std::string answer;
        for (const QByteArray& query : QByteArray::fromStdString(line).split(';')) {
            const std::string each = answerToOne(query.toStdString());
            if (each.empty())
                continue;
            answer += answer.empty() ? "" : manners_.joined == Joined::InOneLine ? ";" : manners_.lineEnd;
            answer += each;
            if (manners_.joined == Joined::OnlyTheFirst)
                break;
        }
        return answer.empty() ? answer : answer + manners_.lineEnd;
    }

    std::string answerToOne(const std::string& query) const
    {
        static const std::map<std::string, std::string> answers{
            {"*IDN?", "OTHER,LOAD 2,77,3.1"},
            {":CHAN:COUN?", "2"},
            {"*OPT?", "A,B"},
            {":FETC:ALLV?", "12.0000,5.0000"},
            {":FETC:ALLP?", "18.00,1.25"},
            {":LOAD:ALL?", "0,0"},
            {":FETC:ALLC?", "1.5000,0.2500"},
            {":MODE1?", "CCH"},
            {":MODE2?", "CCL"},
        };
        if (query == ":HCOP:SDUM:DATA?")
            return asBlock(picture).toStdString();
        if (query == ":MMEM:DATA? \"ORBSeq.a\"")
            return asBlock(sequenceFile).toStdString();
        const auto found = answers.find(query);
        return found == answers.end() ? std::string() : found->second;
    }

    void deliver(ClientConnection& client, const std::string& bytes) const
    {
        if (bytes.empty())
            return;
        QThread::msleep(static_cast<unsigned long>(manners_.lateMs));
        // A transfer would take minutes byte by byte.
        const std::size_t size = manners_.packet == 0 ? bytes.size() : std::max(manners_.packet, bytes.size() / 40);
        for (std::size_t at = 0; at < bytes.size(); at += size) {
            if (at > 0)
                QThread::msleep(static_cast<unsigned long>(manners_.pauseMs));
            client.say(bytes.substr(at, size));
        }
    }

    const Manners manners_;
    std::mutex mutex_;
    std::vector<std::string> received_;
};

const Manners allManners[] = {
    {.name = "Plain"},
    {.name = "CrLf", .lineEnd = "\r\n"},
    {.name = "ByteByByte", .lineEnd = "\r\n", .packet = 1, .pauseMs = 1},
    {.name = "Slow", .lateMs = 120},
    {.name = "SlowInPieces", .lineEnd = "\r\n", .packet = 7, .pauseMs = 30, .lateMs = 80},
    {.name = "Together", .gatheredMs = 100},
    {.name = "ALineForEachOfJoinedQueries", .joined = Joined::InALineEach},
    {.name = "OnlyTheFirstOfJoinedQueries", .joined = Joined::OnlyTheFirst},
    {.name = "Banner", .banner = "LOAD 2 remote interface\r\nType HELP for help.\r\n\r\n", .lineEnd = "\r\n"},
    {.name = "BannerOfFields", .banner = "LOAD 2, remote interface, 2 channels, ready\r\n", .lineEnd = "\r\n"},
};

class ForeignServerTest : public TcpControlTest, public testing::WithParamInterface<Manners> {
protected:
    ForeignServerTest()
    {
        EXPECT_TRUE(connectTo(server.port())) << status();
        control.PanelActive(false);
    }
    ~ForeignServerTest() override
    {
        QFile::remove(realPath(staging::screen));
        QFile::remove(realPath(staging::sequence));
    }

    static QByteArray contentOf(const QString& literal)
    {
        QFile file(realPath(literal));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no such file");
    }
    void expectRightAnswers()
    {
        EXPECT_EQ(askUntilAnswered(":FETC:ALLV?"), volts);
        EXPECT_EQ(askUntilAnswered(":FETC:ALLC?"), amperes);
    }

    const QString volts = QStringLiteral("12.0000,5.0000");
    const QString amperes = QStringLiteral("1.5000,0.2500");
    ForeignLoad load{GetParam()};
    FaultyServer server{[this](ClientConnection& client) { load.serve(client); }};
};

TEST_P(ForeignServerTest, TheInstrumentIsIdentifiedAndSized)
{
    EXPECT_EQ(page().lblMaker.caption(), "OTHER");
    EXPECT_EQ(page().lblModel.caption(), "LOAD 2");
    EXPECT_EQ(page().lblSerialNumber.caption(), "77");
    EXPECT_EQ(page().lblFirmware.caption(), "3.1");
    EXPECT_EQ(control.ChannelCount(), 2);
}

TEST_P(ForeignServerTest, EachAnswerIsUnderItsQuery)
{
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(ask(":FETC:ALLV?"), volts);
        EXPECT_EQ(ask(":FETC:ALLC?"), amperes);
    }
}

TEST_P(ForeignServerTest, ACallerInHasteGetsTheRightAnswerOrNone)
{
    for (int i = 0; i < 6; ++i) {
        send(":FETC:ALLV?");
        EXPECT_THAT(control.Reply(), AnyOf(volts, QString()));
        send(":CURR1 1");
        send(":FETC:ALLC?");
        EXPECT_THAT(control.Reply(), AnyOf(amperes, QString()));
    }
    expectRightAnswers();
}

TEST_P(ForeignServerTest, AnUnknownQueryTakesNoOthersAnswer)
{
    send(":NOPE?");
    EXPECT_EQ(control.Reply(), "");
    send(":FETC:ALLV?");
    EXPECT_THAT(control.Reply(), AnyOf(volts, QString()));
    expectRightAnswers();
}

TEST_P(ForeignServerTest, BlocksFullOfLineEndsAreFetchedWholeAndTheNextAnswerIsRight)
{
    EXPECT_TRUE(control.GrabScreen());
    EXPECT_TRUE(contentOf(staging::screen) == load.picture);
    control.FetchSequenceFile();
    EXPECT_TRUE(contentOf(staging::sequence) == load.sequenceFile);
    expectRightAnswers();
}

TEST_P(ForeignServerTest, CommandsArriveInTheirOrderAmongQueries)
{
    const std::size_t before = load.received().size();
    send(":MODE1 CC");
    send(":CURR1 1");
    EXPECT_EQ(ask(":FETC:ALLC?"), amperes);
    send(":LOAD1 OFF");
    EXPECT_EQ(ask(":FETC:ALLC?"), amperes);

    std::vector<std::string> received = load.received();
    received.erase(received.begin(), received.begin() + static_cast<std::ptrdiff_t>(before));
    std::erase_if(received, [](const std::string& line) { return line.starts_with("*IDN?"); });
    EXPECT_THAT(received, ElementsAreArray({":MODE1 CC", ":CURR1 1", ":FETC:ALLC?", ":LOAD1 OFF", ":FETC:ALLC?"}));
}

TEST_P(ForeignServerTest, AReconnectFindsTheInstrumentAgain)
{
    control.Reconnect();

    EXPECT_TRUE(control.IsConnected());
    EXPECT_EQ(page().lblModel.caption(), "LOAD 2");
    EXPECT_EQ(ask(":FETC:ALLV?"), volts);
}

TEST_P(ForeignServerTest, TheControlPageShowsItsReadings)
{
    control.ShowControlPage();
    const auto cards = [this]() -> auto&
    {
        return control.controlPage.cards;
    };
    EXPECT_TRUE(waitUntil([&] {
        return cards().at(0)->lblVolts.caption().startsWith("12.0") &&
               cards().at(1)->lblAmperes.caption().startsWith("0.25") && cards().at(1)->lblState.caption() == "OFF";
    })) << cards().at(0)->lblVolts.caption().toStdString();
}

INSTANTIATE_TEST_SUITE_P(Ways, ForeignServerTest, testing::ValuesIn(allManners),
                         [](const auto& instance) { return std::string(instance.param.name); });

} // namespace

} // namespace orb
