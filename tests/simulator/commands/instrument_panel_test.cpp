// SPDX-License-Identifier: GPL-3.0-or-later
#include "bench.h"

namespace orb {
namespace {

using namespace std::chrono_literals;

class InstrumentPanelTest : public BenchTest {
protected:
    void press(const std::string& code) { tell(":KEYBoard:CODE " + code); }
    void type(std::string_view digits)
    {
        for (const char c : digits)
            press(c == '.' ? "106,1" : std::to_string(96 + c - '0') + ",1");
    }
};

TEST_F(InstrumentPanelTest, KnowsEveryKeyOfThePanelAndNoOther)
{
    constexpr int others[] = {123, 214};
    for (int code = 0; code <= 255; ++code) {
        const bool isKey = (code >= 96 && code <= 120) || std::ranges::count(others, code) > 0;
        press(std::to_string(code) + ",1");
        press("107,1"); // empties the entry, so that ENTER finds nothing to refuse
        EXPECT_EQ(errors(), isKey ? noError : "-224,\"Illegal parameter value\"") << code;
    }
    press("256,1");
    EXPECT_EQ(errors(), "-222,\"Data out of range\"");
}

TEST_F(InstrumentPanelTest, TellsTheLastKey)
{
    EXPECT_EQ(ask(":KEYB:CODE?"), "0,0");
    press("113,1");
    EXPECT_EQ(ask(":KEYB:CODE?"), "113,1");
    press("214,255");
    EXPECT_EQ(ask(":KEYB:CODE?"), "214,255");
    press("120");
    EXPECT_EQ(ask(":KEYB:CODE?"), "120,1");
    press("95,1");
    EXPECT_EQ(ask(":KEYB:CODE?"), "120,1") << "no key has that code";
}

TEST_F(InstrumentPanelTest, OnlyTheLoadKeySwitchesAnInputOn)
{
    for (int code = 96; code <= 214; ++code) {
        if (code != 111)
            press(std::to_string(code) + ",1");
    }
    EXPECT_EQ(ask(":LOAD:ALL?"), "0,0,0");
    tell("*RST;:CHAN 2");
    press("111,1");
    EXPECT_EQ(ask(":LOAD:ALL?"), "0,1,0");
    press("111,1");
    EXPECT_EQ(ask(":LOAD:ALL?"), "0,0,0");
}

TEST_F(InstrumentPanelTest, TheChannelKeyGoesToTheNextChannel)
{
    press("112,1");
    EXPECT_EQ(ask(":CHAN?;:CHAN:DISP?"), "2;2");
    press("112,1");
    press("112,1");
    EXPECT_EQ(ask(":CHAN?;:CHAN:DISP?"), "1;1");
}

TEST_F(InstrumentPanelTest, DigitsAndEnterSetTheLevelInForce)
{
    type("1.25");
    EXPECT_EQ(ask(":KEYB:ENTR?;:CURR?"), "\"1.25\";0.0000");
    press("108,1");
    EXPECT_EQ(ask(":KEYB:ENTR?;:CURR?"), "\"\";1.2500");
    type("99");
    press("108,1");
    EXPECT_EQ(errors(), "-222,\"Data out of range\"");
    EXPECT_EQ(ask(":KEYB:ENTR?;:CURR?"), "\"\";1.2500");
    type("3");
    press("107,1");
    press("123,1");
    EXPECT_EQ(ask(":CURR?"), "1.2500") << "nothing is entered";
    type("1.2.3456789");
    EXPECT_EQ(ask(":KEYB:ENTR?"), "\"1.234567\"") << "one point, eight characters";
    press("107,1");
    type(".");
    press("108,1");
    EXPECT_EQ(errors(), "-222,\"Data out of range\"");
}

TEST_F(InstrumentPanelTest, TheKnobGoesAStepUpOrDownAndNotBeyondTheRange)
{
    press("214,1");
    EXPECT_EQ(ask(":CURR?"), "0.0000");
    press("214,255");
    press("214,255");
    EXPECT_EQ(ask(":CURR?"), "0.0100");
    press("214,1");
    EXPECT_EQ(ask(":CURR?"), "0.0050");
    EXPECT_EQ(errors(), noError);
}

TEST_F(InstrumentPanelTest, PresetChangesTheLevelAndFunctionTheMode)
{
    press("109,1");
    EXPECT_EQ(ask(":LEV?"), "2");
    press("109,1");
    EXPECT_EQ(ask(":LEV?"), "1");
    std::string modes;
    for (int i = 0; i < 3; ++i) {
        press("118,1");
        modes += ask(":MODE?") + ' ';
    }
    EXPECT_EQ(modes, "CRH CV CCH ");
}

TEST_F(InstrumentPanelTest, TheFunctionKeysChooseThePage)
{
    std::string pages;
    for (const char* key : {"113,1", "114,1", "115,1", "116,1", "117,1"}) {
        press(key);
        pages += ask(":DISP:PAGE?") + ' ';
    }
    EXPECT_EQ(pages, "CHAN ALL SEQ PROG SYST ");
    tell(":DISP:PAGE SEQUENCE");
    EXPECT_EQ(ask(":DISP:WIND:PAGE?"), "SEQ");
}

TEST_F(InstrumentPanelTest, LockedKeysDoNothingButSwitchOff)
{
    tell(":LOAD ON;:KEYB:LOCK ON");
    press("112,1");
    EXPECT_EQ(errors(), "-221,\"Settings conflict\"");
    EXPECT_EQ(ask(":CHAN?;:KEYB:CODE?"), "1;0,0");
    press("111,1");
    EXPECT_EQ(ask(":LOAD?"), "0");
    EXPECT_EQ(errors(), noError);
    press("111,1");
    EXPECT_EQ(errors(), "-221,\"Settings conflict\"");
    EXPECT_EQ(ask(":LOAD?;:KEYB:LOCK?"), "0;1");
    tell("*RST");
    EXPECT_EQ(ask(":KEYB:LOCK?"), "0");
}

TEST_F(InstrumentPanelTest, TheScreenHasABrightnessAndCanBeOff)
{
    tell(":DISP:BRIG 60;:DISP OFF");
    EXPECT_EQ(ask(":DISP:BRIG?;:DISP?;:DISP:BRIG? MAX"), "60;0;100");
    tell(":DISP:BRIG 101");
    EXPECT_EQ(errors(), "-222,\"Data out of range\"");
    tell("*RST");
    EXPECT_EQ(ask(":DISP:BRIG?;:DISP?"), "100;1");
}

TEST_F(InstrumentPanelTest, KeysBeepUnlessTheBeeperIsOff)
{
    press("120,1");
    tell(":SYST:BEEP");
    EXPECT_EQ(ask(":SYST:BEEP:COUN?"), "2");
    tell(":SYST:BEEP:STAT OFF;:SYST:BEEP");
    press("120,1");
    EXPECT_EQ(ask(":SYST:BEEP:COUN?;STAT?"), "2;0");
}

TEST_F(InstrumentPanelTest, TheCalendarRunsOnTheClock)
{
    EXPECT_EQ(ask(":SYST:DATE?;TIME?;UPT?"), "2000,1,1;0,0,0;0.000");
    time.advance(3723s + 500ms);
    EXPECT_EQ(ask(":SYST:DATE?;TIME?;UPT?"), "2000,1,1;1,2,3;3723.500");
    tell(":SYST:DATE 2024,2,28;TIME 23,59,58");
    EXPECT_EQ(ask(":SYST:DATE?;TIME?"), "2024,2,28;23,59,58");
    time.advance(2s);
    EXPECT_EQ(ask(":SYST:DATE?;TIME?"), "2024,2,29;0,0,0");
    tell(":SYST:DATE 2023,2,29;DATE 1999,1,1;TIME 24,0,0");
    EXPECT_EQ(errors(), "-222,\"Data out of range\",-222,\"Data out of range\",-222,\"Data out of range\"");
    tell("*RST");
    EXPECT_EQ(ask(":SYST:DATE?;TIME?"), "2024,2,29;0,0,0");
}

TEST_F(InstrumentPanelTest, APresetIsAReset)
{
    tell(":CURR 3;:CHAN 2;:LOAD:ALL ON;:SYST:PRES");
    EXPECT_EQ(ask(":CURR?;:CHAN?;:LOAD:ALL?"), "0.0000;1;0,0,0");
}

} // namespace
} // namespace orb
