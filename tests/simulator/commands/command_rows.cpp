// SPDX-License-Identifier: GPL-3.0-or-later
#include "command_rows.h"

#include "instrument_commands.h"
#include "mnemonic.h"

#include <algorithm>

namespace orb {

namespace {

struct Node {
    std::string mnemonic;
    bool optional = false;
    bool numbered = false;
};

std::vector<Node> nodesOf(std::string_view header)
{
    std::vector<Node> nodes(1);
    bool optional = false;
    for (const char c : header) {
        if (c == '[')
            optional = true;
        else if (c == ']')
            optional = false;
        else if (c == ':')
            nodes.push_back({"", optional, false});
        else if (c == '#')
            nodes.back().numbered = true;
        else
            nodes.back().mnemonic += c;
    }
    return nodes;
}

std::string lower(std::string text)
{
    std::ranges::transform(text, text.begin(),
                           [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; });
    return text;
}

} // namespace

std::vector<Command> allRows()
{
    std::vector<Command> rows;
    for (const CommandSection& section : instrumentCommands())
        rows.insert(rows.end(), section.commands.begin(), section.commands.end());
    return rows;
}

std::vector<std::string> formsOf(std::string_view header)
{
    std::string full;
    std::string brief;
    std::string numbered;
    for (const Node& node : nodesOf(header)) {
        const std::string shortest(shortForm(node.mnemonic));
        full += (full.empty() ? "" : ":") + node.mnemonic;
        numbered += (header.starts_with('*') ? "" : ":") + lower(shortest) + (node.numbered ? "1" : "");
        if (!node.optional)
            brief += (brief.empty() ? "" : ":") + shortest;
    }
    return {full, brief, numbered};
}

} // namespace orb
