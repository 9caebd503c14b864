// SPDX-License-Identifier: GPL-3.0-or-later
#include "checked_file.h"

#include "program_text.h"
#include "record_file.h"
#include "sequence_text.h"

#include <cstring>
#include <stdexcept>

namespace orb {

namespace {

template <class Record> Record checkedRecord(std::string_view content)
{
    Record record{};
    std::memcpy(&record, content.data(), sizeof(record));
    if (record.CheckSum != computedCheckSum(record))
        throw std::runtime_error("the checksum is " + std::to_string(record.CheckSum) +
                                 ", and the sum of the bytes is " + std::to_string(computedCheckSum(record)));
    return record;
}

} // namespace

CheckedFile readCheckedFile(std::string_view content)
{
    if (content.size() == sizeof(SeqFileRecord))
        return checkedRecord<SeqFileRecord>(content);
    if (content.size() == sizeof(ProgFileRecord))
        return checkedRecord<ProgFileRecord>(content);
    throw std::runtime_error("a sequence file has " + std::to_string(sizeof(SeqFileRecord)) +
                             " bytes and a program file " + std::to_string(sizeof(ProgFileRecord)) + ", not " +
                             std::to_string(content.size()));
}

FileTable tableOf(const CheckedFile& file)
{
    const auto* sequence = std::get_if<SeqFileRecord>(&file);
    return sequence != nullptr ? sequenceTable(*sequence) : programTable(std::get<ProgFileRecord>(file));
}

std::string describe(const CheckedFile& file)
{
    const auto text = [](const char* kind, const auto& record) {
        return kind + (" file, " + std::to_string(sizeof(record))) + " bytes, checksum " +
               std::to_string(record.CheckSum);
    };
    const auto* sequence = std::get_if<SeqFileRecord>(&file);
    return sequence != nullptr ? text("sequence", *sequence) : text("program", std::get<ProgFileRecord>(file));
}

} // namespace orb
