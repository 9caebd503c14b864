// SPDX-License-Identifier: GPL-3.0-or-later
#include "status_flags.h"

#include "printing.h"

#include <gmock/gmock.h>

namespace orb {
namespace {

using testing::ElementsAre;

/// For each of the eight single bits the word that it gives, and with them the word of 0 and of all other bits.
QStringList wordsOf(QString (*decode)(quint8))
{
    QStringList words;
    const QString clear = decode(0);
    for (int bit = 0; bit < 8; ++bit) {
        const auto mask = static_cast<quint8>(1 << bit);
        if (decode(mask) != clear)
            words << QStringLiteral("%1:%2/%3").arg(bit).arg(decode(mask), decode(static_cast<quint8>(~mask)));
    }
    return words;
}

TEST(StatusFlagsTest, EachDecoderLooksAtItsOwnBitAlone)
{
    EXPECT_THAT(wordsOf(ByteToEndofStatus), ElementsAre("0:ON/OFF"));
    EXPECT_THAT(wordsOf(ByteToSeqFlag), ElementsAre("0:ON/OFF"));
    EXPECT_THAT(wordsOf(ByteToLoadStatusRange), ElementsAre("0:High/Low"));
    EXPECT_THAT(wordsOf(ByteToLoadStatusDyna), ElementsAre("1:ON/OFF"));
    EXPECT_THAT(wordsOf(ByteToLoadStatusGongo), ElementsAre("2:ON/OFF"));
    EXPECT_THAT(wordsOf(ByteToLoadStatusGongoprecentvalue), ElementsAre("3:Precent/Value"));
    EXPECT_THAT(wordsOf(ByteToLoadStatusT1_range), ElementsAre("4:1/0"));
    EXPECT_THAT(wordsOf(ByteToLoadStatusVrange), ElementsAre("6:High 80V/Low 16V"));
    EXPECT_THAT(wordsOf(ByteToLoadStatusT2_range), ElementsAre("7:1/0"));
}

TEST(StatusFlagsTest, TheResponseIsFastFrom128On)
{
    EXPECT_EQ(ByteToLoadStatusResponse(128), "FAST 10k");
    EXPECT_EQ(ByteToLoadStatusResponse(127), "SLOW 1k");
    EXPECT_THAT(wordsOf(ByteToLoadStatusResponse), ElementsAre("7:FAST 10k/SLOW 1k"));
}

} // namespace
} // namespace orb
