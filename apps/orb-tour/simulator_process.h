// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QProcess>

namespace orb {

/// A simulated instrument in a process of its own.
class SimulatorProcess {
public:
    /// Starts `orb-simulator`, which stands beside this program, on any free port. What it serves of the readings of
    /// all channels is written to `servedPath`. Throws `TourFailure` where it does not come up.
    explicit SimulatorProcess(const QString& servedPath);
    ~SimulatorProcess();

    int port() const { return port_; }

private:
    QProcess process_;
    int port_ = 0;
};

} // namespace orb
