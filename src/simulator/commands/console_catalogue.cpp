// SPDX-License-Identifier: GPL-3.0-or-later
#include "console_catalogue.h"

#include "instrument_commands.h"
#include "mnemonic.h"

namespace orb {

namespace {

constexpr std::string_view levelNode = "[:L#]";

/// The header in short forms, with a colon before each node, without optional nodes and numbers.
std::string shortHeader(std::string_view header)
{
    std::string text;
    while (!header.empty()) {
        const bool optional = header.starts_with("[:");
        const std::size_t start = header.find_first_not_of("[:");
        const std::size_t end = std::min(header.find_first_of("[:", start), header.size());
        const std::string_view node = header.substr(start, end - start);
        if (!optional) {
            text += node.starts_with('*') ? "" : ":";
            text += shortForm(node.substr(0, node.find_first_of("#]")));
        }
        header.remove_prefix(end);
    }
    return text;
}

std::string formatOf(const Command& command)
{
    if (command.set != nullptr)
        return command.parameters.empty() ? "no parameter" : std::string(command.parameters);
    return command.queryParameters.empty() ? "query" : std::string(command.queryParameters);
}

CatalogueEntry levelEntry(const Command& command, const std::string& header, char level, const std::string& mark)
{
    return {header + ":L" + level + mark, std::string("Level ") + level + " of " + header + '.', formatOf(command)};
}

} // namespace

std::vector<CatalogueEntry> catalogueEntries(const Command& command)
{
    const std::string header = shortHeader(command.header);
    const std::string mark = command.set == nullptr ? "?" : "";
    std::vector<CatalogueEntry> entries{{header + mark, std::string(command.summary), formatOf(command)}};
    if (command.header.find(levelNode) != std::string_view::npos) {
        for (const char level : {'1', '2'})
            entries.push_back(levelEntry(command, header, level, mark));
    }
    if (!command.queryExample.empty())
        entries.push_back({header + "? " + std::string(command.queryExample), std::string(command.summary), "query"});
    if (command.query != nullptr && command.queryParameters.find("MINimum|MAXimum") != std::string_view::npos) {
        entries.push_back({header + "? MIN", "The least that " + header + " can be set to.", "query"});
        entries.push_back({header + "? MAX", "The most that " + header + " can be set to.", "query"});
    }
    return entries;
}

std::string commandCatalogue()
{
    std::string text;
    for (const CommandSection& section : instrumentCommands()) {
        for (const Command& command : section.commands) {
            for (const CatalogueEntry& entry : catalogueEntries(command))
                text += entry.text + '^' + entry.description + '^' + entry.format + "\r\n";
        }
    }
    return text;
}

} // namespace orb
