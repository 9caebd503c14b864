// SPDX-License-Identifier: GPL-3.0-or-later
// Runs the real program from the first click to the exported file, with a simulated instrument in another process, and
// saves a picture of each page.
#include "console_tour.h"
#include "data_log_tour.h"
#include "desktop.h"
#include "device_control.h"
#include "first_test_tour.h"
#include "form_orb.h"
#include "program_tour.h"
#include "real_clock.h"
#include "real_dialogs.h"
#include "sequence_tour.h"
#include "service_tour.h"
#include "simulator_process.h"
#include "tour.h"
#include "user_interface.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <cstdio>

namespace {

using namespace orb;

/// Creates an application folder with the program's files and an empty database.
void createApplicationFolder(const QDir& application)
{
    const QDir beside(QCoreApplication::applicationDirPath());
    for (const char* name : {"orb.mdb", "OrbEmpty.jpg", "orbCommands.dat", "ORBScrBtn.dat"})
        QFile::copy(beside.filePath(QLatin1String(name)), application.filePath(QLatin1String(name)));
    QFile::link(beside.filePath(QStringLiteral("ICON")), application.filePath(QStringLiteral("ICON")));
}

constexpr int wholeTourChannels = 6;

/// The tour of everything, with a simulated instrument in a process of its own; or only the first test of the manual.
enum class Route { Everything, FirstTest };

/// With another number of channels the tour of everything ends with the instrument's own pages.
void addSteps(Tour& tour, Route route, FormORB& form, DeviceControl& CORB, const SimulatorProcess& simulator)
{
    if (route == Route::FirstTest)
        return firstTestSteps(tour, form, CORB);
    connectSteps(tour, form, CORB, simulator);
    if (simulator.channels() != wholeTourChannels)
        return;
    dataLogSteps(tour, form);
    consoleSteps(tour, form);
    programSteps(tour, form);
    sequenceSteps(tour, form, CORB);
    serviceSteps(tour, form);
}

int runTour(const QDir& out, Route route, bool isMaximized, int channels)
{
    const QTemporaryDir folder;
    createApplicationFolder(QDir(folder.path()));
    const SimulatorProcess simulator(out.filePath(QStringLiteral("served.txt")), channels);
    std::printf("    a simulated instrument listens on port %d\n", simulator.port());

    RealDialogs dialogs(applicationTitle);
    RealSystemTools systemTools;
    RealProcessExit processExit(dialogs);
    Run run(processExit);
    RealClock clock(run);
    const Paths paths(folder.path());
    std::optional<DeviceControl> CORB;
    std::optional<FormORB> form;
    run.enter([&] {
        CORB.emplace(clock);
        form.emplace(clock, dialogs, paths, *CORB, systemTools);
        form->setRowEnd(CORB->allOffBar);
        form->FormLoad();
        isMaximized ? form->showMaximized() : form->show();
    });

    Tour tour(out);
    addSteps(tour, route, *form, *CORB, simulator);
    return tour.run();
}

} // namespace

int main(int argc, char** argv)
{
    const Desktop desktop(argc, argv);
    QStandardPaths::setTestModeEnabled(true); // the settings of the user stay as they are
    const QApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("orb-tour"));
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Runs the program as an operator would and saves pictures."));
    parser.addHelpOption();
    const QCommandLineOption outOption(QStringLiteral("out"), QStringLiteral("The folder for pictures and files."),
                                       QStringLiteral("folder"), QStringLiteral("build/tour"));
    parser.addOption(outOption);
    parser.addOptions(
        {{QStringLiteral("screen"), QStringLiteral("The screen in pixels, which nobody sees."),
          QStringLiteral("WIDTHxHEIGHT")},
         {QStringLiteral("font"), QStringLiteral("The size of the desktop's font."), QStringLiteral("points")},
         {QStringLiteral("dark"), QStringLiteral("A dark desktop.")},
         {QStringLiteral("maximized"), QStringLiteral("The window fills the screen.")}});
    const QCommandLineOption firstTestOption(
        QStringLiteral("first-test"), QStringLiteral("Only the first discharge test of the manual: three minutes."));
    parser.addOption(firstTestOption);
    const QCommandLineOption channelsOption(
        QStringLiteral("channels"),
        QStringLiteral("The channels of the instrument, 1 to 8. With another number than 6 the tour ends with the "
                       "Connect and the Control page."),
        QStringLiteral("N"), QString::number(wholeTourChannels));
    parser.addOption(channelsOption);
    parser.process(application);
    desktop.dress();
    const QDir out(QDir().absoluteFilePath(parser.value(outOption)));
    if (!QDir().mkpath(out.path()))
        return EXIT_FAILURE;
    try {
        const Route route = parser.isSet(firstTestOption) ? Route::FirstTest : Route::Everything;
        const int result = runTour(out, route, desktop.isMaximized(), parser.value(channelsOption).toInt());
        std::printf("The pictures and files are in %s\n", qPrintable(out.path()));
        return result;
    } catch (const TourFailure& failure) {
        std::printf("FAILED: %s\n", failure.what());
        return EXIT_FAILURE;
    }
}
