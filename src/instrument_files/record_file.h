// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "file_checksum.h"

#include <QString>

#include <cstddef>
#include <span>
#include <type_traits>

namespace orb {

/// The bytes of a record, which are the bytes of its file.
template <class Record> std::span<std::byte> imageOf(Record& record)
{
    static_assert(std::is_trivially_copyable_v<Record>);
    return std::as_writable_bytes(std::span(&record, 1));
}

template <class Record> std::span<const std::byte> imageOf(const Record& record)
{
    static_assert(std::is_trivially_copyable_v<Record>);
    return std::as_bytes(std::span(&record, 1));
}

/// The checksum that the record's content has; a good file stores the same number.
template <class Record> quint32 computedCheckSum(const Record& record)
{
    return fileSum(imageOf(record));
}

/// Reads a file over `image`: of a longer file only so many bytes, and the bytes that a shorter one lacks keep what they
/// were. Throws `RuntimeFailure` 53 where there is no such file, 75 where it is a folder, 70 where it can't be read, 52
/// for an empty name; `image` is then unchanged.
void readImage(const QString& literal, std::span<std::byte> image);

/// Writes a file of exactly these bytes over what stands there. Throws `RuntimeFailure` 76 where the folder does not
/// exist, 75 where the path is a folder, 70 where the file can't be written, 52 for an empty name, 61 where the disk is
/// full.
void writeImage(const QString& literal, std::span<const std::byte> image);

template <class Record> void readRecord(const QString& literal, Record& record)
{
    readImage(literal, imageOf(record));
}

template <class Record> void writeRecord(const QString& literal, const Record& record)
{
    writeImage(literal, imageOf(record));
}

} // namespace orb
