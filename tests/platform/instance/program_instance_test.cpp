// SPDX-License-Identifier: GPL-3.0-or-later
#include "program_instance.h"

#include "file_lock.h"
#include "printing.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QDir>
#include <QTemporaryDir>

#include <gmock/gmock.h>

using namespace orb;
using testing::ElementsAre;

namespace {

/// Two of the same process are to each other as two processes: a lock belongs to the one that opened the file.
class ProgramInstanceTest : public testing::Test {
protected:
    void receiveRequests(ProgramInstance& instance)
    {
        instance.onShowRequest = [this](const QByteArray& token) { tokens.push_back(token); };
    }

    void waitForRequest()
    {
        const QDeadlineTimer deadline(60'000);
        for (const auto before = tokens.size(); tokens.size() == before && !deadline.hasExpired();)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 100);
    }

    QTemporaryDir folder;
    QString database = folder.filePath("orb.mdb");
    std::vector<QByteArray> tokens;
};

TEST_F(ProgramInstanceTest, TheFirstOneHoldsTheDatabaseUntilItIsGone)
{
    auto first = std::make_unique<ProgramInstance>(database);
    EXPECT_TRUE(first->isFirst());
    EXPECT_FALSE(ProgramInstance(database).isFirst());
    EXPECT_FALSE(ProgramInstance(database).isFirst()) << "a refused one leaves the lock alone";

    first.reset();
    EXPECT_TRUE(ProgramInstance(database).isFirst());
}

TEST_F(ProgramInstanceTest, AnotherDatabaseInTheSameFolderIsAnotherOne)
{
    const ProgramInstance first(database);

    EXPECT_TRUE(ProgramInstance(folder.filePath("other.mdb")).isFirst());
}

TEST_F(ProgramInstanceTest, ADatabaseIsTheSameByALinkToItsFolderAndInAnyLetterCase)
{
    ASSERT_TRUE(QFile(database).open(QIODevice::WriteOnly));
    const ProgramInstance first(database);
    ASSERT_TRUE(QFile::link(folder.path(), folder.filePath("link")));

    EXPECT_FALSE(ProgramInstance(folder.filePath("link/orb.mdb")).isFirst());
    EXPECT_FALSE(ProgramInstance(folder.path() + "\\ORB.MDB").isFirst());
}

TEST_F(ProgramInstanceTest, WhereThereCanBeNoLockEveryOneIsTheFirst)
{
    const ProgramInstance first(folder.filePath("none/orb.mdb"));

    EXPECT_TRUE(first.isFirst());
    EXPECT_TRUE(ProgramInstance(folder.filePath("none/orb.mdb")).isFirst());
}

TEST_F(ProgramInstanceTest, ARequestReachesTheFirstOneWithItsToken)
{
    ProgramInstance first(database);
    receiveRequests(first);

    EXPECT_TRUE(ProgramInstance(database).requestShow("token-1"));
    waitForRequest();
    EXPECT_TRUE(ProgramInstance(database).requestShow(""));
    waitForRequest();

    EXPECT_THAT(tokens, ElementsAre("token-1", ""));
}

TEST_F(ProgramInstanceTest, ARequestThatComesBeforeTheFirstOneReadsIsNotLost)
{
    ProgramInstance first(database);
    for (int i = 0; i < 3; ++i)
        EXPECT_TRUE(ProgramInstance(database).requestShow("early"));

    receiveRequests(first);
    waitForRequest();
    while (tokens.size() < 3)
        waitForRequest();

    EXPECT_THAT(tokens, ElementsAre("early", "early", "early"));
}

TEST_F(ProgramInstanceTest, ARequestThatNoOneTakesFails)
{
    const FileLock held(database + ".lock"); // by a program that never listens

    const ProgramInstance second(database);
    EXPECT_FALSE(second.isFirst());
    EXPECT_FALSE(second.requestShow(""));
}

} // namespace
