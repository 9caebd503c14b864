// SPDX-License-Identifier: GPL-3.0-or-later
#include "channel_queries.h"

#include <gmock/gmock.h>

namespace orb {

namespace {

enum Query { Modules, Readings, Modes, Limits, SetValues };

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
                 reading(each.setValue) + "\n";
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
            .isHighVoltage = false,
            .level = 2,
            .tripped = QStringLiteral("OP"),
            .setValue = 4,
            .limits = SetLimits{0, 20},
            .areLimitsAsked = true};
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
    EXPECT_EQ(queryFor(Modes, readouts), ":MODE1?;:VOLT1:RANG?;:LEV1?;:LOAD1:PROT?;"
                                         ":MODE2?;:VOLT2:RANG?;:LEV2?;:LOAD2:PROT?;"
                                         ":MODE3?;:VOLT3:RANG?;:LEV3?;:LOAD3:PROT?");
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
    EXPECT_EQ(tableAfter(Modules, "K12, K13 ,"), "K12|1|2|3|on|CCH|2|OP|4\nK13|1|2|3|on|CCH|2|OP|4\n");
    EXPECT_EQ(tableAfter(Modules, "a name of 16 chr"), "a name of 16\xe2\x80\xa6|1|2|3|on|CCH|2|OP|4\n"
                                                       "|1|2|3|on|CCH|2|OP|4\n");
    EXPECT_EQ(tableAfter(Modules, ""), "|1|2|3|on|CCH|2|OP|4\n|1|2|3|on|CCH|2|OP|4\n");
}

TEST(ChannelQueriesTest, AnAnswerAboutTheReadingsIsFourLists)
{
    EXPECT_EQ(tableAfter(Readings, "12.5,-1e1,;5, 6;7,8,;0,1"), "K11|12.5|5|7|off|CCH|2|OP|4\n"
                                                                "K11|-10|6|8|on|CCH|2|OP|4\n");
    EXPECT_EQ(tableAfter(Readings, "nan,inf;x,;7;2,ON"), "K11|-|-|7|-|CCH|2|OP|4\nK11|-|-|-|-|CCH|2|OP|4\n");
    for (const char* answer : {"", "1,2;3,4;5,6", "1,2;3,4;5,6;0,0;7", "garbage"})
        EXPECT_EQ(tableAfter(Readings, answer), "K11|-|-|-|-|CCH|2|OP|4\nK11|-|-|-|-|CCH|2|OP|4\n") << answer;
}

TEST(ChannelQueriesTest, AnAnswerAboutTheModesHasFourPartsForEachChannel)
{
    EXPECT_EQ(tableAfter(Modes, "CV;HIGH;1;OV; CRL ;LOW;2;OC"), "K11|1|2|3|on|CV|1|OV|-\nK11|1|2|3|on|CRL|2|OC|-\n");
    EXPECT_EQ(tableAfter(Modes, "CCHX;LOW;2;NONE;XC;LOW;3;OX"), "K11|1|2|3|on||2||-\nK11|1|2|3|on||1||-\n");
    for (const char* answer : {"", "CV;HIGH;1;OV", "CV;HIGH;1;OV;CV;HIGH;1;OV;CV", "garbage"})
        EXPECT_EQ(tableAfter(Modes, answer), "K11|1|2|3|on||1||-\nK11|1|2|3|on||1||-\n") << answer;
}

TEST(ChannelQueriesTest, SetValueAndLimitsAreKeptWhileModeAndRangeStay)
{
    ChannelReadouts readouts{known()};
    channelQueries[Modes].read("CCH;HIGH;1;NONE", readouts); // the range of the voltage is not that of CC
    EXPECT_EQ(readouts[0].setValue, 4.0);
    EXPECT_EQ(readouts[0].limits, (SetLimits{0, 20}));
    EXPECT_EQ(readouts[0].isHighVoltage, true);
    EXPECT_TRUE(readouts[0].areLimitsAsked);
    for (const char* answer : {"CCL;HIGH;1;NONE", "CRH;HIGH;1;NONE"}) {
        readouts = {known()};
        channelQueries[Modes].read(answer, readouts);
        EXPECT_EQ(readouts[0].setValue, std::nullopt) << answer;
        EXPECT_EQ(readouts[0].limits, std::nullopt) << answer;
        EXPECT_FALSE(readouts[0].areLimitsAsked) << answer;
    }
    readouts = {known()};
    readouts[0].mode = QStringLiteral("CV");
    channelQueries[Modes].read("CV;LOW;1;NONE", readouts);
    EXPECT_EQ(readouts[0].setValue, 4.0);
    channelQueries[Modes].read("CV;HIGH;1;NONE", readouts);
    EXPECT_EQ(readouts[0].setValue, std::nullopt);
}

TEST(ChannelQueriesTest, TheLimitsAreThoseOfTheChannelsThatWereNotAskedYet)
{
    ChannelReadouts readouts(4);
    EXPECT_EQ(queryFor(Limits, readouts), "");
    readouts[0].mode = QStringLiteral("CCL");
    readouts[1] = known();
    readouts[3].mode = QStringLiteral("CV");
    readouts[3].level = 2;
    EXPECT_EQ(queryFor(Limits, readouts), ":CURR1:L1? MIN;:CURR1:L1? MAX;:VOLT4:L2? MIN;:VOLT4:L2? MAX");
    channelQueries[Limits].read("0;2;x;80", readouts);
    EXPECT_EQ(readouts[0].limits, (SetLimits{0, 2}));
    EXPECT_EQ(readouts[1].limits, (SetLimits{0, 20}));
    EXPECT_EQ(readouts[3].limits, std::nullopt);
    EXPECT_EQ(queryFor(Limits, readouts), "") << "an instrument that does not say is not asked again";
}

TEST(ChannelQueriesTest, LimitsThatAreNoneAreUnknown)
{
    for (const char* answer : {"", "5", "5;4", "1;2;3", "garbage;1"}) {
        ChannelReadouts readouts(1);
        readouts[0].mode = QStringLiteral("CCL");
        channelQueries[Limits].read(answer, readouts);
        EXPECT_EQ(readouts[0].limits, std::nullopt) << answer;
    }
}

TEST(ChannelQueriesTest, AnAnswerAboutTheSetValuesHasAPartForEachChannelWithAKnownMode)
{
    ChannelReadouts readouts(4);
    readouts[0].mode = QStringLiteral("CCL");
    readouts[2].mode = QStringLiteral("CRH");
    readouts[3].mode = QStringLiteral("CV");
    channelQueries[SetValues].read("1.5000;4.7;x", readouts);
    EXPECT_EQ(table(readouts), "|-|-|-|-|CCL|1||1.5\n"
                               "|-|-|-|-||1||-\n"
                               "|-|-|-|-|CRH|1||4.7\n"
                               "|-|-|-|-|CV|1||-\n");
    EXPECT_EQ(tableAfter(SetValues, "5;6;7"), "K11|1|2|3|on|CCH|2|OP|-\nK11|1|2|3|on|CCH|2|OP|-\n");
}

} // namespace orb
