// SPDX-License-Identifier: GPL-3.0-or-later
#include "session_fixture.h"

namespace orb {

namespace {

/// A remote end that never stops sending.
struct Flood final : Transport {
    Flood(Clock& theClock, const QByteArray& theLine) : clock(theClock), line(theLine) {}

    void begin() override {}
    bool open(int) override { return true; }
    void close() override {}
    State state() override { return State::Open; }
    LinkError error() const override { return LinkError::None; }
    bool write(const QByteArray&) override { return true; }
    bool flush(int) override { return true; }
    QByteArray read() override
    {
        ++reads;
        if (msARead > 0)
            clock.sleep(msARead);
        return line.repeated(longestRead / line.size());
    }
    bool waitReadable(int) override { return true; }

    Clock& clock;
    QByteArray line;
    int msARead = 0;
    int reads = 0;
};

class SessionFloodTest : public SessionTest {};

} // namespace

TEST_F(SessionFloodTest, APollOfAFloodIsBoundedInBytes)
{
    for (const char* text : {"\n", "x", "x\n", "#9004000000"}) {
        Flood flood(clock, text);
        Session talk(clock, flood);
        talk.poll();
        EXPECT_LE(flood.reads, 5) << text;
        EXPECT_EQ(talk.answer(Requester::Application), std::nullopt) << text;
    }
}

TEST_F(SessionFloodTest, APollOfAFloodIsBoundedInTime)
{
    Flood flood(clock, "\n");
    flood.msARead = 15;
    Session talk(clock, flood);
    talk.poll();
    EXPECT_EQ(flood.reads, 2);
}

TEST_F(SessionFloodTest, AReplyInAFloodIsBoundedInTime)
{
    Flood flood(clock, "\n");
    flood.msARead = 1;
    Session talk(clock, flood);
    talk.send(Requester::Application, "a?");
    const qint64 begin = clock.elapsed();
    talk.awaitAnswer(Requester::Application, 50);
    EXPECT_LE(clock.elapsed() - begin, 50 + Session::longestPollMs);
}

TEST_F(SessionFloodTest, ABlockThatComesWithoutEndEndsAtTheLimit)
{
    Flood flood(clock, "#9004000000");
    flood.msARead = 15;
    Session talk(clock, flood);
    EXPECT_EQ(talk.fetchBlock("screen?", 1000), std::nullopt);
    EXPECT_LE(clock.elapsed(), 1000 + 2 * Session::longestPollMs);
}

} // namespace orb
