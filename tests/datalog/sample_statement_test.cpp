// SPDX-License-Identifier: GPL-3.0-or-later
#include "sample_statement.h"

#include "failure.h"
#include "printing.h"

#include <gmock/gmock.h>

using namespace orb;

namespace {

const QDateTime time({2024, 1, 31}, {10, 15, 9});

TEST(SampleStatementTest, TheStatementIsJoinedToTheLetter)
{
    SampleStatement statement(7, time, 2);
    statement.append("1.1", "12.1");
    statement.append("2.1", "12.2");

    EXPECT_EQ(statement.sql(), "insert into DataMeasure (SeqNo,RecTime,PVal1,SVal1,PVal2,SVal2)  values(7,'2024/01/31 "
                               "10:15:09',1.1,12.1,2.1,12.2)");
}

TEST(SampleStatementTest, AStatementWithoutAChannelIsRefused)
{
    try {
        const SampleStatement statement(7, time, 0);
        FAIL();
    } catch (const RuntimeFailure& failure) {
        EXPECT_EQ(failure.number(), 5);
    }
}

TEST(SampleStatementTest, AFieldThatIsNoNumberIsRefusedInEitherPlace)
{
    for (const auto& [current, voltage] : std::vector<std::pair<QString, QString>>{{"1", "x"}, {"x", "1"}}) {
        SampleStatement statement(7, time, 2);
        statement.append("1.1", "12.1");
        statement.append(current, voltage);
        try {
            statement.sql();
            FAIL();
        } catch (const RuntimeFailure& failure) {
            EXPECT_EQ(failure.number(), 3061);
        }
    }
}

TEST(SampleStatementTest, ANumberIsWhatTheDatabaseReadsAsOne)
{
    for (const char* number : {"0", "12", "-0.0500", "+1.5", "1.", ".5", "1E3", "1.20E-03", "1e+10", " 7", "7\r\n",
                               "\t7", "0x1F", "-0X1f", "0x0123456789ABCDEF", "000"})
        EXPECT_TRUE(isNumericLiteral(number)) << number;
}

TEST(SampleStatementTest, AnythingElseIsNoNumber)
{
    for (const char* text : {"",
                             " ",
                             ".",
                             "-",
                             "+-1",
                             "--1",
                             "- 1",
                             "1 2",
                             "1..2",
                             "1.2.3",
                             "E3",
                             ".E3",
                             "1E",
                             "1E+",
                             "1E3.5",
                             "0x",
                             "0x0123456789ABCDEF0",
                             "1x",
                             "x",
                             "nan",
                             "inf",
                             "null",
                             "'1'",
                             "\"1\"",
                             "1+1",
                             "(1)",
                             "1;",
                             "1/*",
                             "1--",
                             "?",
                             "1\n2",
                             "\u0661",
                             "\u00a01"})
        EXPECT_FALSE(isNumericLiteral(QString::fromUtf8(text))) << text;
    EXPECT_FALSE(isNumericLiteral(QString("1") + QChar(0)));
}

TEST(SampleStatementTest, ATimeIsWrittenWithSlashes)
{
    EXPECT_EQ(recordTime(time), "2024/01/31 10:15:09");
}

} // namespace
