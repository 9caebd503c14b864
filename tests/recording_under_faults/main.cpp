// SPDX-License-Identifier: GPL-3.0-or-later
// Records over TCP on the Data Log page of the whole program, with a fault in an answer every ten seconds, and compares
// what was recorded with what the instrument sent. The socket, the session, the page, the database and the painting are
// the real ones; the time is virtual, so that sleeps take none.
#include "directories.h"
#include "polled_server.h"
#include "program.h"
#include "recorded_exit.h"
#include "scripted_dialogs.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <map>

#include <unistd.h>

namespace {

using namespace orb;

constexpr qint64 faultEveryMs = 10'000;
constexpr int longestMinutes = 24 * 60;
const QString timeFormat = QStringLiteral("yyyy/MM/dd HH:mm:ss");
/// From the first quarter of the recording to its end.
#ifdef __SANITIZE_ADDRESS__
constexpr double mostGrowthMiB = 1024; // the sanitizer keeps what was freed
#else
constexpr double mostGrowthMiB = 4;
#endif

/// The faults that a recording outlives.
const std::vector<FaultRule> survivable =
    FaultScript::parse("1 X late 150ms\n1 X late 350ms\n1 X split 4 60ms\n1 X crlf\n"
                       "1 X missing\n1 X after-next\n1 X late 450ms\n"
                       "1 X split 2 250ms\n1 X split 9 20ms\n")
        .rules();

double residentMiB()
{
    std::ifstream file("/proc/self/statm");
    long pages = 0;
    file >> pages >> pages;
    return static_cast<double>(pages * ::sysconf(_SC_PAGESIZE)) / 1024 / 1024;
}

/// The readings of all channels that the instrument has sent, and when.
struct Served {
    qint64 at;
    std::vector<double> values;
};

std::vector<double> numbersIn(const std::string& list)
{
    std::vector<double> values;
    for (const QString& field : QString::fromStdString(list).split(QLatin1Char(','), Qt::SkipEmptyParts))
        values.push_back(field.toDouble());
    return values;
}

/// The eight columns of a row that begin so.
std::vector<double> valuesOf(Recordset& row, QLatin1Char kind)
{
    std::vector<double> values;
    for (int channel = 1; channel <= 8; ++channel)
        values.push_back(row.field(kind + QStringLiteral("Val%1").arg(channel)).textOrEmpty().toDouble());
    return values;
}

/// An instrument that writes down what it has sent, and makes a fault every ten seconds: each in its turn, by turns in
/// the answers for the currents and for the voltages, but not in that to a query that is repeated.
class RecordingInstrument final : public FaultyInstrument {
public:
    explicit RecordingInstrument(const VirtualClock& clock)
        : FaultyInstrument({}, [&clock] { return std::chrono::milliseconds(clock.elapsed()); }), clock_(clock)
    {}

    std::map<std::string, std::vector<Served>> served;

protected:
    Fault faultOf(const std::string& message) override
    {
        const auto number = static_cast<std::size_t>(faultCount());
        const std::string query = number % 2 == 0 ? ":FETC:ALLC?" : ":FETC:ALLV?";
        const bool isRepeated = std::exchange(last_, message) == message;
        if (message != query || isRepeated || clock_.elapsed() < nextAt_)
            return {};
        nextAt_ = clock_.elapsed() + faultEveryMs;
        return survivable[number / 2 % survivable.size()].fault;
    }
    std::string answer(const std::string& message) override
    {
        std::string text = FaultyInstrument::answer(message);
        if (message.starts_with(":FETC:ALL"))
            served[message].push_back({clock_.elapsed(), numbersIn(text)});
        return text;
    }

private:
    const VirtualClock& clock_;
    std::string last_;
    qint64 nextAt_ = faultEveryMs;
};

/// The program over a TCP link to an instrument with faults.
class Recording {
public:
    explicit Recording(int minutes);

    /// Records, and prints what came of it. True where it is what it has to be.
    bool run();

private:
    void prepareFolder();
    std::vector<LinkKind> kinds();
    void record();
    void tick();
    bool compare();
    bool compareRows();
    bool compareDialogs();
    bool isServed(const std::string& query, const std::vector<double>& row, qint64 at);
    bool report(bool isRight, const char* what, const std::string& measured);

    QTemporaryDir folder_;
    int seconds_;
    RecordedExit processExit_;
    Run run_{processExit_};
    VirtualClock clock_{run_};
    ScriptedDialogs dialogs_;
    RecordingInstrument instrument_{clock_};
    PolledServer server_{instrument_, clock_};
    RealSystemTools systemTools_;
    Paths paths_{folder_.path()};
    std::optional<Program> program_;
    std::map<std::string, std::size_t> compared_; // answers before this one are of earlier rows
    double quarterMiB_ = 0;
    double endMiB_ = 0;
    double realSeconds_ = 0;
};

Recording::Recording(int minutes) : seconds_(minutes * 60)
{
    prepareFolder();
    clock_.allow((seconds_ + 3600) * qint64{1000});
    dialogs_.answers.assign(static_cast<std::size_t>(seconds_), Answer::Yes); // "Wait or not?"
}

void Recording::prepareFolder()
{
    const QDir beside(QCoreApplication::applicationDirPath());
    const QDir folder(folder_.path());
    for (const char* name : {"orb.mdb", "OrbEmpty.jpg", "orbCommands.dat", "ORBScrBtn.dat"})
        QFile::copy(beside.filePath(QLatin1String(name)), folder.filePath(QLatin1String(name)));
    QFile::link(beside.filePath(QStringLiteral("ICON")), folder.filePath(QStringLiteral("ICON")));
}

std::vector<LinkKind> Recording::kinds()
{
    return {{.title = QStringLiteral("Network"),
             .linkType = 2,
             .example = QStringLiteral("none"),
             .resourceName = [](const QString&) { return std::optional(QStringLiteral("TCPIP0::SOCKET")); },
             .typed = [](const QString& name) { return name; },
             .remoteName = [](const QString& name) { return name; },
             .transport = [this](const QString&,
                                 const QStringList&) { return std::make_unique<PolledTransport>(clock_, server_); }}};
}

bool Recording::run()
{
    program_.emplace(clock_, dialogs_, paths_, systemTools_, kinds(), folder_.filePath(QStringLiteral("link.ini")));
    run_.enter([this] { program_->form.FormLoad(); });
    program_->form.show();
    program_->CORB.connectPage.cmdConnect.click();
    for (int i = 0; i < 1000 && !program_->CORB.IsConnected(); ++i) {
        QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
        clock_.advance(20);
    }
    instrument_.execute(":LOAD:ALL ON");
    QElapsedTimer timer;
    timer.start();
    record();
    realSeconds_ = static_cast<double>(timer.elapsed()) / 1000;
    return compare();
}

void Recording::record()
{
    DataLogPage& page = program_->form.frmDatalog;
    program_->form.pageWave.click();
    const qint64 begin = clock_.elapsed();
    clock_.at(begin + seconds_ * 250, [this] { quarterMiB_ = residentMiB(); });
    clock_.at(begin + seconds_ * 1000, [this, &page] {
        endMiB_ = residentMiB();
        page.logStop.click();
    });
    tick();
    page.logStart.click();
}

/// Once a second the window is painted and Qt does what it has to.
void Recording::tick()
{
    QCoreApplication::processEvents();
    clock_.at(clock_.elapsed() + 1000, [this] { tick(); });
}

bool Recording::report(bool isRight, const char* what, const std::string& measured)
{
    std::printf("%-8s %-48s %s\n", isRight ? "ok" : "WRONG", what, measured.c_str());
    return isRight;
}

/// The values of a row are those of an answer of its time, and no earlier row has that answer.
bool Recording::isServed(const std::string& query, const std::vector<double>& row, qint64 at)
{
    constexpr qint64 longestCycleMs = 3000; // with questions that are answered by Yes
    const std::vector<Served>& served = instrument_.served[query];
    for (std::size_t& i = compared_[query]; i < served.size(); ++i) {
        if (served[i].values == row && std::abs(served[i].at - at) <= longestCycleMs) {
            ++i;
            return true;
        }
    }
    return false;
}

bool Recording::compareRows()
{
    const auto rows =
        program_->form.dbMain.openRecordset(QStringLiteral("select * from DataMeasure order by SeqNo asc"));
    const QDateTime start = clock_.now().addMSecs(-clock_.elapsed());
    int count = 0;
    int wrong = 0;
    qint64 last = -1;
    qint64 longestGap = 0;
    for (; !rows->isEof(); rows->moveNext(), ++count) {
        const qint64 at =
            start.msecsTo(QDateTime::fromString(rows->field(QStringLiteral("RecTime")).textOrEmpty(), timeFormat));
        const bool isInOrder = rows->field(QStringLiteral("SeqNo")).toDouble() == count;
        const bool isRight = isInOrder && isServed(":FETC:ALLC?", valuesOf(*rows, QLatin1Char('P')), at) &&
                             isServed(":FETC:ALLV?", valuesOf(*rows, QLatin1Char('S')), at);
        wrong += isRight ? 0 : 1;
        longestGap = last < 0 ? 0 : std::max(longestGap, at - last);
        last = at;
    }
    const bool isEach = report(wrong == 0 && count > 0, "each row has the answers to its own two queries",
                               std::to_string(count) + " rows, " + std::to_string(wrong) + " wrong");
    const bool isWhole = report(count == program_->form.frmDatalog.lLogRecNo && longestGap <= 4000, "no row is missing",
                                "longest gap " + std::to_string(longestGap) + " ms");
    return isEach && isWhole;
}

bool Recording::compareDialogs()
{
    const auto isOther = [](const Shown& shown) { return !shown.text.endsWith(QStringLiteral("Wait or not?")); };
    const auto others = std::ranges::count_if(dialogs_.shown, isOther);
    for (const Shown& shown : dialogs_.shown)
        if (isOther(shown))
            std::printf("         a message: %s\n", qPrintable(shown.text));
    return report(others == 0, "the recording went on to its end",
                  std::to_string(dialogs_.shown.size()) + " times \"Wait or not?\"");
}

bool Recording::compare()
{
    std::printf("%d seconds recorded in %.1f s of real time over TCP\n", seconds_, realSeconds_);
    const bool areRows = compareRows();
    const bool areDialogs = compareDialogs();
    const int faults = instrument_.faultCount();
    const bool areFaults =
        report(faults >= seconds_ / 10 * 8 / 10, "a fault every ten seconds", std::to_string(faults) + " faults");
    const double growth = endMiB_ - quarterMiB_;
    char text[64];
    std::snprintf(text, sizeof text, "%.1f MiB after a quarter, %.1f at the end", quarterMiB_, endMiB_);
    const bool isFlat = report(growth <= mostGrowthMiB, "the memory is flat", text);
    return areRows && areDialogs && areFaults && isFlat && processExit_.reports.empty();
}

} // namespace

int main(int argc, char** argv)
{
    const QTemporaryDir home; // what the program keeps under the user's folders
    qputenv("HOME", home.path().toUtf8());
    qputenv("XDG_CACHE_HOME", home.path().toUtf8());
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    const int minutes = QApplication::arguments().value(1, QStringLiteral("60")).toInt();
    if (minutes < 1 || minutes > longestMinutes) {
        std::fprintf(stderr, "usage: recording-under-faults [MINUTES]\n");
        return 2;
    }
    Recording recording(minutes);
    return recording.run() ? EXIT_SUCCESS : EXIT_FAILURE;
}
