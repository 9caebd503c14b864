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
    /// The answer to an earlier query of the same message has not been sent yet.
    bool messageAvailable = false;
};

using CommandAction = void (*)(CommandContext&, const CommandCall&);
using CommandQuery = std::string (*)(CommandContext&, const CommandCall&);

/// One row of the command language: everything about one command.
struct Command {
    /// The header: capital letters are the short form, a node in brackets is optional, a number may
    /// follow a node with #. "CURRent#[:STATic][:L#]".
    std::string_view header = {};
    /// The parameters of the set form as the manual shows them, separated by commas; those in brackets
    /// are optional.
    std::string_view parameters = {};
    /// The parameters of the query form, in the same way.
    std::string_view queryParameters = {};
    /// Parameters that the set form takes on the default instrument right after a reset and the message `before`.
    std::string_view example = {};
    /// The same for a query form that can't do without its parameters. Empty for most rows.
    std::string_view queryExample = {};
    /// A message that must have been sent before the set form. Empty for most rows.
    std::string_view before = {};
    /// What it does, for the manual. Holds no bar, caret or line end.
    std::string_view summary = {};
    /// Null where there is no such form.
    CommandAction set = nullptr;
    CommandQuery query = nullptr;
    /// The answer holds the readings of all channels and goes into the served log.
    bool served = false;
};

/// A table of the command language, with its title in the manual.
struct CommandSection {
    std::string_view title;
    std::span<const Command> commands;
};

/// The number of parameters that a form takes, read from its description.
struct ParameterCount {
    std::size_t least = 0;
    std::size_t most = 0;
};
ParameterCount countParameters(std::string_view description);

/// All commands, found by their headers.
class CommandTable {
public:
    /// The row of a header; `command` is null where there is none.
    struct Match {
        const Command* command = nullptr;
        /// The numbers after the nodes that can have one, in the order of the row's header.
        std::vector<std::optional<int>> suffixes;
    };

    /// The rows must outlive the table. Throws `std::logic_error` where two rows have the same header.
    explicit CommandTable(std::span<const CommandSection> sections);
    CommandTable(const CommandTable&) = delete;
    CommandTable& operator=(const CommandTable&) = delete;

    /// Finds the row of a whole header. Error -114 (`CommandFailure`) where a number follows a node that has no #.
    Match find(std::span<const HeaderNode> header) const;

private:
    /// A node in the tree of headers. `slots` says for each node on the path which number it gives, -1 for none.
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

    std::vector<Place> places_ = std::vector<Place>(1);
};

} // namespace orb
