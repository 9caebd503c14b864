// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "record_file.h"
#include "reserved_bytes.h"

#include <random>
#include <string>

namespace orb {

/// The same record with its checksum.
template <class Record> Record sealed(Record record)
{
    record.CheckSum = computedCheckSum(record);
    return record;
}

template <class Record> std::string bytesOf(const Record& record)
{
    const auto image = imageOf(record);
    return {reinterpret_cast<const char*>(image.data()), image.size()};
}

/// A record of random bytes; those without a meaning are 0.
template <class Record> Record randomRecord(std::mt19937& noise)
{
    Record record{};
    const auto image = imageOf(record);
    for (std::byte& byte : image)
        byte = static_cast<std::byte>(noise() % 256);
    for (const ReservedRun& run : reservedRuns(record))
        std::ranges::fill(image.subspan(run.offset, run.size), std::byte{0});
    return sealed(record);
}

/// A random record of values that an operator could have entered.
SeqFileRecord sensibleSequence(std::mt19937& noise);
ProgFileRecord sensibleProgram(std::mt19937& noise);

} // namespace orb
