// SPDX-License-Identifier: GPL-3.0-or-later
#include "sequence_values.h"

#include "values.h"

#include <gmock/gmock.h>

namespace orb {
namespace {

using testing::ElementsAre;

template <typename Number> QString textOrNone(const std::optional<Number>& number)
{
    return number ? text(*number) : QStringLiteral("none");
}

QStringList wordsFrom(int first, int last, std::optional<QString> (*word)(int))
{
    QStringList words;
    for (int code = first; code <= last; ++code)
        words << word(code).value_or(QStringLiteral("none"));
    return words;
}

TEST(SequenceValuesTest, TheModulesHaveTheCodes0To7WithK12BAsTheLast)
{
    EXPECT_THAT(wordsFrom(-1, 8, loadModuleWord),
                ElementsAre("none", "K11AB", "K12A", "K13", "K14", "K15", "K16", "K17", "K12B", "none"));
}

TEST(SequenceValuesTest, TheModesHaveTheCodes0To2)
{
    EXPECT_THAT(wordsFrom(-1, 3, loadModeWord), ElementsAre("none", "CC", "CR", "CV", "none"));
}

TEST(SequenceValuesTest, TheRangesHaveTheCodes0And1)
{
    EXPECT_THAT(wordsFrom(-1, 2, loadRangeWord), ElementsAre("none", "Low", "High", "none"));
    EXPECT_EQ(loadRangeWord(255), std::nullopt);
}

TEST(SequenceValuesTest, OnlyTheVoltageRange1IsHigh)
{
    EXPECT_THAT((QStringList{loadVrangeWord(0), loadVrangeWord(1), loadVrangeWord(2), loadVrangeWord(255)}),
                ElementsAre("Low 16V", "High 80V", "Low 16V", "Low 16V"));
}

TEST(SequenceValuesTest, TheTimeBasesOfTheCodes5To11AreDecadesFromAMicrosecondToASecond)
{
    QStringList seconds;
    for (int code = 4; code <= 12; ++code)
        seconds << textOrNone(timeBaseSeconds(code));

    EXPECT_THAT(seconds, ElementsAre("none", "0.000001", "0.00001", "0.0001", "0.001", "0.01", "0.1", "1", "none"));
    EXPECT_EQ(timeBaseSeconds(-32768), std::nullopt);
    EXPECT_EQ(timeBaseSeconds(32767), std::nullopt);
}

TEST(SequenceValuesTest, EachModuleHasItsScalesOrNone)
{
    QStringList rows;
    for (const char* module : {"K11", "K11AB", "K12A", "K12B", "K13", "K14", "K15", "K16", "K17", ""})
        rows << QStringLiteral("%1 %2 %3 %4 %5")
                    .arg(module, textOrNone(valueScale(module, "High")), textOrNone(valueScale(module, "Low")),
                         textOrNone(slewScale(module, "High")), textOrNone(slewScale(module, "Low")));

    EXPECT_THAT(rows,
                ElementsAre("K11 0.005 0.0005 0.0032 0.00032", "K11AB none none none none",
                            "K12A 0.001 none 0.0008 none", "K12B 0.01 0.001 0.0064 0.00064",
                            "K13 0.01 0.001 0.01 0.001", "K14 0.002 0.0002 0.0016 0.00016", "K15 none none none none",
                            "K16 none none none none", "K17 none none none none", " none none none none"));
}

TEST(SequenceValuesTest, ARangeWithoutAWordHasNoScaleInAnyModule)
{
    EXPECT_EQ(valueScale("K13", ""), std::nullopt);
    EXPECT_EQ(slewScale("K13", "high"), std::nullopt);
}

TEST(SequenceValuesTest, FiveModulesHaveScales)
{
    QStringList modules;
    for (const char* module : {"K11", "K11AB", "K12A", "K12B", "K13", "K14", "K15", "K16", "K17", ""})
        if (hasScales(module))
            modules << module;

    EXPECT_THAT(modules, ElementsAre("K11", "K12A", "K12B", "K13", "K14"));
}

} // namespace
} // namespace orb
