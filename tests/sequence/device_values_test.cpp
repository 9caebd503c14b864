// SPDX-License-Identifier: GPL-3.0-or-later
#include "device_values.h"

#include "scripted_dialogs.h"
#include "values.h"

#include <gmock/gmock.h>

namespace orb {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class DeviceValuesTest : public testing::Test {
protected:
    void use(const char* module, const char* mode, const char* range)
    {
        values.sLoadModule = QLatin1String(module);
        values.sLoadMode = QLatin1String(mode);
        values.sLoadRange = QLatin1String(range);
    }

    /// Both scales, as numbers, and what was shown.
    QString scales()
    {
        dialogs.shown.clear();
        QStringList texts{text(values.GetValueScale()), text(values.GetSWValueScale())};
        for (const Shown& shown : dialogs.shown)
            texts << shown.text;
        return texts.join(QStringLiteral(" | "));
    }

    ScriptedDialogs dialogs;
    DeviceValues values{dialogs};
};

TEST_F(DeviceValuesTest, ACodeWithAWordShowsNoMessage)
{
    EXPECT_EQ(values.ByteToLoadModule(7), "K12B");
    EXPECT_EQ(values.ByteToLoadMode(2), "CV");
    EXPECT_EQ(values.ByteToLoadRange(1), "High");
    EXPECT_EQ(values.ByteToSeqTimeBase(5), "0.000001");
    EXPECT_EQ(values.ByteToSeqTimeBase(11), "1");
    EXPECT_THAT(dialogs.shown, IsEmpty());
}

TEST_F(DeviceValuesTest, ACodeWithoutAWordShowsItsMessageAndYieldsTheEmptyText)
{
    EXPECT_EQ(values.ByteToLoadModule(8), "");
    EXPECT_EQ(values.ByteToLoadMode(3), "");
    EXPECT_EQ(values.ByteToLoadRange(2), "");
    EXPECT_EQ(values.ByteToSeqTimeBase(4), "");
    EXPECT_EQ(values.ByteToSeqTimeBase(12), "");
    EXPECT_THAT(dialogs.shown,
                ElementsAre(Shown{"Load Module Error"}, Shown{"Load Mode Error"}, Shown{"Load Range Error"},
                            Shown{"SEQ TimeBase Undefined"}, Shown{"SEQ TimeBase Undefined"}));
}

TEST_F(DeviceValuesTest, TheVoltageRange2IsLow)
{
    EXPECT_EQ(DeviceValues::ByteToLoadVrange(2), "Low 16V");
    EXPECT_EQ(DeviceValues::ByteToLoadVrange(1), "High 80V");
}

TEST_F(DeviceValuesTest, TheScalesAreThoseOfTheModuleAndTheRange)
{
    use("K12B", "CC", "High");
    EXPECT_EQ(scales(), "0.01 | 0.0064");
    use("K14", "CC", "Low");
    EXPECT_EQ(scales(), "0.0002 | 0.00016");
    use("K11", "CC", "High");
    EXPECT_EQ(values.GetValueScale(), 0.005F);
}

TEST_F(DeviceValuesTest, ABadRangeByteIsReportedAgainByTheScales)
{
    use("K13", "CC", "");
    values.sLoadRange = values.ByteToLoadRange(2);
    EXPECT_THAT(dialogs.shown, ElementsAre(Shown{"Load Range Error"}));
    EXPECT_EQ(scales(), "0 | 0 | Range Not supported | SlewRateRange Not supported");
}

TEST_F(DeviceValuesTest, AK12AHasNoLowRange)
{
    use("K12A", "CC", "Low");
    EXPECT_EQ(scales(), "0 | 0 | Range Not supported | SlewRateRange Not supported");
    use("K12A", "CC", "High");
    EXPECT_EQ(scales(), "0.001 | 0.0008");
}

TEST_F(DeviceValuesTest, AModuleWithoutScalesIsReportedWhateverItsRangeIs)
{
    for (const char* module : {"K11AB", "K15", "K16", "K17", ""}) {
        use(module, "CC", "nonsense");
        EXPECT_EQ(scales(), "0 | 0 | Load Module Not supported | Load Module Not supported") << module;
    }
}

TEST_F(DeviceValuesTest, AnyModeButCCIsReportedWhateverTheModuleIs)
{
    for (const char* mode : {"CR", "CV", ""})
        for (const char* module : {"K12B", "K15"}) {
            use(module, mode, "High");
            EXPECT_EQ(scales(), "0 | 0 | Sequence Edit for CC Mode only | Sequence Edit for CC Mode only") << mode;
        }
}

} // namespace
} // namespace orb
