// SPDX-License-Identifier: GPL-3.0-or-later
#include "reserved_bytes.h"

#include "number_format.h"

#include <algorithm>

namespace orb {

namespace {

constexpr std::string_view rowName = "Reserved bytes at ";
constexpr std::size_t bytesInARow = 32;

bool isReserved(std::size_t offset, std::size_t size, const std::vector<ReservedRun>& runs)
{
    return std::ranges::any_of(
        runs, [&](const ReservedRun& run) { return offset >= run.offset && offset + size <= run.offset + run.size; });
}

} // namespace

std::vector<ReservedRun> reservedRuns(const SeqFileRecord& record)
{
    std::vector<ReservedRun> runs;
    for (std::size_t point = 0; point < record.Points.size(); ++point) {
        const std::size_t begin = offsetof(SeqFileRecord, Points) + point * sizeof(SeqPoint);
        runs.push_back({begin + offsetof(SeqPoint, reserved0), sizeof(SeqPoint::reserved0)});
        runs.push_back({begin + offsetof(SeqPoint, reserved4), sizeof(SeqPoint::reserved4)});
        runs.push_back({begin + offsetof(SeqPoint, reserved12), sizeof(SeqPoint::reserved12)});
    }
    runs.push_back({offsetof(SeqFileRecord, reserved2900), sizeof(record.reserved2900)});
    runs.push_back({offsetof(SeqFileRecord, reserved2903), sizeof(record.reserved2903)});
    runs.push_back({offsetof(SeqFileRecord, reserved2906), sizeof(record.reserved2906)});
    runs.push_back({offsetof(SeqFileRecord, deviceBlock), sizeof(record.deviceBlock)});
    return runs;
}

std::vector<ReservedRun> reservedRuns(const ProgFileRecord& record)
{
    constexpr std::size_t programs = ProgFileRecord::programCount;
    return {{offsetof(ProgFileRecord, reserved4), sizeof(record.reserved4)},
            {offsetof(ProgFileRecord, reserved4112), sizeof(record.reserved4112)},
            {offsetof(ProgFileRecord, reserved5556), sizeof(record.reserved5556)},
            {offsetof(ProgFileRecord, ChainNext) + programs, sizeof(record.ChainNext) - programs},
            {offsetof(ProgFileRecord, reserved5572), sizeof(record.reserved5572)}};
}

std::vector<FileTable::Row> reservedRows(std::span<const std::byte> image, const std::vector<ReservedRun>& runs)
{
    std::vector<FileTable::Row> rows;
    for (const ReservedRun& run : runs) {
        for (std::size_t at = 0; at < run.size; at += bytesInARow) {
            const auto piece = image.subspan(run.offset + at, std::min(bytesInARow, run.size - at));
            const std::string_view bytes(reinterpret_cast<const char*>(piece.data()), piece.size());
            if (bytes.find_first_not_of('\0') != std::string_view::npos)
                rows.push_back({std::string(rowName) + std::to_string(run.offset + at), rawText(bytes)});
        }
    }
    return rows;
}

bool isReservedLine(const CsvLine& line)
{
    return sameWord(std::string_view(line.first().text).substr(0, rowName.size()), rowName);
}

void readReservedLine(const CsvLine& line, std::span<std::byte> image, const std::vector<ReservedRun>& runs)
{
    const CsvCell& name = line.first();
    const auto last = static_cast<std::int64_t>(image.size()) - 1;
    const CsvCell place{name.text.substr(rowName.size()), name.line, name.column};
    const auto offset = static_cast<std::size_t>(NumberFormat::whole({0, last}).read(place, {0, last}));
    const std::string bytes = readRawBytes(line.at(1));
    if (!isReserved(offset, bytes.size(), runs))
        name.fail("not all of these " + std::to_string(bytes.size()) + " bytes are reserved");
    std::ranges::transform(bytes, image.begin() + static_cast<std::ptrdiff_t>(offset),
                           [](char c) { return static_cast<std::byte>(c); });
}

} // namespace orb
