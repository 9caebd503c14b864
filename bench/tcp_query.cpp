// SPDX-License-Identifier: GPL-3.0-or-later
//
// A query over TCP on the loopback: through the instrument control, against a bare socket that sends the same line and
// reads until the line feed. Both ask the same server, in turns.
#include "bench.h"
#include "tcp_bench.h"

#include <QApplication>

#include <cstdio>

namespace {

constexpr double budget = 1.2;
constexpr int batches = 800;
constexpr int queriesInABatch = 20;
const std::string query = ":FETC:ALLC?";

using Seconds = std::chrono::duration<double>;

std::string askBare(int descriptor)
{
    const std::string line = query + '\n';
    if (!orb::bench::sendBare(descriptor, line))
        return {};
    std::string answer;
    char bytes[4096];
    while (!answer.ends_with('\n')) {
        const ssize_t size = ::recv(descriptor, bytes, sizeof bytes, 0);
        if (size <= 0)
            return {};
        answer.append(bytes, static_cast<std::size_t>(size));
    }
    answer.pop_back();
    return answer;
}

QString askControl(orb::DeviceControl& control)
{
    control.SendCommand(QString::fromStdString(query));
    return control.Reply();
}

/// Seconds that a batch of queries takes; negative when one is not answered.
template <typename Ask> double batch(const Ask& ask)
{
    const auto begin = std::chrono::steady_clock::now();
    for (int i = 0; i < queriesInABatch; ++i)
        if (ask().size() == 0)
            return -1;
    return Seconds(std::chrono::steady_clock::now() - begin).count();
}

} // namespace

int main(int argc, char** argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    orb::bench::TcpPair pair;
    if (!pair.connect())
        return 2;
    std::vector<double> bareTimes;
    std::vector<double> controlTimes;
    for (int i = 0; i < batches; ++i) {
        const double bareTime = batch([&] { return askBare(pair.bare); });
        const double controlTime = batch([&] { return askControl(pair.control); });
        if (bareTime < 0 || controlTime < 0) {
            std::fprintf(stderr, "tcp query: a query was not answered\n");
            return 2;
        }
        bareTimes.push_back(bareTime);
        controlTimes.push_back(controlTime);
    }
    const double ratio = orb::bench::undisturbed(controlTimes) / orb::bench::undisturbed(bareTimes);
    return orb::bench::report("tcp query", ratio, budget);
}
