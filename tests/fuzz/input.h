// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace orb {

/// The bytes of one run, read from the front; zeros after their end.
class Input {
public:
    Input(const std::uint8_t* bytes, std::size_t size) : bytes_(bytes), size_(size) {}

    bool isEmpty() const { return at_ == size_; }
    int byte() { return isEmpty() ? 0 : bytes_[at_++]; }
    std::string bytes(std::size_t count)
    {
        count = std::min(count, size_ - at_);
        at_ += count;
        return {reinterpret_cast<const char*>(bytes_) + at_ - count, count};
    }
    std::string rest() { return bytes(size_); }

private:
    const std::uint8_t* bytes_;
    std::size_t size_;
    std::size_t at_ = 0;
};

/// What must hold whatever the bytes are.
inline void require(bool holds, const char* what)
{
    if (holds)
        return;
    std::fprintf(stderr, "does not hold: %s\n", what);
    std::abort();
}

} // namespace orb
