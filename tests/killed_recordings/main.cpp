// SPDX-License-Identifier: GPL-3.0-or-later
// Kills recordings at random moments, from the first instruction of a start on, and looks for each row that was shown.
//
//     killed-recordings [KILLS [SEED]]        1000 kills, and a seed that it prints, where nothing is given
#include "directories.h"
#include "kept_rows.h"
#include "recorder.h"

#include <QApplication>
#include <QDeadlineTimer>
#include <QElapsedTimer>
#include <QProcess>
#include <QRandomGenerator>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QThread>

#include <algorithm>
#include <cstdio>
#include <stdexcept>

using namespace orb;

namespace {

constexpr int limitMs = 60'000;
constexpr int longestRecordingMs = 400;
/// Fewer than the files that `recovered` keeps.
constexpr int rememberedRuns = 10;

void require(bool condition, const QString& what)
{
    if (!condition)
        throw std::runtime_error(what.toStdString());
}

/// The program deletes the oldest of these files.
void copyWithTime(const QFileInfo& from, const QString& to)
{
    QFile::copy(from.filePath(), to);
    QFile copy(to);
    require(copy.open(QIODevice::ReadWrite) && copy.setFileTime(from.lastModified(), QFileDevice::FileModificationTime),
            to + QStringLiteral(" can not be copied"));
}

void copyFolder(const QDir& from, const QDir& to)
{
    QDir(to.path()).removeRecursively();
    to.mkpath(QStringLiteral("recovered"));
    for (const char* name : {"orb.mdb", "orb.mdb-wal", "ORBScrBtn.dat", "orbCommands.dat", "OrbEmpty.jpg"})
        QFile::copy(from.filePath(QLatin1String(name)), to.filePath(QLatin1String(name)));
    QFile::link(from.filePath(QStringLiteral("ICON")), to.filePath(QStringLiteral("ICON")));
    for (const QFileInfo& file : QDir(from.filePath(QStringLiteral("recovered"))).entryInfoList(QDir::Files))
        copyWithTime(file, to.filePath("recovered/" + file.fileName()));
}

class Kills {
public:
    explicit Kills(quint32 seed) : random_(seed) { copyFolder(QDir(binaryDirectory()), application_); }

    /// One kill, and what must hold after it.
    void kill(int run)
    {
        const QString where = QStringLiteral("kill %1: ").arg(run);
        shown_[run] = recordAndKill(run);
        shown_.erase(run - rememberedRuns);
        copyFolder(application_, copy_); // the checks change nothing that the next start meets
        requireRows(where + QStringLiteral("after it: "));
        copyFolder(application_, copy_);
        require(start(), where + QStringLiteral("the next start failed"));
        requireRows(where + QStringLiteral("after the next start: "));
    }

    void printResult(int kills) const
    {
        std::printf(
            "%d kills, %d of them during a start: %lld rows shown, all of them kept; integrity ok after each kill "
            "and after each next start; each next start worked\n",
            kills, killsDuringStart_, static_cast<long long>(rowsShown_));
    }

private:
    /// The rows that were shown by then.
    int recordAndKill(int run)
    {
        const bool duringStart = random_.bounded(3) == 0;
        QProcess process;
        QElapsedTimer sinceStart;
        sinceStart.start();
        process.start(QCoreApplication::applicationFilePath(), {"--record", application_.path(), QString::number(run)});
        process.waitForStarted(limitMs);
        if (!duringStart)
            require(waitForLine(process, "started"), QStringLiteral("kill %1: it did not start").arg(run));
        const int moment = random_.bounded(duringStart ? startMs_ : longestRecordingMs);
        // On a busy machine the moment of a start may be over; a deadline below zero would never come.
        const QDeadlineTimer deadline(std::max<qint64>(0, duringStart ? moment - sinceStart.elapsed() : moment));
        while (!deadline.hasExpired())
            process.waitForReadyRead(static_cast<int>(deadline.remainingTime()));
        require(process.state() == QProcess::Running, QStringLiteral("run %1 ended by itself").arg(run));
        process.kill();
        process.waitForFinished(limitMs);
        output_ += process.readAll();
        const int rows = lastShown();
        killsDuringStart_ += output_.contains("started\n") ? 0 : 1;
        rowsShown_ += rows;
        output_.clear();
        return rows;
    }

    bool waitForLine(QProcess& process, const QByteArray& line)
    {
        const QDeadlineTimer deadline(limitMs);
        while (!output_.contains(line + '\n') && process.state() == QProcess::Running && !deadline.hasExpired()) {
            process.waitForReadyRead(20);
            output_ += process.readAll();
        }
        return output_.contains(line + '\n');
    }

    /// The number on the last whole line "shown N".
    int lastShown() const
    {
        const QByteArray whole = output_.left(output_.lastIndexOf('\n') + 1);
        const qsizetype at = whole.lastIndexOf("shown ");
        return at < 0 ? 0 : whole.mid(at + 6, whole.indexOf('\n', at) - at - 6).toInt();
    }

    bool start()
    {
        QProcess process;
        QElapsedTimer took;
        took.start();
        process.start(QCoreApplication::applicationFilePath(), {"--start", copy_.path()});
        const bool ended = process.waitForFinished(limitMs);
        startMs_ = static_cast<int>(took.elapsed()) + 1;
        return ended && process.exitStatus() == QProcess::NormalExit && process.exitCode() == EXIT_SUCCESS;
    }

    void requireRows(const QString& when)
    {
        require(integrityOf(copy_) == QStringLiteral("ok"), when + QStringLiteral("the database is damaged"));
        const KeptRows kept = keptRows(copy_);
        for (const auto& [run, rows] : shown_)
            for (int row = 0; row < rows; ++row)
                require(kept.count(run) != 0 && kept.at(run).count(row) != 0,
                        when + QStringLiteral("row %1 of run %2 is missing").arg(row).arg(run));
    }

    QTemporaryDir folder_;
    QDir application_{folder_.filePath(QStringLiteral("application"))};
    QDir copy_{folder_.filePath(QStringLiteral("copy"))};
    QRandomGenerator random_;
    std::map<int, int> shown_; ///< by run, of the latest runs
    QByteArray output_;
    int startMs_ = 500;
    int killsDuringStart_ = 0;
    qint64 rowsShown_ = 0;
};

int killAll(int kills, quint32 seed)
{
    std::printf("seed %u\n", seed);
    try {
        Kills killing(seed);
        for (int run = 1; run <= kills; ++run) {
            killing.kill(run);
            if (run % 100 == 0)
                std::printf("%d\n", run);
            std::fflush(stdout);
        }
        killing.printResult(kills);
        return EXIT_SUCCESS;
    } catch (const std::exception& failure) {
        std::printf("FAILED: %s\n", failure.what());
        return EXIT_FAILURE;
    }
}

} // namespace

int main(int argc, char** argv)
{
    QStandardPaths::setTestModeEnabled(true); // nothing goes to the user's own folders
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.value(1) == QStringLiteral("--record"))
        return record(arguments.value(2), arguments.value(3).toInt());
    if (arguments.value(1) == QStringLiteral("--start"))
        return startOnly(arguments.value(2));
    constexpr int usualKills = 1000;
    return killAll(arguments.size() > 1 ? arguments[1].toInt() : usualKills,
                   arguments.size() > 2 ? arguments[2].toUInt() : QRandomGenerator::global()->generate());
}
