// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "dialogs.h"
#include "orb_ctrl.h"
#include "run.h"

#include <QElapsedTimer>
#include <QTemporaryDir>

#include <functional>
#include <memory>
#include <vector>

namespace orb::bench {

/// Prints "name | ratio | budget | ok or over". The result is what `main` returns: 0 within the budget, 1 over it.
int report(const char* name, double ratio, double budget, const char* unit = "times");

/// The seconds that `work` takes: the least of `runs` runs.
double seconds(const std::function<void()>& work, int runs = 3);

/// The median of the values.
double median(std::vector<double> values);

/// A folder for the files of a benchmark, in memory if the system has one, so that a ratio measures the work and not
/// the disk.
QString workFolder();

/// Makes an application directory with the program's pictures and an `orb.mdb` whose live table has so many rows of
/// eight channels.
std::unique_ptr<QTemporaryDir> applicationWith(int rows);

/// An instrument of eight channels that answers at once.
class Instrument final : public ORBCtrl {
public:
    void SendCommand(const QString& command) override { isCurrent_ = command == QLatin1String(":FETC:ALLC?"); }
    QString Reply() override { return isCurrent_ ? currents_ : voltages_; }
    bool IsConnected() override { return true; }
    std::int16_t LinkType() override { return 0; }
    std::int16_t ChannelCount() override { return 8; }
    void PanelActive(bool) override {}
    void ShowControlPage() override {}
    void ShowConnectPage() override {}
    void Reconnect() override {}
    bool GrabScreen() override { return false; }
    void FetchSequenceFile() override {}
    void FetchProgramFile() override {}
    void SendProgramFile() override {}

private:
    bool isCurrent_ = true;
    const QString currents_ = QStringLiteral("1.1000,2.1000,3.1000,4.1000,5.1000,6.1000,7.1000,8.1000,");
    const QString voltages_ = QStringLiteral("12.1000,12.2000,12.3000,12.4000,12.5000,12.6000,12.7000,12.8000,");
};

/// Dialogs for a run without a user; a message box ends the benchmark with its text.
class NoDialogs final : public Dialogs {
public:
    Answer message(const QString& text, Icon icon, Buttons buttons) override;
    bool showOpen() override { return false; }
    bool showSave() override { return false; }
    bool showPrinter() override { return false; }
    bool showDocument(const QString&) override { return false; }
    Printer& printer() override { qFatal("no printer here"); }
};

/// A failure ends the benchmark.
class FatalExit final : public ProcessExit {
public:
    void report(const QString& text) override { qFatal("%s", qPrintable(text)); }
    void exit() override { std::exit(1); }
};

} // namespace orb::bench
