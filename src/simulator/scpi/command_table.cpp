// SPDX-License-Identifier: GPL-3.0-or-later
#include "command_table.h"

#include "instrument_error.h"
#include "mnemonic.h"

#include <algorithm>
#include <stdexcept>

namespace orb {

ParameterCount countParameters(std::string_view description)
{
    if (description.empty())
        return {};
    ParameterCount count{description.front() == '[' ? 0U : 1U, 1};
    bool optional = description.front() == '[';
    for (const char c : description) {
        if (c == '[')
            optional = true;
        if (c != ',')
            continue;
        ++count.most;
        if (!optional)
            ++count.least;
    }
    return count;
}

CommandTable::CommandTable(std::span<const CommandSection> sections)
{
    for (const CommandSection& section : sections) {
        for (const Command& command : section.commands)
            add(command);
    }
}

std::vector<CommandTable::PatternNode> CommandTable::readPattern(std::string_view header)
{
    std::vector<PatternNode> nodes;
    int slot = 0;
    while (!header.empty()) {
        PatternNode node;
        node.optional = header.starts_with("[:");
        header.remove_prefix(node.optional ? 2 : header.starts_with(':') ? 1 : 0);
        node.mnemonic = header.substr(0, header.find_first_of("#:[]"));
        header.remove_prefix(node.mnemonic.size());
        if (header.starts_with('#')) {
            node.slot = slot++;
            header.remove_prefix(1);
        }
        if (node.optional)
            header.remove_prefix(1);
        nodes.push_back(node);
    }
    return nodes;
}

void CommandTable::add(const Command& command)
{
    const std::vector<PatternNode> nodes = readPattern(command.header);
    const auto slotCount = static_cast<int>(std::ranges::count_if(nodes, [](auto& node) { return node.slot >= 0; }));
    std::vector<std::vector<PatternNode>> paths{{}};
    for (const PatternNode& node : nodes) {
        const std::vector<std::vector<PatternNode>> without = node.optional ? paths : decltype(paths){};
        for (std::vector<PatternNode>& path : paths)
            path.push_back(node);
        paths.insert(paths.end(), without.begin(), without.end());
    }
    for (const std::vector<PatternNode>& path : paths)
        addPath(command, path, slotCount);
}

void CommandTable::addPath(const Command& command, std::span<const PatternNode> path, int slotCount)
{
    std::size_t at = 0;
    std::vector<int> slots;
    for (const PatternNode& node : path) {
        at = childFor(at, node.mnemonic);
        slots.push_back(node.slot);
    }
    Place& place = places_[at];
    if (place.command != nullptr)
        throw std::logic_error("two commands share the header " + std::string(command.header));
    place.command = &command;
    place.slots = std::move(slots);
    place.slotCount = slotCount;
}

std::size_t CommandTable::childFor(std::size_t place, std::string_view mnemonic)
{
    for (const auto& [name, child] : places_[place].children) {
        if (name == mnemonic)
            return child;
        if (isMnemonic(name, mnemonic) || isMnemonic(name, shortForm(mnemonic)))
            throw std::logic_error(std::string(name) + " and " + std::string(mnemonic) + " share a form");
    }
    places_[place].children.emplace_back(mnemonic, places_.size());
    places_.emplace_back();
    return places_.size() - 1;
}

CommandTable::Match CommandTable::find(std::span<const HeaderNode> header) const
{
    std::size_t at = 0;
    for (const HeaderNode& node : header) {
        const auto& children = places_[at].children;
        const auto child =
            std::ranges::find_if(children, [&](const auto& each) { return isMnemonic(each.first, node.mnemonic); });
        if (child == children.end())
            return {};
        at = child->second;
    }
    const Place& place = places_[at];
    if (place.command == nullptr)
        return {};
    Match match{place.command, std::vector<std::optional<int>>(static_cast<std::size_t>(place.slotCount))};
    for (std::size_t i = 0; i < header.size(); ++i) {
        if (place.slots[i] >= 0)
            match.suffixes[static_cast<std::size_t>(place.slots[i])] = header[i].suffix;
        else if (header[i].suffix)
            throw CommandFailure{ErrorNumber::HeaderSuffixOutOfRange};
    }
    return match;
}

} // namespace orb
