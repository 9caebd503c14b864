// SPDX-License-Identifier: GPL-3.0-or-later
// The rules of SCPI-99 and IEEE 488.2 that docs/scpi.md says are kept, and those that it says are not.
#include "directories.h"
#include "instrument_fixture.h"

#include <QFile>
#include <QRegularExpression>

namespace orb {
namespace {

struct Example {
    std::string message;
    std::string answer;
};

/// The last two cells of each row of the page's tables, where they hold text.
std::vector<Example> examplesOfThePage()
{
    QFile page(sourceDirectory() + QStringLiteral("/docs/scpi.md"));
    EXPECT_TRUE(page.open(QIODevice::ReadOnly));
    static const QRegularExpression row(QStringLiteral("^\\|.*\\| `([^`]+)` \\| `([^`]+)` \\|$"));
    std::vector<Example> examples;
    for (const QString& line : QString::fromUtf8(page.readAll()).split(QLatin1Char('\n')))
        if (const auto match = row.match(line); match.hasMatch())
            examples.push_back({match.captured(1).toStdString(), match.captured(2).toStdString()});
    return examples;
}

class StandardRulesTest : public InstrumentFixture {};

TEST_F(StandardRulesTest, EveryExampleOfThePageIsAnsweredAsItSays)
{
    const std::vector<Example> examples = examplesOfThePage();
    EXPECT_EQ(examples.size(), 51U);
    for (const auto& [message, answer] : examples) {
        build(quietConfiguration());
        EXPECT_EQ(query(message), answer) << message;
    }
}

TEST_F(StandardRulesTest, EveryMultiplierHasItsFactor)
{
    for (const char* amperes : {"2E-18EXA", "2E-15PEA", "2E-12TA", "2E-9GA", "2E-6MAA", "2E-3KA", "2A", "2E3MA",
                                "2E6UA", "2E9NA", "2E12PA", "2E15FA", "2E18AA"}) {
        send(std::string(":CURR 0;:CURR ") + amperes);
        EXPECT_EQ(query(":CURR?"), "2.0000") << amperes;
    }
    EXPECT_EQ(errors(), noError);
}

} // namespace
} // namespace orb
