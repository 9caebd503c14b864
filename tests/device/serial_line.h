// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <atomic>
#include <functional>
#include <string>
#include <termios.h>
#include <thread>

namespace orb {

/// A pseudo terminal that stands for a serial line. What comes over it is passed, line by line, to `onLine`, whose result
/// goes back; a thread of its own does that, so that a test may block.
class SerialLine {
public:
    explicit SerialLine(std::function<std::string(const std::string& line)> onLine);
    ~SerialLine();
    SerialLine(const SerialLine&) = delete;
    SerialLine& operator=(const SerialLine&) = delete;

    /// The path of the end that the program opens.
    const QString& device() const { return device_; }
    /// The settings of the line as the system has them.
    termios settings() const;
    /// Sends bytes without being asked.
    void say(const std::string& bytes) const;
    /// A read of the program ends after this many tenths of a second without a byte, as one of the kernel's USB driver
    /// does. Without it a read waits for ever.
    void limitReads(cc_t tenths) const;
    /// Takes the line away when `onLine`, from which this is called, returns.
    void hangUp() { hungUp_ = true; }
    /// Takes the line away, as pulling a cable of a USB adapter does.
    void unplug();

private:
    void serve(const std::function<std::string(const std::string&)>& onLine);

    int master_ = -1;
    QString device_;
    std::atomic<bool> ending_{false};
    bool hungUp_ = false; // of the thread
    std::thread thread_;
};

} // namespace orb
