// SPDX-License-Identifier: GPL-3.0-or-later
// Opening a program file of 120 steps on the page that is shown, its yields included, beyond 120 bare yields.
#include "bench.h"
#include "form.h"
#include "prog_file_fields.h"
#include "program_page.h"
#include "real_clock.h"
#include "record_file.h"

#include <QApplication>

using namespace orb;

namespace {

/// A program file with other steps than the one of another `seed`.
QString writeProgram(const QDir& folder, int seed)
{
    ProgFileRecord record{};
    for (ProgramBlock& block : record.programs)
        for (std::size_t step = 0; step < ProgramBlock::stepCount; ++step, ++seed) {
            block.Memory[step] = static_cast<quint8>(seed % 120);
            block.RunMode[step] = static_cast<quint8>(seed % 3);
            for (auto* times : {&block.OnTimer, &block.OffTime, &block.PFTime, &block.ShortTime})
                (*times)[step] = static_cast<qint16>(1 + seed % 255);
            block.ShortCH[step] = static_cast<qint16>(seed % 256);
        }
    if (!finishImage(record))
        qFatal("no checksum");
    const QString path = folder.filePath(QStringLiteral("program%1.b").arg(seed));
    writeRecord(path, record);
    return path;
}

} // namespace

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    const auto folder = bench::applicationWith(0);
    bench::FatalExit processExit;
    bench::NoDialogs dialogs;
    Run run(processExit);
    RealClock clock(run);
    const Paths paths(folder->path());
    bench::Instrument instrument;
    Database dbMain;
    QString pending;
    Form form(run);
    DataFileDialog dialog(&form);
    ProgramPage page(clock, dialogs, paths, instrument, dbMain, dialog, pending);
    page.setParent(&form);
    form.resize(page.size());
    form.show();
    run.enter([&] { page.InitProgramPage(); });
    const std::array files{writeProgram(QDir(folder->path()), 0), writeProgram(QDir(folder->path()), 7)};

    std::vector<double> opening, yields;
    for (std::size_t i = 0; i < 20; ++i) {
        opening.push_back(bench::seconds(
            [&] {
                pending = files[i % 2];
                run.enter([&] { page.progOpenClick(); });
                QCoreApplication::processEvents();
            },
            1));
        yields.push_back(bench::seconds(
            [&] {
                run.enter([&] {
                    for (int n = 0; n < 120; ++n)
                        clock.yield();
                });
            },
            1));
    }
    return bench::report("opening a program file of 120 steps, beyond 120 bare yields",
                         (bench::median(opening) - bench::median(yields)) * 1000, 100, "ms");
}
