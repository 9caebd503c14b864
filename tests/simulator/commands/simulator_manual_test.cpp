// SPDX-License-Identifier: GPL-3.0-or-later
#include "directories.h"
#include "load_settings.h"
#include "simulator_configuration.h"
#include "simulator_manual.h"

#include <QFile>

#include <gmock/gmock.h>

namespace orb {
namespace {

/// The lines of a document between "<!-- begin NAME -->" and "<!-- end NAME -->".
std::string printedPart(const char* document, const std::string& name)
{
    QFile file(sourceDirectory() + QStringLiteral("/docs/") + QString::fromLatin1(document));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << document;
    const std::string text = file.readAll().toStdString();
    const std::string begin = "<!-- begin " + name + " -->\n";
    const std::size_t from = text.find(begin);
    const std::size_t to = text.find("<!-- end " + name + " -->\n");
    if (from == std::string::npos || to == std::string::npos || to < from)
        return "no such part";
    return text.substr(from + begin.size(), to - from - begin.size());
}

TEST(SimulatorManualTest, TheDocumentHasTheTablesOfTheCommandLanguage)
{
    EXPECT_EQ(printedPart("command-language.md", "commands"), commandsManual())
        << "after a change, put what orb-simulator --commands prints between the marks";
}

TEST(SimulatorManualTest, TheDocumentHasTheTableOfTheErrors)
{
    EXPECT_EQ(printedPart("command-language.md", "errors"), errorsManual())
        << "after a change, put what orb-simulator --errors prints between the marks";
}

TEST(SimulatorManualTest, TheDocumentHasTheTableOfTheModules)
{
    EXPECT_EQ(printedPart("simulator.md", "modules"), modulesManual())
        << "after a change, put what orb-simulator --catalogue prints between the marks";
}

std::string text(double value)
{
    return QByteArray::number(value).toStdString();
}

/// One channel as a row of a table: all that its configuration has.
std::string rowOf(const ChannelConfiguration& channel)
{
    const Source& source = channel.source;
    LoadSettings settings;
    settings.function = channel.function;
    settings.ranges[indexOf(channel.function)] = channel.range;
    constexpr const char* units[] = {" A", " ohm", " V"};
    const std::string cells[] = {
        channel.module,
        source.name,
        text(source.openCircuitVoltage),
        text(source.seriesResistance),
        text(source.noise),
        source.swing > 0 ? text(source.swing) + " in " + text(source.swingPeriod) + " s" : "none",
        source.capacity > 0 ? text(source.capacity) + " Ah to " + text(source.emptyVoltage) + " V" : "none",
        std::string(modeName(settings)) + ' ' + text(channel.setValue) + units[indexOf(channel.function)],
    };
    std::string row;
    for (const std::string& cell : cells)
        row += " | " + cell;
    return row + " |\n";
}

TEST(SimulatorManualTest, TheDocumentHasTheTableOfTheDefaultInstrument)
{
    std::string table =
        "| Channel | Module | Source | Open circuit, V | Resistance, ohm | Noise, V | Swing, V | Battery "
        "| Set to |\n|---|---|---|---|---|---|---|---|---|\n";
    int number = 0;
    for (const ChannelConfiguration& channel : defaultConfiguration(maxChannels).channels)
        table += "| " + std::to_string(++number) + rowOf(channel);
    EXPECT_EQ(printedPart("simulator.md", "instrument"), table) << "after a change, put this table between the marks";
}

TEST(SimulatorManualTest, ARowShowsBothFormsOfACommandAndEscapesBars)
{
    const std::string manual = commandsManual();
    EXPECT_THAT(manual, testing::HasSubstr("| `LOAD#[:STATe] ON\\|OFF\\|1\\|0`<br>`LOAD#[:STATe]?` | "));
    EXPECT_THAT(manual, testing::HasSubstr("| `*IDN?` | "));
    EXPECT_THAT(manual, testing::HasSubstr("| `ABORt` | "));
}

} // namespace
} // namespace orb
