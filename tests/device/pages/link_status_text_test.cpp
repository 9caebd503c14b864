// SPDX-License-Identifier: GPL-3.0-or-later
#include "link_status_text.h"

#include "faulty_transport.h"
#include "recorded_exit.h"
#include "virtual_clock.h"

#include <gmock/gmock.h>

namespace orb {

namespace {

/// A link to a scripted instrument, on virtual time.
struct Scene {
    explicit Scene(ConnectLimits limits = {}) : link(clock, limits) {}

    RecordedExit processExit;
    Run run{processExit};
    VirtualClock clock{run};
    ScriptedLine line{clock};
    TransportFaults faults;
    InstrumentLink link;

    /// Begins to connect and steps for `ms`.
    void connect(int ms = 0)
    {
        link.start(std::make_unique<FaultyTransport>(line, faults));
        stepFor(ms);
    }
    void stepFor(int ms)
    {
        link.step(true);
        clock.advance(ms);
        link.step(true);
    }
    void failWith(LinkError error, const char* errorText = "")
    {
        line.openError = error;
        faults.errorText = QString::fromLatin1(errorText);
        connect();
    }
    /// Every query is answered with the next of `answers`; what is left over stays unanswered.
    void connectWith(QList<QByteArray> answers)
    {
        line.onLine = [this, answers](const QByteArray&) mutable {
            if (!answers.isEmpty())
                line.say(answers.takeFirst() + '\n');
        };
        connect(2000);
        stepFor(2000);
    }
    void goUp(const char* channels = "8") { connectWith({"ZN,ORB3000,1,1.0", channels}); }
    void lose(LinkError error, const char* errorText = "")
    {
        goUp();
        faults.errorText = QString::fromLatin1(errorText);
        faults.lostBy = error;
        link.isUp();
    }
};

struct State {
    const char* name;
    std::function<void(Scene&)> reach;
};

const std::vector<State> states{
    {"never", [](Scene&) {}},
    {"connecting",
     [](Scene& scene) {
         scene.line.opensAfter = std::nullopt;
         scene.connect();
     }},
    {"identifying", [](Scene& scene) { scene.connect(); }},
    {"sizing",
     [](Scene& scene) {
         scene.line.onLine = [&](const QByteArray& text) { scene.line.say(text == "*IDN?" ? "a,b,c,d\n" : ""); };
         scene.connect();
     }},
    {"up", [](Scene& scene) { scene.goUp(); }},
    {"one channel", [](Scene& scene) { scene.goUp("1"); }},
    {"long name",
     [](Scene& scene) {
         scene.connectWith({QByteArray(30, 'M') + ',' + QByteArray(30, 'N') + ",,", "8"});
     }},
    {"no host", [](Scene& scene) { scene.failWith(LinkError::HostNotFound); }},
    {"refused", [](Scene& scene) { scene.failWith(LinkError::Refused); }},
    {"unreachable", [](Scene& scene) { scene.failWith(LinkError::Unreachable, "No route"); }},
    {"unreachable without a reason", [](Scene& scene) { scene.failWith(LinkError::Unreachable); }},
    {"closed while connecting", [](Scene& scene) { scene.failWith(LinkError::ClosedRemotely); }},
    {"broken while connecting", [](Scene& scene) { scene.failWith(LinkError::Broken, "Odd %1"); }},
    {"bad address", [](Scene& scene) { scene.failWith(LinkError::BadAddress); }},
    {"timed out",
     [](Scene& scene) {
         scene.line.opensAfter = std::nullopt;
         scene.connect(5000);
     }},
    {"silent", [](Scene& scene) { scene.connect(2000); }},
    {"no instrument",
     [](Scene& scene) {
         scene.connectWith({"HTTP/1.1 %1 %2", "again"});
     }},
    {"blank",
     [](Scene& scene) {
         scene.connectWith({"", ""});
     }},
    {"closed", [](Scene& scene) { scene.lose(LinkError::ClosedRemotely); }},
    {"broken", [](Scene& scene) { scene.lose(LinkError::Broken, "Reset"); }},
    {"broken without a reason", [](Scene& scene) { scene.lose(LinkError::Broken); }},
    {"cancelled",
     [](Scene& scene) {
         scene.connect();
         scene.link.drop();
     }},
    {"disconnected",
     [](Scene& scene) {
         scene.goUp();
         scene.link.drop();
     }},
};

std::string text(const StatusLine& status)
{
    static const char* const tones[] = {"neutral", "busy", "good", "bad"};
    return std::string(tones[static_cast<int>(status.tone)]) + ": " + status.text.toStdString();
}

/// A line for each state.
std::string table(const std::function<StatusLine(const InstrumentLink&)>& statusOf)
{
    std::string lines;
    for (const State& state : states) {
        Scene scene;
        state.reach(scene);
        lines += std::string(state.name) + " | " + text(statusOf(scene.link)) + "\n";
    }
    return lines;
}

} // namespace

TEST(LinkStatusTextTest, EveryStateOfALinkHasItsStatus)
{
    const QString name = QStringLiteral("the load");
    EXPECT_EQ("\n" + table([&](const InstrumentLink& link) { return linkStatus(link, name); }), R"(
never | neutral: Not connected. Choose the link and press Connect.
connecting | busy: Connecting to the load...
identifying | busy: The load took the connection. Asking what it is...
sizing | busy: The load is an instrument. Asking for its channels...
up | good: Connected to the load.
one channel | good: Connected to the load.
long name | good: Connected to the load.
no host | bad: The load was not found: no host has this name. Check it, or give the address in numbers.
refused | bad: The load refused the connection. The host is there, but nothing takes connections at this port.
unreachable | bad: The load can't be reached from this network: No route.
unreachable without a reason | bad: The load can't be reached from this network.
closed while connecting | bad: The load closed the connection before it identified itself.
broken while connecting | bad: The link to the load failed: Odd %1.
bad address | bad: The link to the load failed.
timed out | bad: The load did not answer within 5 seconds. Is it switched on, and is this its address?
silent | bad: The load took the connection, but did not answer *IDN? within 2 seconds. Is it an instrument?
no instrument | bad: The load answered, but not as an instrument does. It said: "HTTP/1.1 %1 %2"
blank | bad: The load took the connection, but did not answer *IDN? within 2 seconds. Is it an instrument?
closed | bad: The load closed the link.
broken | bad: The link to the load broke: Reset.
broken without a reason | bad: The link to the load broke.
cancelled | neutral: Connecting was cancelled.
disconnected | neutral: Disconnected.
)");
}

TEST(LinkStatusTextTest, EveryStateOfALinkHasItsShortStatus)
{
    EXPECT_EQ("\n" + table(shortStatus), R"(
never | neutral: Not connected
connecting | busy: Connecting...
identifying | busy: Connecting...
sizing | busy: Connecting...
up | good: ZN ORB3000, 8 channels
one channel | good: ZN ORB3000, 1 channel
long name | good: MMMMMMMMMMMMMMMMMMMMMMMMMMMMMM NNNNNNNNN…, 8 channels
no host | neutral: Not connected: the last attempt failed
refused | neutral: Not connected: the last attempt failed
unreachable | neutral: Not connected: the last attempt failed
unreachable without a reason | neutral: Not connected: the last attempt failed
closed while connecting | neutral: Not connected: the last attempt failed
broken while connecting | neutral: Not connected: the last attempt failed
bad address | neutral: Not connected: the last attempt failed
timed out | neutral: Not connected: the last attempt failed
silent | neutral: Not connected: the last attempt failed
no instrument | neutral: Not connected: the last attempt failed
blank | neutral: Not connected: the last attempt failed
closed | bad: Not connected: the link was lost
broken | bad: Not connected: the link was lost
broken without a reason | bad: Not connected: the link was lost
cancelled | neutral: Not connected
disconnected | neutral: Not connected
)");
}

TEST(LinkStatusTextTest, ANameOfAHostStaysAsItIsWrittenAtTheBeginningOfASentence)
{
    Scene scene;
    scene.failWith(LinkError::ClosedRemotely);
    EXPECT_TRUE(linkStatus(scene.link, QStringLiteral("theta.lab")).text.startsWith(QStringLiteral("theta.lab ")));
    EXPECT_TRUE(linkStatus(scene.link, QStringLiteral("the load")).text.startsWith(QStringLiteral("The load ")));
}

TEST(LinkStatusTextTest, ALimitIsStatedInSeconds)
{
    for (const auto& [ms, text] : std::initializer_list<std::pair<int, const char*>>{
             {1000, " within 1 second."}, {1500, " within 1.5 seconds."}, {2000, " within 2 seconds."}}) {
        Scene scene({.identify = ms});
        scene.connect(ms);
        EXPECT_THAT(linkStatus(scene.link, QStringLiteral("load")).text.toStdString(), testing::HasSubstr(text));
    }
}

} // namespace orb
