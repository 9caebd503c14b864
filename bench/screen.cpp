// SPDX-License-Identifier: GPL-3.0-or-later
//
// A screen over TCP on the loopback: from the socket to the picture that the mirror shows, against a bare socket that
// reads the same bytes and QImage::loadFromData. Both ask the same server, in turns.
#include "bench.h"
#include "screen_picture.h"
#include "tcp_bench.h"

#include <QApplication>
#include <QStandardPaths>

#include <cstdio>

namespace {

constexpr double budget = 1.5;
constexpr int rounds = 300;
constexpr std::size_t blockHead = 8; // "#6230454"
constexpr std::size_t bitmapSize = 230'454;

using Seconds = std::chrono::duration<double>;

/// False where a picture did not come.
bool showBare(int descriptor)
{
    if (!orb::bench::sendBare(descriptor, ":HCOP:SDUM:DATA?\n"))
        return false;
    std::string answer(blockHead + bitmapSize + 1, '\0');
    for (std::size_t filled = 0; filled < answer.size();) {
        const ssize_t size = ::recv(descriptor, answer.data() + filled, answer.size() - filled, 0);
        if (size <= 0)
            return false;
        filled += static_cast<std::size_t>(size);
    }
    QImage image;
    return image.loadFromData(reinterpret_cast<const uchar*>(answer.data()) + blockHead, static_cast<int>(bitmapSize),
                              "BMP");
}

/// What a tick of the mirror does.
bool showMirrored(orb::DeviceControl& control, orb::PictureBox& Picture1, orb::Image& Image1)
{
    if (!control.GrabScreen())
        return false;
    orb::loadScreen(Picture1);
    Image1.setPixmap(Picture1.pixmap());
    return true;
}

/// Seconds that it takes; negative where it fails.
template <typename Show> double timeOf(const Show& show)
{
    const auto begin = std::chrono::steady_clock::now();
    const bool shown = show();
    return shown ? Seconds(std::chrono::steady_clock::now() - begin).count() : -1;
}

} // namespace

int main(int argc, char** argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QStandardPaths::setTestModeEnabled(true); // another folder than the user's for the file of the screen
    const QApplication application(argc, argv);
    orb::bench::TcpPair pair;
    orb::PictureBox Picture1(&pair.form);
    orb::Image Image1(&Picture1);
    if (!pair.connect())
        return 2;
    std::vector<double> bareTimes;
    std::vector<double> mirrorTimes;
    for (int i = 0; i < rounds; ++i) {
        bareTimes.push_back(timeOf([&] { return showBare(pair.bare); }));
        mirrorTimes.push_back(timeOf([&] { return showMirrored(pair.control, Picture1, Image1); }));
        if (bareTimes.back() < 0 || mirrorTimes.back() < 0) {
            std::fprintf(stderr, "screen: a picture did not come\n");
            return 2;
        }
    }
    const double ratio = orb::bench::undisturbed(mirrorTimes) / orb::bench::undisturbed(bareTimes);
    return orb::bench::report("screen", ratio, budget);
}
