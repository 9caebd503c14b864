// SPDX-License-Identifier: GPL-3.0-or-later
#include "page_test.h"

#include "form_orb.h"
#include "real_clock.h"

#include <QCoreApplication>
#include <QProcess>

#include <cstdio>

using namespace orb;

namespace {

constexpr const char* folderVariable = "ORB_TEST_APPLICATION";
constexpr int limitMs = 60'000;

/// The other process: the main form over the folder that it is told, recording until it is killed. Before each sample
/// it says how many rows the grid shows.
TEST(RecordingProcess, DISABLED_RecordsUntilItIsKilled)
{
    RecordedExit processExit;
    orb::Run run(processExit);
    RealClock clock(run);
    ScriptedDialogs dialogs;
    const Paths paths(qEnvironmentVariable(folderVariable));
    FakeORBCtrl instrument;
    FormORB form(clock, dialogs, paths, instrument);
    instrument.connected = true;
    instrument.channelCount = 8;
    instrument.onCommand = [&](const QString& query) {
        if (query == ":FETC:ALLC?") {
            std::printf("shown %lld\n", static_cast<long long>(form.frmDatalog.DataLog.rowCount()));
            std::fflush(stdout);
        }
        return QStringLiteral("1.1,2.1,3.1,4.1,5.1,6.1,7.1,8.1,");
    };
    run.enter([&] { form.FormLoad(); });
    run.enter([&] { form.pageWaveClick(); });
    form.show();
    press(form.frmDatalog.logStart);
}

class KillTest : public PageTest {
protected:
    /// Starts the recording in another process and kills it once so many rows are shown. The rows shown by then.
    qint64 recordAndKill(qint64 rows)
    {
        QProcess process;
        auto environment = QProcessEnvironment::systemEnvironment();
        environment.insert(folderVariable, application.path());
        process.setProcessEnvironment(environment);
        process.start(QCoreApplication::applicationFilePath(),
                      {"--gtest_also_run_disabled_tests", "--gtest_filter=RecordingProcess.*"});
        qint64 shown = 0;
        while (shown < rows && process.waitForReadyRead(limitMs))
            while (process.canReadLine())
                if (const QByteArray line = process.readLine(); line.startsWith("shown "))
                    shown = line.mid(6).trimmed().toLongLong();
        process.kill(); // SIGKILL where there are signals
        process.waitForFinished();
        return shown;
    }
};

TEST_F(KillTest, EveryRowThatTheGridHadShownOutlivesAKilledProcessAndTheDatabaseOpensAgain)
{
    const qint64 shown = recordAndKill(3);

    ASSERT_GE(shown, 3);
    Workspace workspace([this] { return clock.now(); });
    const auto database = workspace.openDatabase(databasePath());
    EXPECT_GE(database->openRecordset("select count(*) from DataMeasure")->field(0).toDouble(), shown);
    EXPECT_EQ(table("pragma integrity_check"), "ok\n");
    EXPECT_EQ(table("select SeqNo,PVal8 from DataMeasure where SeqNo<3"), "0|8.1\n1|8.1\n2|8.1\n");
}

} // namespace
