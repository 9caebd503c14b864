// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "command_call.h"

#include <string>
#include <string_view>
#include <vector>

namespace orb {

class Mainframe;
class StatusRegisters;

/// What the handlers of the commands work on.
struct CommandContext {
    Mainframe& mainframe;
    StatusRegisters& status;
    /// The answer to *IDN?.
    const std::string& identity;
    /// An answer of an earlier query in the same message waits to be read.
    bool messageAvailable = false;
};

using CommandAction = void (*)(CommandContext&, const CommandCall&);
using CommandQuery = std::string (*)(CommandContext&, const CommandCall&);

/// One row of the command language. All that there is to a command stands in its row.
struct Command {
    /// The header: capital letters are the short form, a node in brackets may be left out, a node with # may have a
    /// number behind it. "CURRent#[:STATic][:L#]".
    std::string_view header = {};
    /// The parameters of the set form as the manual shows them, separated by commas; those in brackets may be left
    /// out. Empty where it takes none.
    std::string_view parameters = {};
    /// The parameters of the query form, in the same way.
    std::string_view queryParameters = {};
    /// Parameters with which the set form works on the default instrument right after a reset, once `before` was sent.
    std::string_view example = {};
    /// A message that the set form needs to have been sent before it. Empty for nearly all.
    std::string_view before = {};
    /// What it does, in one sentence, for the manual. Holds no bar, caret or line end.
    std::string_view summary = {};
    /// Null where there is no such form.
    CommandAction set = nullptr;
    CommandQuery query = nullptr;
    /// The answer holds the readings of all channels and is written down.
    bool served = false;
};

/// A part of the manual's table.
struct CommandSection {
    std::string_view title;
    std::vector<Command> commands;
};

/// How many parameters a form takes, as its description says.
struct ParameterCount {
    std::size_t least = 0;
    std::size_t most = 0;
};
ParameterCount countParameters(std::string_view description);

/// All commands, found by their headers.
class CommandTable {
public:
    /// What a header leads to. `command` is null where it leads nowhere.
    struct Match {
        const Command* command = nullptr;
        /// The numbers behind the nodes that can have one, in the order of the row's header.
        std::vector<std::optional<int>> suffixes;
    };

    /// Throws `std::logic_error` where two rows answer to the same header.
    explicit CommandTable(std::vector<CommandSection> sections);
    CommandTable(const CommandTable&) = delete;
    CommandTable& operator=(const CommandTable&) = delete;

    const std::vector<CommandSection>& sections() const { return sections_; }

    /// The row of a whole header. Error -114 (`CommandFailure`) where a node has a number that can't have one.
    Match find(std::span<const HeaderNode> header) const;

private:
    /// A place in the tree of headers. `slots` tells for each node on the way which number it gives, -1 for none.
    struct Place {
        std::vector<std::pair<std::string_view, std::size_t>> children;
        const Command* command = nullptr;
        std::vector<int> slots;
        int slotCount = 0;
    };
    struct PatternNode {
        std::string_view mnemonic;
        int slot = -1;
        bool optional = false;
    };

    static std::vector<PatternNode> readPattern(std::string_view header);
    void add(const Command& command);
    void addPath(const Command& command, std::span<const PatternNode> path, int slotCount);
    std::size_t childFor(std::size_t place, std::string_view mnemonic);

    std::vector<CommandSection> sections_;
    std::vector<Place> places_ = std::vector<Place>(1);
};

} // namespace orb
