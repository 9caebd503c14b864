// SPDX-License-Identifier: GPL-3.0-or-later
#include "instrument_screen.h"

#include "instrument_fixture.h"

#include <QPainter>

namespace orb {
namespace {

using namespace std::chrono_literals;

/// Finds texts on the picture by their pixels, whatever their colors are.
class InstrumentScreenTest : public InstrumentFixture {
protected:
    QImage screen()
    {
        const std::string answer = query(":HCOP:SDUM:DATA?");
        EXPECT_EQ(answer.substr(0, 2), "#6");
        return QImage::fromData(QByteArray::fromStdString(answer.substr(8)), "BMP")
            .convertToFormat(QImage::Format_RGB32);
    }

    /// True where the part of the picture changes with what `message` does.
    bool changes(const QRect& area, const std::string& message)
    {
        const QImage before = screen().copy(area);
        send(message);
        return screen().copy(area) != before;
    }

    static constexpr QRect voltage{0, 28, 200, 36};
    static constexpr QRect current{0, 68, 200, 36};
    static constexpr QRect state{236, 32, 74, 32};
    static constexpr QRect channelName{4, 2, 52, 18};
    static constexpr QRect mode{112, 2, 60, 18};
    static constexpr QRect setValue{10, 150, 140, 20};
    static constexpr QRect otherLevel{160, 150, 140, 20};
    static constexpr QRect entry{54, 174, 120, 20};
    static constexpr QRect status{0, 200, 260, 16};
    static constexpr QRect softKeys{0, 218, 320, 20};
    static constexpr QRect page{0, 22, 320, 176};
};

TEST_F(InstrumentScreenTest, TheAnswerIsABitmapOf320By240InABlock)
{
    const std::string answer = query(":HCOP:SDUM:DATA?");
    EXPECT_EQ(answer.substr(0, 10), "#6230454BM");
    EXPECT_EQ(answer.size(), 8U + 54U + 320U * 240U * 3U);
    EXPECT_EQ(screen().size(), QSize(320, 240));
}

TEST_F(InstrumentScreenTest, TheSameStateGivesTheSamePixels)
{
    send(":LOAD ON");
    EXPECT_EQ(screen(), screen());
    const QImage first = screen();
    build(quietConfiguration());
    send(":LOAD ON");
    EXPECT_EQ(screen(), first);
}

TEST_F(InstrumentScreenTest, TheBitmapHasThePixelsThatWereDrawn)
{
    Mainframe mainframe(quietConfiguration(), time.clock());
    EXPECT_EQ(screen(), drawInstrumentScreen(mainframe, defaultConfiguration().identity));
}

TEST_F(InstrumentScreenTest, TheReadingsFollowTheLoad)
{
    send(":CURR 1");
    EXPECT_TRUE(changes(voltage, ":LOAD ON"));
    EXPECT_TRUE(changes(current, ":CURR 1.5"));
    EXPECT_FALSE(changes(page, ":SYST:BEEP:STAT OFF"));
}

TEST_F(InstrumentScreenTest, TheLoadKeyChangesTheStateOfTheLoad)
{
    EXPECT_TRUE(changes(state, ":KEYB:CODE 111,1"));
    EXPECT_TRUE(changes(state, ":KEYB:CODE 111,1"));
}

TEST_F(InstrumentScreenTest, TheChannelKeyGoesToTheNextChannelAndAfterShiftBack)
{
    EXPECT_TRUE(changes(channelName, ":KEYB:CODE 112,1"));
    EXPECT_EQ(query(":CHAN?"), "2");
    EXPECT_FALSE(changes(channelName, ":KEYB:CODE 110,1"));
    EXPECT_TRUE(changes(channelName, ":KEYB:CODE 112,1"));
    EXPECT_EQ(query(":CHAN?"), "1");
    send(":KEYB:CODE 110,1;:KEYB:CODE 112,1");
    EXPECT_EQ(query(":CHAN?"), "3") << "from the first one to the last";
    send(":KEYB:CODE 112,1");
    EXPECT_EQ(query(":CHAN?"), "1") << "SHIFT holds for one key";
}

TEST_F(InstrumentScreenTest, ShiftIsShownUntilTheNextKeyAndASecondShiftTakesItBack)
{
    const QRect shift(270, 200, 46, 16);
    const QImage without = screen().copy(shift);
    send(":KEYB:CODE 110,1");
    EXPECT_NE(screen().copy(shift), without);
    send(":KEYB:CODE 110,1");
    EXPECT_EQ(screen().copy(shift), without);
    send(":KEYB:CODE 110,1;:KEYB:CODE 107,1");
    EXPECT_EQ(screen().copy(shift), without);
}

TEST_F(InstrumentScreenTest, TypedDigitsAreInTheEntryLineUntilTheyAreEntered)
{
    const QImage empty = screen().copy(entry);
    EXPECT_TRUE(changes(entry, ":KEYB:CODE 97,1"));
    EXPECT_TRUE(changes(entry, ":KEYB:CODE 106,1"));
    EXPECT_TRUE(changes(entry, ":KEYB:CODE 98,1"));
    EXPECT_TRUE(changes(setValue, ":KEYB:CODE 108,1"));
    EXPECT_EQ(query(":CURR?"), "1.2000");
    EXPECT_EQ(screen().copy(entry), empty);
}

TEST_F(InstrumentScreenTest, TheKnobChangesTheSetValueInForce)
{
    EXPECT_TRUE(changes(setValue, ":KEYB:CODE 214,255"));
    EXPECT_TRUE(changes(setValue, ":KEYB:CODE 214,1"));
    send(":KEYB:CODE 109,1"); // the other level
    EXPECT_FALSE(changes(setValue, ":KEYB:CODE 214,255"));
    EXPECT_TRUE(changes(otherLevel, ":KEYB:CODE 214,255"));
}

TEST_F(InstrumentScreenTest, TheFunctionKeyChangesTheMode)
{
    EXPECT_TRUE(changes(mode, ":KEYB:CODE 118,1"));
}

TEST_F(InstrumentScreenTest, EachSoftKeyShowsItsOwnPageAndLightsItsCaption)
{
    std::vector<QImage> pages;
    for (const char* code : {"113", "114", "115", "116", "117"}) {
        send(std::string(":KEYB:CODE ") + code + ",1");
        const QImage picture = screen();
        for (const QImage& other : pages) {
            EXPECT_NE(picture.copy(page), other.copy(page)) << code;
            EXPECT_NE(picture.copy(softKeys), other.copy(softKeys)) << code;
        }
        pages.push_back(picture);
    }
}

TEST_F(InstrumentScreenTest, TheVerdictIsShownWhileTheChannelIsJudged)
{
    const QRect verdict(236, 94, 74, 18);
    EXPECT_FALSE(changes(verdict, ":LIM1:VOLT:LOW 11;:LIM1:VOLT:HIGH 13"));
    EXPECT_TRUE(changes(verdict, ":LIM1 ON"));
    EXPECT_TRUE(changes(verdict, ":LIM1:VOLT:LOW 13;:LIM1:VOLT:HIGH 14")) << "from one verdict to the other";
    EXPECT_TRUE(changes(verdict, ":LIM1 OFF"));
}

TEST_F(InstrumentScreenTest, ThePageOfAllChannelsHasARowForEachWithABarForTheSelectedOne)
{
    send(":KEYB:CODE 114,1;:CHAN 3");
    for (int number = 1; number <= 3; ++number) {
        const QRect row(0, page.top() + 19 + (number - 1) * 18, 320, 17);
        EXPECT_TRUE(changes(row, ":CHAN " + std::to_string(number))) << number;
        EXPECT_TRUE(changes(row, ":LOAD ON")) << number;
    }
}

TEST_F(InstrumentScreenTest, ARunningSequenceIsInTheStatusLineAndOnItsPage)
{
    send(":SEQ:EDIT:POIN 1;:SEQ:POIN:DATA 1,1,0.8,0.8;:SEQ:EDIT:POIN 2;:SEQ:POIN:DATA 1,0.5,0.8,0.8;:SEQ:END 2");
    send(":LOAD ON");
    EXPECT_TRUE(changes(status, ":SEQ:RUN"));
    send(":KEYB:CODE 115,1");
    const QImage first = screen();
    time.advance(1500ms); // the second point
    EXPECT_NE(screen().copy(status), first.copy(status));
    EXPECT_NE(screen().copy(page), first.copy(page));
}

TEST_F(InstrumentScreenTest, TheCurveOfASequenceHasAStepForEachPoint)
{
    send(":SEQ:EDIT:POIN 1;:SEQ:POIN:DATA 1,1,0.8,0.8;:SEQ:EDIT:POIN 2;:SEQ:POIN:DATA 1,0.5,0.8,0.8;:SEQ:END 2");
    send(":KEYB:CODE 115,1");
    const QImage picture = screen();
    const auto lengthOfLine = [&picture](int from, int to) {
        int longest = 0;
        for (int y = 108; y < 188; ++y) {
            int length = 0;
            for (int x = from; x < to; ++x)
                length += picture.pixel(x, y) != picture.pixel(from, 107);
            longest = std::max(longest, length);
        }
        return longest;
    };
    EXPECT_GT(lengthOfLine(16, 156), 130) << "the first half of the time";
    EXPECT_GT(lengthOfLine(166, 306), 130) << "the second";
}

TEST_F(InstrumentScreenTest, ARunningProgramIsInTheStatusLineAndOnItsPage)
{
    send(":PROG:STAR P01;:PROG:FILE 1;:PROG:SEQ 1;:PROG:MEM 1;:PROG:SEQ:MODE MAN;:LOAD ON;:KEYB:CODE 116,1");
    const QImage before = screen();
    send(":PROG:RUN");
    EXPECT_NE(screen().copy(status), before.copy(status));
    EXPECT_NE(screen().copy(page), before.copy(page));
}

TEST_F(InstrumentScreenTest, WhatAKeyCouldNotDoIsInTheStatusLineUntilTheNextKey)
{
    const QImage ready = screen().copy(status);
    send(":KEYB:CODE 105,1;:KEYB:CODE 105,1;:KEYB:CODE 108,1");
    const QImage outOfRange = screen().copy(status);
    EXPECT_NE(outOfRange, ready);
    send(":KEYB:CODE 107,1");
    EXPECT_EQ(screen().copy(status), ready);
    send(":KEYB:LOCK ON;:KEYB:CODE 112,1");
    EXPECT_NE(screen().copy(status), ready);
    EXPECT_NE(screen().copy(status), outOfRange);
}

TEST_F(InstrumentScreenTest, AScreenThatIsOffIsBlackAndADimmedOneIsDarker)
{
    const auto light = [this] {
        const QImage picture = screen();
        int most = 0;
        for (int y = 0; y < picture.height(); ++y)
            for (int x = 0; x < picture.width(); ++x)
                most = std::max(most, qGray(picture.pixel(x, y)));
        return most;
    };
    const int full = light();
    send(":DISP:BRIG 0");
    EXPECT_GT(light(), full / 5) << "it can still be read";
    EXPECT_LT(light(), full / 2);
    send(":DISP OFF");
    EXPECT_EQ(light(), 0);
}

} // namespace
} // namespace orb
