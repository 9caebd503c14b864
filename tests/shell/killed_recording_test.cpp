// SPDX-License-Identifier: GPL-3.0-or-later
#include "directories.h"
#include "page_test.h"
#include "workspace.h"

#include <QProcess>

using namespace orb;

namespace {

constexpr int limitMs = 60'000;

class KilledRecordingTest : public PageTest {
protected:
    /// Starts a recording in another process and kills it once so many rows are shown. The rows shown by then.
    qint64 recordAndKill(qint64 rows) const
    {
        QProcess process;
        process.start(binaryDirectory() + "/endless-recording", {application.path()});
        qint64 shown = 0;
        while (shown < rows && process.waitForReadyRead(limitMs))
            while (process.canReadLine())
                if (const QByteArray line = process.readLine(); line.startsWith("shown "))
                    shown = line.mid(6).trimmed().toLongLong();
        process.kill();
        process.waitForFinished();
        return shown;
    }
};

TEST_F(KilledRecordingTest, EveryRowThatTheGridHadShownOutlivesTheProcessAndTheDatabaseOpensAgain)
{
    const qint64 shown = recordAndKill(3);

    ASSERT_GE(shown, 3);
    Workspace workspace([this] { return clock.now(); });
    const auto database = workspace.openDatabase(databasePath());
    EXPECT_GE(database.openRecordset("select count(*) from DataMeasure")->field(0).toDouble(), shown);
    EXPECT_EQ(table("pragma integrity_check"), "ok\n");
    EXPECT_EQ(table("select SeqNo,PVal8 from DataMeasure where SeqNo<3"), "0|8.1\n1|8.1\n2|8.1\n");
}

} // namespace
