// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QProcess>

namespace orb {

/// A simulated instrument in a process of its own.
class SimulatorProcess {
public:
    /// Starts `orb-simulator`, which stands beside this program, on any free port. What it serves of the readings of
    /// all channels is written to `servedPath`. It has 1 to 8 channels. Throws `TourFailure` where it does not come up.
    SimulatorProcess(const QString& servedPath, int channels);
    ~SimulatorProcess();

    int port() const { return port_; }
    int channels() const { return channels_; }

private:
    QProcess process_;
    int port_ = 0;
    int channels_;
};

} // namespace orb
