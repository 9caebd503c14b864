// SPDX-License-Identifier: GPL-3.0-or-later
#include "serial_line.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <utility>

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

namespace orb {

SerialLine::SerialLine(std::function<std::string(const std::string& line)> onLine)
    : master_(::posix_openpt(O_RDWR | O_NOCTTY))
{
    EXPECT_EQ(::grantpt(master_), 0);
    EXPECT_EQ(::unlockpt(master_), 0);
    device_ = QString::fromLocal8Bit(::ptsname(master_));
    termios raw = settings();
    ::cfmakeraw(&raw); // else it would echo what it is sent before the program opens it
    ::tcsetattr(master_, TCSANOW, &raw);
    thread_ = std::thread([this, onLine = std::move(onLine)] { serve(onLine); });
}

SerialLine::~SerialLine()
{
    unplug();
}

termios SerialLine::settings() const
{
    termios settings{};
    EXPECT_EQ(::tcgetattr(master_, &settings), 0);
    return settings;
}

void SerialLine::say(const std::string& bytes) const
{
    EXPECT_EQ(::write(master_, bytes.data(), bytes.size()), static_cast<ssize_t>(bytes.size()));
}

void SerialLine::limitReads(cc_t tenths) const
{
    termios limited = settings();
    limited.c_cc[VMIN] = 0;
    limited.c_cc[VTIME] = tenths;
    ::tcsetattr(master_, TCSANOW, &limited);
}

void SerialLine::unplug()
{
    ending_ = true;
    if (thread_.joinable())
        thread_.join();
    if (master_ >= 0)
        ::close(master_);
    master_ = -1;
}

void SerialLine::serve(const std::function<std::string(const std::string&)>& onLine)
{
    std::string line;
    while (!ending_ && !hungUp_) {
        pollfd readable{master_, POLLIN, 0};
        char c = 0;
        if (::poll(&readable, 1, 5) <= 0)
            continue;
        if (::read(master_, &c, 1) != 1)
            ::usleep(1000); // nobody has the other end open
        else if (c != '\n')
            line += c;
        else
            say(onLine(std::exchange(line, {})));
    }
    if (hungUp_)
        ::close(std::exchange(master_, -1));
}

} // namespace orb
