// SPDX-License-Identifier: GPL-3.0-or-later
#include "database_fixture.h"

#include <csignal>
#include <sys/wait.h>
#include <unistd.h>

using namespace orb;

namespace {

/// Inserts one sample after another and writes its number to `out` when the statement has returned. Never returns.
[[noreturn]] void record(const QString& path, int out)
{
    try {
        Workspace workspace([] { return QDateTime(); });
        const auto database = workspace.openDatabase(path);
        for (int sample = 0;; ++sample) {
            database.execute(QString("insert into DataMeasure (SeqNo,RecTime,PVal1,SVal1)  "
                                     "values(%1,'2024/01/31 10:15:09',1.2340,12.00)")
                                 .arg(sample));
            if (write(out, &sample, sizeof sample) != sizeof sample)
                _exit(1);
        }
    } catch (const RuntimeFailure&) {
        _exit(1);
    }
}

/// Reads the sample numbers from `in`, kills the recorder after number `enough`, and reads the rest. Returns the last
/// one.
int killAfter(int enough, pid_t recorder, int in)
{
    int last = -1;
    int sample = 0;
    while (read(in, &sample, sizeof sample) == sizeof sample) {
        last = sample;
        if (last == enough)
            kill(recorder, SIGKILL);
    }
    int status = 0;
    waitpid(recorder, &status, 0);
    EXPECT_TRUE(WIFSIGNALED(status));
    return last;
}

class DurabilityTest : public DatabaseTest, public testing::WithParamInterface<int> {};

TEST_P(DurabilityTest, AKilledRecordingLosesNoRowWhoseStatementReturned)
{
    workspace.close(); // a connection must not be used after a fork
    std::array<int, 2> ends{};
    ASSERT_EQ(pipe(ends.data()), 0);
    const pid_t recorder = fork();
    if (recorder == 0)
        record(path, ends[1]);
    close(ends[1]);
    const int last = killAfter(GetParam(), recorder, ends[0]);
    close(ends[0]);

    database = workspace.openDatabase(path);
    const std::string count = rows("select count(*),max(SeqNo)+1,min(PVal1) from DataMeasure");
    const std::string all = std::to_string(last + 1) + "|" + std::to_string(last + 1) + "|1.2340\n";
    const std::string andOneMore = std::to_string(last + 2) + "|" + std::to_string(last + 2) + "|1.2340\n";
    EXPECT_THAT(count, testing::AnyOf(all, andOneMore)); // killed before it could report the last one
    EXPECT_EQ(rows("select * from pragma_integrity_check"), "ok\n");
    addSamples(1, last + 2);
}

// The second one goes on past the first time that the log beside the file is moved into the file.
INSTANTIATE_TEST_SUITE_P(Samples, DurabilityTest, testing::Values(7, 1100));

} // namespace
