// SPDX-License-Identifier: GPL-3.0-or-later
#include "channel_queries.h"

#include <gmock/gmock.h>

namespace orb {

namespace {

enum Query { Modules, Readings, Modes, SetValues };

QByteArray queryFor(Query query, const ChannelReadouts& readouts)
{
    return channelQueries[query].text(readouts);
}

std::string reading(const std::optional<double>& value)
{
    return value ? QString::number(*value).toStdString() : "-";
}

/// A line for each channel; a minus sign is unknown.
std::string table(const ChannelReadouts& readouts)
{
    std::string lines;
    for (const ChannelReadout& each : readouts)
        lines += each.module.toStdString() + "|" + reading(each.volts) + "|" + reading(each.amperes) + "|" +
                 reading(each.watts) + "|" + (each.loadOn ? *each.loadOn ? "on" : "off" : "-") + "|" +
                 each.mode.toStdString() + "|" + std::to_string(each.level) + "|" + each.tripped.toStdString() + "|" +
                 each.setValue.toStdString() + "\n";
    return lines;
}

ChannelReadout known()
{
    return {.module = QStringLiteral("K11"),
            .volts = 1,
            .amperes = 2,
            .watts = 3,
            .loadOn = true,
            .mode = QStringLiteral("CCH"),
            .level = 2,
            .tripped = QStringLiteral("OP"),
            .setValue = QStringLiteral("4 A")};
}

/// What two channels of which everything was known become by an answer.
std::string tableAfter(Query query, const QByteArray& answer)
{
    ChannelReadouts readouts{known(), known()};
    channelQueries[query].read(answer, readouts);
    return table(readouts);
}

} // namespace

TEST(ChannelQueriesTest, TheQueriesNameEveryChannel)
{
    ChannelReadouts readouts(3);
    EXPECT_EQ(queryFor(Modules, readouts), "*OPT?");
    EXPECT_EQ(queryFor(Readings, readouts), ":FETC:ALLV?;:FETC:ALLC?;:FETC:ALLP?;:LOAD:ALL?");
    EXPECT_EQ(queryFor(Modes, readouts), ":MODE1?;:LEV1?;:LOAD1:PROT?;:MODE2?;:LEV2?;:LOAD2:PROT?;"
                                         ":MODE3?;:LEV3?;:LOAD3:PROT?");
}

TEST(ChannelQueriesTest, TheSetValuesAreThoseOfTheModeAndLevelInForce)
{
    ChannelReadouts readouts(4);
    EXPECT_EQ(queryFor(SetValues, readouts), "");
    readouts[0].mode = QStringLiteral("CCL");
    readouts[2].mode = QStringLiteral("CRH");
    readouts[2].level = 2;
    readouts[3].mode = QStringLiteral("CV");
    EXPECT_EQ(queryFor(SetValues, readouts), ":CURR1:L1?;:RES3:L2?;:VOLT4:L1?");
}

TEST(ChannelQueriesTest, AnAnswerAboutTheModulesIsAList)
{
    EXPECT_EQ(tableAfter(Modules, "K12, K13 ,"), "K12|1|2|3|on|CCH|2|OP|4 A\nK13|1|2|3|on|CCH|2|OP|4 A\n");
    EXPECT_EQ(tableAfter(Modules, "a name of 16 chr"), "a name of 16\xe2\x80\xa6|1|2|3|on|CCH|2|OP|4 A\n"
                                                       "|1|2|3|on|CCH|2|OP|4 A\n");
    EXPECT_EQ(tableAfter(Modules, ""), "|1|2|3|on|CCH|2|OP|4 A\n|1|2|3|on|CCH|2|OP|4 A\n");
}

TEST(ChannelQueriesTest, AnAnswerAboutTheReadingsIsFourLists)
{
    EXPECT_EQ(tableAfter(Readings, "12.5,-1e1,;5, 6;7,8,;0,1"), "K11|12.5|5|7|off|CCH|2|OP|4 A\n"
                                                                "K11|-10|6|8|on|CCH|2|OP|4 A\n");
    EXPECT_EQ(tableAfter(Readings, "nan,inf;x,;7;2,ON"), "K11|-|-|7|-|CCH|2|OP|4 A\nK11|-|-|-|-|CCH|2|OP|4 A\n");
    for (const char* answer : {"", "1,2;3,4;5,6", "1,2;3,4;5,6;0,0;7", "garbage"})
        EXPECT_EQ(tableAfter(Readings, answer), "K11|-|-|-|-|CCH|2|OP|4 A\nK11|-|-|-|-|CCH|2|OP|4 A\n") << answer;
}

TEST(ChannelQueriesTest, AnAnswerAboutTheModesHasThreePartsForEachChannel)
{
    EXPECT_EQ(tableAfter(Modes, "CV;1;OV; CRL ;2;OC"), "K11|1|2|3|on|CV|1|OV|4 A\nK11|1|2|3|on|CRL|2|OC|4 A\n");
    EXPECT_EQ(tableAfter(Modes, "CCHX;2;NONE;XC;3;OX"), "K11|1|2|3|on||2||\nK11|1|2|3|on||1||\n");
    for (const char* answer : {"", "CV;1;OV", "CV;1;OV;CV;1;OV;CV", "garbage"})
        EXPECT_EQ(tableAfter(Modes, answer), "K11|1|2|3|on||1||\nK11|1|2|3|on||1||\n") << answer;
}

TEST(ChannelQueriesTest, AnAnswerAboutTheSetValuesHasAPartForEachChannelWithAKnownMode)
{
    ChannelReadouts readouts(4);
    readouts[0].mode = QStringLiteral("CCL");
    readouts[2].mode = QStringLiteral("CRH");
    readouts[3].mode = QStringLiteral("CV");
    channelQueries[SetValues].read("1.5000;4.7;x", readouts);
    EXPECT_EQ(table(readouts), "|-|-|-|-|CCL|1||1.5 A\n"
                               "|-|-|-|-||1||\n"
                               "|-|-|-|-|CRH|1||4.7 \xce\xa9\n"
                               "|-|-|-|-|CV|1||\n");
    EXPECT_EQ(tableAfter(SetValues, "5;6;7"), "K11|1|2|3|on|CCH|2|OP|\nK11|1|2|3|on|CCH|2|OP|\n");
}

} // namespace orb
