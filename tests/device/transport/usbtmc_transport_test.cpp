// SPDX-License-Identifier: GPL-3.0-or-later
#include "usbtmc_transport.h"

#include "serial_line.h"
#include "tcp_control.h"

#include <gtest/gtest.h>

#include <mutex>
#include <thread>

namespace orb {

/// A pseudo terminal stands for the device file: it too is read when an answer is due, and blocks until it has come.
class UsbtmcTransportTest : public testing::Test {
protected:
    QByteArray readLine()
    {
        QByteArray bytes;
        while (!bytes.endsWith('\n') && transport.waitReadable(generousMs))
            bytes += transport.read();
        return bytes;
    }

    std::string answerTo(const std::string& message)
    {
        const std::scoped_lock lock(mutex);
        received.push_back(message);
        return message == "*IDN?" ? answer : std::string();
    }

    std::mutex mutex;
    std::vector<std::string> received;
    std::string answer = "answer\n";
    SerialLine line{[this](const std::string& message) { return answerTo(message); }};
    UsbtmcTransport transport{line.device()};
};

TEST_F(UsbtmcTransportTest, AQueryIsAnswered)
{
    ASSERT_TRUE(transport.open(0));

    EXPECT_TRUE(transport.write("*IDN?\n"));
    EXPECT_TRUE(transport.flush(generousMs));

    EXPECT_EQ(readLine(), "answer\n");
    EXPECT_EQ(transport.read(), "");
    EXPECT_FALSE(transport.waitReadable(0));
    EXPECT_EQ(transport.state(), Transport::State::Open);
}

TEST_F(UsbtmcTransportTest, AnAnswerWhoseMessageEndsWithoutALineFeedGetsOne)
{
    answer = "answer";
    ASSERT_TRUE(transport.open(0));
    transport.write("*IDN?\n");
    EXPECT_EQ(readLine(), "answer\n");
}

TEST_F(UsbtmcTransportTest, NothingIsReadWhereNoAnswerIsDue)
{
    ASSERT_TRUE(transport.open(0));
    transport.write(":LOAD ON\n");
    transport.write(":MMEM:DATA \"a\",#11?\n"); // the mark is a byte of the block
    ASSERT_TRUE(transport.flush(generousMs));
    line.say("not asked for\n");

    EXPECT_FALSE(transport.waitReadable(50));
    transport.write("*IDN?\n");
    EXPECT_TRUE(readLine().startsWith("not asked for"));
}

TEST_F(UsbtmcTransportTest, ADeviceThatIsPulledEndsTheLink)
{
    ASSERT_TRUE(transport.open(0));
    line.unplug();

    transport.write("*IDN?\n");

    while (transport.waitReadable(generousMs))
        EXPECT_EQ(transport.read(), "");
    EXPECT_EQ(transport.state(), Transport::State::Closed);
    EXPECT_EQ(transport.error(), LinkError::Broken);
    EXPECT_FALSE(transport.write("b\n"));
}

TEST_F(UsbtmcTransportTest, ADeviceThatIsPulledEndsTheLinkThoughNothingIsSent)
{
    ASSERT_TRUE(transport.open(0));
    EXPECT_EQ(transport.state(), Transport::State::Open);
    line.unplug();

    EXPECT_EQ(transport.state(), Transport::State::Closed);
    EXPECT_EQ(transport.error(), LinkError::Broken);
}

TEST_F(UsbtmcTransportTest, AWaitEndsWhenTheDeviceIsPulled)
{
    ASSERT_TRUE(transport.open(0));
    std::thread pull([&] { line.unplug(); });
    QElapsedTimer timer;
    timer.start();
    EXPECT_FALSE(transport.waitReadable(generousMs));
    EXPECT_LT(timer.elapsed(), generousMs);
    pull.join();
}

TEST_F(UsbtmcTransportTest, AMissingDeviceIsReported)
{
    for (const char* file : {"", "/dev/no-such-usbtmc"}) {
        UsbtmcTransport missing{QString::fromLatin1(file)};
        missing.begin();
        EXPECT_EQ(missing.state(), Transport::State::Closed);
        EXPECT_EQ(missing.error(), LinkError::NoDevice);
    }
}

TEST_F(UsbtmcTransportTest, AnInstrumentThatTakesNothingMoreEndsTheLink)
{
    ASSERT_TRUE(transport.open(0));
    transport.write("?\n");
    answer.clear(); // the read for it blocks, and nothing more is sent
    int writes = 0;
    while (transport.write(QByteArray(64 * 1024, 'x') + '?'))
        ASSERT_LT(++writes, 1000);
    EXPECT_EQ(transport.error(), LinkError::Broken);
}

TEST_F(UsbtmcTransportTest, AClosedLinkHasNoErrorThoughItsReadStillWaits)
{
    answer.clear();
    ASSERT_TRUE(transport.open(0));
    transport.write("*IDN?\n");
    ASSERT_TRUE(transport.flush(generousMs));

    transport.close();

    EXPECT_EQ(transport.state(), Transport::State::Closed);
    EXPECT_EQ(transport.error(), LinkError::None);
    EXPECT_FALSE(transport.write("b\n"));
    EXPECT_EQ(transport.read(), "");
}

} // namespace orb
