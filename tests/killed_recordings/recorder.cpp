// SPDX-License-Identifier: GPL-3.0-or-later
#include "recorder.h"

#include "fake_orb_ctrl.h"
#include "form_orb.h"
#include "program_instance.h"
#include "recorded_exit.h"
#include "scripted_dialogs.h"
#include "unsaved_rows.h"
#include "virtual_clock.h"

#include <QRandomGenerator>

#include <cstdio>
#include <limits>

namespace orb {

namespace {

void print(const QString& line)
{
    std::puts(qPrintable(line));
    std::fflush(stdout);
}

/// The program with a clock that does not wait, started.
class Recorder {
public:
    explicit Recorder(const QString& folder) : paths_(folder), instance_(database())
    {
        instrument_.connected = true;
        instrument_.channelCount = 2;
        clock_.allow(std::numeric_limits<qint64>::max() / 2);
        clock_.setNow(QDateTime::currentDateTime());
        run_.enter([&] {
            print(keepUnsavedRows(form_.wsMain, database()));
            form_.FormLoad();
            form_.pageWaveClick();
        });
        form_.show();
    }

    bool isStarted() const { return instance_.isFirst() && processExit_.reports.empty(); }

    void record(int run)
    {
        instrument_.onCommand = [this, run](const QString& query) {
            const int sample = form_.frmDatalog.lLogRecNo;
            if (query != QStringLiteral(":FETC:ALLC?"))
                return QStringLiteral("%1,12.5,").arg(sample);
            print(QStringLiteral("shown %1").arg(form_.frmDatalog.DataLog.rowCount()));
            saveNowAndThen();
            return QStringLiteral("%1,2.5,").arg(run);
        };
        form_.frmDatalog.logStart.click();
    }

private:
    QString database() const { return paths_.inApplication(QStringLiteral("\\orb.mdb")); }

    void saveNowAndThen()
    {
        constexpr int samplesASave = 150;
        if (form_.frmDatalog.lLogRecNo > 0 && QRandomGenerator::global()->bounded(samplesASave) == 0)
            form_.frmDatalog.logSave.click();
    }

    Paths paths_;
    ProgramInstance instance_;
    RecordedExit processExit_;
    Run run_{processExit_};
    VirtualClock clock_{run_};
    ScriptedDialogs dialogs_;
    FakeORBCtrl instrument_;
    RealSystemTools systemTools_;
    FormORB form_{clock_, dialogs_, paths_, instrument_, systemTools_};
};

} // namespace

int record(const QString& folder, int run)
{
    Recorder recorder(folder);
    if (!recorder.isStarted())
        return EXIT_FAILURE;
    print(QStringLiteral("started"));
    recorder.record(run);
    return EXIT_FAILURE; // it records until it is killed
}

int startOnly(const QString& folder)
{
    const Recorder recorder(folder);
    if (recorder.isStarted())
        print(QStringLiteral("started"));
    return recorder.isStarted() ? EXIT_SUCCESS : EXIT_FAILURE;
}

} // namespace orb
