// SPDX-License-Identifier: GPL-3.0-or-later
#include "prog_file_fields.h"

#include "failure.h"
#include "record_file.h"

#include <QStringList>

#include <gmock/gmock.h>

using namespace orb;
using testing::ElementsAre;

namespace {

int failureOf(const QString& text)
{
    try {
        packedSeconds(text);
    } catch (const RuntimeFailure& failure) {
        return failure.number();
    }
    return 0;
}

TEST(ProgFileFieldsTest, ATimeIsShownInSecondsWithOneDecimal)
{
    QStringList shown;
    for (int tenths : {600, 1, 0, 599, 255, -5, 32767, -32768})
        shown << secondsText(tenths);

    EXPECT_EQ(shown.join(' '), "60.0 0.1 0.0 59.9 25.5 -0.5 3276.7 -3276.8");
}

TEST(ProgFileFieldsTest, EveryTimeThatFitsAByteComesBackAsItWasShown)
{
    for (int tenths = 0; tenths <= 255; ++tenths)
        EXPECT_EQ(packedSeconds(secondsText(tenths)), tenths);
}

TEST(ProgFileFieldsTest, ATimeIsRoundedToTenthsAndATieGoesToTheEvenNeighbor)
{
    std::vector<int> packed;
    for (const char* text : {"0.25", "0.35", "0.01", "Off", "", "12.5S", "25.54"})
        packed.push_back(packedSeconds(QString::fromLatin1(text)));

    EXPECT_THAT(packed, ElementsAre(2, 4, 0, 0, 0, 125, 255));
}

TEST(ProgFileFieldsTest, ATimeOutsideOfAByteIsAnOverflow)
{
    for (const char* text : {"25.6", "59.9", "-0.1", "1e9"})
        EXPECT_EQ(failureOf(QString::fromLatin1(text)), failure::Overflow) << text;
    EXPECT_EQ(failureOf("25.5"), 0);
}

TEST(ProgFileFieldsTest, AFinishedImageStoresItsSumBigEndianAndChangesNothingElse)
{
    ProgFileRecord record{};
    for (std::byte& byte : imageOf(record))
        byte = std::byte{255};

    EXPECT_TRUE(finishImage(record));

    EXPECT_EQ(record.CheckSum, 1'421'880U);
    const auto image = imageOf(record);
    const std::vector<std::byte> first(image.begin(), image.begin() + 5);
    EXPECT_THAT(first, ElementsAre(std::byte{0}, std::byte{0x15}, std::byte{0xB2}, std::byte{0x38}, std::byte{255}));
    EXPECT_EQ(image.back(), std::byte{255});
}

} // namespace
