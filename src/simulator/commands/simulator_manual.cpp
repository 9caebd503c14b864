// SPDX-License-Identifier: GPL-3.0-or-later
#include "simulator_manual.h"

#include "instrument_commands.h"
#include "instrument_error.h"
#include "load_module.h"

#include <QByteArray>

namespace orb {

namespace {

std::string number(double value)
{
    return QByteArray::number(value, 'g', 10).toStdString();
}

/// A code span of a table. A bar in it would end the cell.
std::string code(std::string_view text)
{
    std::string span = "`";
    for (const char c : text) {
        if (c == '|')
            span += '\\';
        span += c;
    }
    return span + '`';
}

std::string form(std::string_view header, std::string_view mark, std::string_view parameters)
{
    std::string text(header);
    text += mark;
    if (!parameters.empty())
        text.append(" ").append(parameters);
    return code(text);
}

std::string forms(const Command& command)
{
    std::string text;
    if (command.set != nullptr)
        text = form(command.header, "", command.parameters);
    if (command.set != nullptr && command.query != nullptr)
        text += "<br>";
    if (command.query != nullptr)
        text += form(command.header, "?", command.queryParameters);
    return text;
}

std::string cell(const ValueRange& range)
{
    if (!range.exists())
        return "none";
    return number(range.lowest) + " to " + number(range.highest) + " by " + number(range.step);
}

std::string cells(const RangePair& pair)
{
    return " | " + cell(pair[0]) + "<br>" + cell(pair[1]);
}

} // namespace

std::string commandsManual()
{
    std::string text;
    for (const CommandSection& section : instrumentCommands()) {
        text.append(text.empty() ? "" : "\n").append("## ").append(section.title);
        text += "\n\n| Command | What it does |\n|---|---|\n";
        for (const Command& command : section.commands)
            text.append("| ").append(forms(command)).append(" | ").append(command.summary).append(" |\n");
    }
    return text;
}

std::string modulesManual()
{
    std::string text =
        "| Module | Power, W | Current, A | Resistance, ohm | Voltage, V | Slew rate, A/us | Fully on, ohm |\n"
        "|---|---|---|---|---|---|---|\n";
    for (const LoadModule& module : loadModules()) {
        text.append("| ").append(module.name).append(" | ").append(number(module.maxPower));
        for (const RangePair& pair : module.values)
            text += cells(pair);
        text += cells(module.slewRate);
        text.append(" | ").append(number(module.onResistance)).append(" |\n");
    }
    return text;
}

std::string errorsManual()
{
    std::string text = "| Number | Text |\n|---|---|\n";
    for (const ErrorNumber error : allErrors()) {
        text.append("| ").append(std::to_string(static_cast<int>(error)));
        text.append(" | ").append(errorText(error)).append(" |\n");
    }
    return text;
}

} // namespace orb
