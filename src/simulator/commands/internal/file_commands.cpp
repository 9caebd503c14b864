// SPDX-License-Identifier: GPL-3.0-or-later
#include "instrument_commands.h"

#include "ascii.h"
#include "record_file.h"
#include "sequence_memory_file.h"

#include <cstring>

namespace orb {

namespace {

constexpr std::string_view sequenceName = "ORBSeq.a";
constexpr std::string_view programName = "ORBProg.b";

/// A file name without regard to letter case.
bool isFile(const CommandCall& call, std::string_view name)
{
    return ascii::sameText(call.string(0), name);
}

template <class Record> std::string blockOf(const Record& record)
{
    const auto image = imageOf(record);
    return blockText({reinterpret_cast<const char*>(image.data()), image.size()});
}

std::string queryFile(CommandContext& context, const CommandCall& call)
{
    Mainframe& mainframe = context.mainframe;
    const ProgFileRecord programs = mainframe.programs().file();
    if (isFile(call, programName))
        return blockOf(programs);
    if (isFile(call, sequenceName)) {
        const LoadChannel& channel = mainframe.channel(mainframe.selectedChannel());
        return blockOf(sequenceFile(mainframe.sequence(), channel, programs));
    }
    throw CommandFailure{ErrorNumber::FileNameNotFound};
}

void takeFile(CommandContext& context, const CommandCall& call)
{
    if (isFile(call, sequenceName))
        throw CommandFailure{ErrorNumber::MediaProtected};
    if (!isFile(call, programName))
        throw CommandFailure{ErrorNumber::FileNameNotFound};
    const std::string_view content = call.block(1);
    ProgFileRecord file{};
    if (content.size() != sizeof(file))
        throw CommandFailure{ErrorNumber::InvalidBlockData};
    std::memcpy(&file, content.data(), sizeof(file));
    if (file.CheckSum != computedCheckSum(file))
        throw CommandFailure{ErrorNumber::DataCorruptOrStale};
    if (!context.mainframe.programs().takeFile(file))
        throw CommandFailure{ErrorNumber::DataOutOfRange};
}

/// A program file whose bytes are all 0, which is a good one.
constexpr auto emptyProgramFile = [] {
    constexpr std::string_view head = R"("ORBProg.b",#45580)";
    std::array<char, head.size() + sizeof(ProgFileRecord)> parameters{};
    std::ranges::copy(head, parameters.begin());
    return parameters;
}();

constexpr Command rows[] = {
    {.header = "MMEMory:DATA",
     .parameters = R"("ORBProg.b",<block>)",
     .queryParameters = R"("ORBSeq.a"|"ORBProg.b")",
     .example = std::string_view(emptyProgramFile.data(), emptyProgramFile.size()),
     .queryExample = R"("ORBSeq.a")",
     .summary = "The sequence or the programs of the instrument as a file, a block of 4380 or 5580 bytes. Only the "
                "programs can be sent: they are then edited and saved.",
     .set = takeFile,
     .query = queryFile},
};

} // namespace

constinit const CommandSection fileCommands{"Files", rows};

} // namespace orb
