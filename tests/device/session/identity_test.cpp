// SPDX-License-Identifier: GPL-3.0-or-later
#include "identity.h"

#include <QList>

#include <gmock/gmock.h>

namespace orb {

namespace {
using testing::ElementsAre;
using testing::IsEmpty;
} // namespace

TEST(IdentityTest, AnIdentityIsReadFromFourFieldsOrMore)
{
    EXPECT_EQ(readIdentity("ZN,ORB3000, SIM0001 ,1.0"), (Identity{QStringLiteral("ZN"), QStringLiteral("ORB3000"),
                                                                  QStringLiteral("SIM0001"), QStringLiteral("1.0")}));
    EXPECT_EQ(readIdentity("ZN,ORB3000,,1.0,rev B")->firmware, "1.0,rev B");
    EXPECT_EQ(readIdentity("ZN,ORB3000,0,"),
              (Identity{QStringLiteral("ZN"), QStringLiteral("ORB3000"), QStringLiteral("0"), {}}));
    EXPECT_EQ(readIdentity("Z\xf0\x9f\x98\x80,B,,")->maker, QString::fromUtf8("Z\xf0\x9f\x98\x80"));
}

TEST(IdentityTest, AnyOtherAnswerIsNoIdentity)
{
    for (const char* answer : {"", "SSH-2.0-server_9", "a,b,c", ",,,", ",b,c,d", " ,b,c,d", "a,,c,d", "a, ,c,d",
                               "a,b\x07,c,d", "a,b,c,d\xe2\x80\xae"})
        EXPECT_EQ(readIdentity(answer), std::nullopt) << answer;
}

TEST(IdentityTest, AnIdentityHasTwoHundredAndFiftySixBytesAtMost)
{
    EXPECT_NE(readIdentity("a,b,c," + QByteArray(250, 'd')), std::nullopt);
    EXPECT_EQ(readIdentity("a,b,c," + QByteArray(251, 'd')), std::nullopt);
}

TEST(IdentityTest, AnAnswerIsUtf8OrElseLatin1)
{
    EXPECT_EQ(answerText("caf\xc3\xa9"), QString::fromUtf8("caf\xc3\xa9"));
    EXPECT_EQ(answerText("caf\xe9"), QString::fromUtf8("caf\xc3\xa9"));
    EXPECT_EQ(answerText("1.5"), "1.5");
}

TEST(IdentityTest, AShownTextIsOneLineWithoutControlCharacters)
{
    EXPECT_EQ(shownText("HTTP/1.1 400\r\n\x1b[31mBad\x07 \tRequest"), "HTTP/1.1 400 [31mBad Request");
    EXPECT_EQ(shownText("a\xe2\x80\xae"
                        "b"),
              "a b"); // a change of the text's direction
    EXPECT_EQ(shownText(""), "");
}

TEST(IdentityTest, AShownTextOverItsLimitIsCutAndEndsInAnEllipsis)
{
    EXPECT_EQ(shownText("0123456789", 10), "0123456789");
    EXPECT_EQ(shownText("0123456789x", 10), QString::fromUtf8("0123456789\xe2\x80\xa6"));
    EXPECT_EQ(shownText(QByteArray(60, 'x')).size(), 60);
    EXPECT_EQ(shownText(QByteArray(61, 'x')), QString(60, QLatin1Char('x')) + QChar(0x2026));
    EXPECT_EQ(shownText(QByteArray(1'000'000, ' ') + "x"), "");
}

TEST(IdentityTest, AShownTextKeepsOrLosesACharacterAsAWhole)
{
    const QByteArray smile = "\xf0\x9f\x98\x80"; // two units of UTF-16
    EXPECT_EQ(shownText("12" + smile, 4), QString::fromUtf8("12" + smile));
    EXPECT_EQ(shownText("12" + smile + "3", 4), QString::fromUtf8("12" + smile + "\xe2\x80\xa6"));
    EXPECT_EQ(shownText("123" + smile, 4), QString::fromUtf8("123\xe2\x80\xa6"));
    EXPECT_EQ(shownText(smile + smile, 3), QString::fromUtf8(smile + "\xe2\x80\xa6"));
}

TEST(IdentityTest, AClosingCommaAddsNoField)
{
    EXPECT_THAT(listFields("1,2,"), ElementsAre("1", "2"));
    EXPECT_THAT(listFields("1,2, "), ElementsAre("1", "2"));
    EXPECT_THAT(listFields("1,2"), ElementsAre("1", "2"));
    EXPECT_THAT(listFields(""), IsEmpty());
    EXPECT_THAT(listFields(",,"), ElementsAre("", ""));
}

} // namespace orb
