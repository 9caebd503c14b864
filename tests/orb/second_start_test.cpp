// SPDX-License-Identifier: GPL-3.0-or-later
#include "program_process.h"

#include <algorithm>
#include <array>

using namespace orb;

namespace {

const QByteArray runsAlready = "ZN ORB Device is running already.\n";

class SecondStartTest : public testing::Test {
protected:
    QByteArray database() const
    {
        QFile file(folder.filePath("orb.mdb"));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    ProgramFolder folder;
    ProgramProcess first{folder};
    ProgramProcess second{folder};
};

TEST_F(SecondStartTest, ASecondStartSaysThatTheProgramIsRunningBringsItsWindowToTheFrontAndEnds)
{
    first.start("operated-program");
    ASSERT_TRUE(first.waitFor("started"));
    ASSERT_FALSE(first.output().contains("in front")) << "the window is minimized at first";

    second.start("orb");

    EXPECT_TRUE(second.waitFor(runsAlready + "Its window is in front now.\n"));
    EXPECT_TRUE(first.waitFor("in front"));
    EXPECT_EQ(second.exitStatus(), 0);
    EXPECT_TRUE(first.isRunning());
}

TEST_F(SecondStartTest, ASecondStartLeavesTheDatabaseAlone)
{
    first.start("operated-program");
    ASSERT_TRUE(first.waitFor("started"));
    // What no program could open: a start that touched the database would report it.
    ASSERT_TRUE(QFile::rename(folder.filePath("orb.mdb"), folder.filePath("aside.mdb")));
    QFile other(folder.filePath("orb.mdb"));
    ASSERT_TRUE(other.open(QIODevice::WriteOnly) && other.write("no database") > 0);
    other.close();

    second.start("orb");

    EXPECT_EQ(second.exitStatus(), 0);
    EXPECT_FALSE(second.errors().contains("Run-time error"));
    EXPECT_EQ(database(), "no database");
}

TEST_F(SecondStartTest, TheProgramForServiceSharesTheLock)
{
    first.start("operated-program");
    ASSERT_TRUE(first.waitFor("started"));

    second.start("orb-service");

    EXPECT_TRUE(second.waitFor(runsAlready));
}

TEST_F(SecondStartTest, ALockLeftByAKilledProgramIsNoObstacle)
{
    first.start("operated-program");
    ASSERT_TRUE(first.waitFor("started"));
    first.kill();
    ASSERT_TRUE(QFile::exists(folder.filePath("orb.mdb.lock")));

    second.start("operated-program");
    EXPECT_TRUE(second.waitFor("started"));

    first.start("orb");
    EXPECT_TRUE(first.waitFor(runsAlready)) << "the second one holds the lock now";
    EXPECT_TRUE(second.waitFor("in front")) << "and is the one that is reached";
}

TEST_F(SecondStartTest, OfStartsAtTheSameMomentOneRuns)
{
    ProgramProcess third{folder};
    const std::array<ProgramProcess*, 3> programs{&first, &second, &third};
    for (ProgramProcess* program : programs)
        program->start("operated-program");
    for (ProgramProcess* program : programs)
        EXPECT_TRUE(program->waitForEither("started", runsAlready));

    const auto count = [&](const QByteArray& text) {
        return std::count_if(programs.begin(), programs.end(), [&](ProgramProcess* program) {
            return program->output().contains(text) || program->errors().contains(text);
        });
    };
    EXPECT_EQ(count("started"), 1);
    EXPECT_EQ(count(runsAlready + "Its window is in front now.\n"), 2) << "though it may have been about to listen";
}

} // namespace
