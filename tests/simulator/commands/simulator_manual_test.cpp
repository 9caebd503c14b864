// SPDX-License-Identifier: GPL-3.0-or-later
#include "directories.h"
#include "simulator_manual.h"

#include <QFile>

#include <gmock/gmock.h>

namespace orb {
namespace {

/// What stands in a document between "<!-- begin NAME -->" and "<!-- end NAME -->", the lines of these two left out.
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
        << "to mend it, put what orb-simulator --commands prints between the marks";
}

TEST(SimulatorManualTest, TheDocumentHasTheTableOfTheErrors)
{
    EXPECT_EQ(printedPart("command-language.md", "errors"), errorsManual())
        << "to mend it, put what orb-simulator --errors prints between the marks";
}

TEST(SimulatorManualTest, TheDocumentHasTheTableOfTheModules)
{
    EXPECT_EQ(printedPart("simulator.md", "modules"), modulesManual())
        << "to mend it, put what orb-simulator --catalogue prints between the marks";
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
