// SPDX-License-Identifier: GPL-3.0-or-later
#include "instrument_fixture.h"

namespace orb {
namespace {

using namespace std::chrono_literals;

class PanelCommandsTest : public InstrumentFixture {
protected:
    void press(const std::string& code) { send(":KEYBoard:CODE " + code); }
    void type(std::string_view digits)
    {
        for (const char c : digits)
            press(c == '.' ? "106,1" : std::to_string(96 + c - '0') + ",1");
    }
};

TEST_F(PanelCommandsTest, ThePanelHasItsKeysAndNoOthers)
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

TEST_F(PanelCommandsTest, TheLastKeyIsAnswered)
{
    EXPECT_EQ(query(":KEYB:CODE?"), "0,0");
    press("113,1");
    EXPECT_EQ(query(":KEYB:CODE?"), "113,1");
    press("214,255");
    EXPECT_EQ(query(":KEYB:CODE?"), "214,255");
    press("120");
    EXPECT_EQ(query(":KEYB:CODE?"), "120,1");
    press("95,1");
    EXPECT_EQ(query(":KEYB:CODE?"), "120,1") << "no key has that code";
}

TEST_F(PanelCommandsTest, OnlyTheLoadKeySwitchesAnInputOn)
{
    for (int code = 96; code <= 214; ++code) {
        if (code != 111)
            press(std::to_string(code) + ",1");
    }
    EXPECT_EQ(query(":LOAD:ALL?"), "0,0,0");
    send("*RST;:CHAN 2");
    press("111,1");
    EXPECT_EQ(query(":LOAD:ALL?"), "0,1,0");
    press("111,1");
    EXPECT_EQ(query(":LOAD:ALL?"), "0,0,0");
}

TEST_F(PanelCommandsTest, TheChannelKeyGoesToTheNextChannel)
{
    press("112,1");
    EXPECT_EQ(query(":CHAN?;:CHAN:DISP?"), "2;2");
    press("112,1");
    press("112,1");
    EXPECT_EQ(query(":CHAN?;:CHAN:DISP?"), "1;1");
}

TEST_F(PanelCommandsTest, DigitsAndEnterSetTheLevelInForce)
{
    type("1.25");
    EXPECT_EQ(query(":KEYB:ENTR?;:CURR?"), "\"1.25\";0.0000");
    press("108,1");
    EXPECT_EQ(query(":KEYB:ENTR?;:CURR?"), "\"\";1.2500");
    type("99");
    press("108,1");
    EXPECT_EQ(errors(), "-222,\"Data out of range\"");
    EXPECT_EQ(query(":KEYB:ENTR?;:CURR?"), "\"\";1.2500");
    type("3");
    press("107,1");
    press("123,1");
    EXPECT_EQ(query(":CURR?"), "1.2500") << "nothing is entered";
    type("1.2.3456789");
    EXPECT_EQ(query(":KEYB:ENTR?"), "\"1.234567\"") << "one point, eight characters";
    press("107,1");
    type(".");
    press("108,1");
    EXPECT_EQ(errors(), "-222,\"Data out of range\"");
}

TEST_F(PanelCommandsTest, TheKnobGoesOneStepUpOrDownWithinTheRange)
{
    press("214,1");
    EXPECT_EQ(query(":CURR?"), "0.0000");
    press("214,255");
    press("214,255");
    EXPECT_EQ(query(":CURR?"), "0.0100");
    press("214,1");
    EXPECT_EQ(query(":CURR?"), "0.0050");
    EXPECT_EQ(errors(), noError);
}

TEST_F(PanelCommandsTest, ThePresetKeyChangesTheLevelAndTheFunctionKeyTheMode)
{
    press("109,1");
    EXPECT_EQ(query(":LEV?"), "2");
    press("109,1");
    EXPECT_EQ(query(":LEV?"), "1");
    std::string modes;
    for (int i = 0; i < 3; ++i) {
        press("118,1");
        modes += query(":MODE?") + ' ';
    }
    EXPECT_EQ(modes, "CRH CV CCH ");
}

TEST_F(PanelCommandsTest, TheFunctionKeysChooseThePage)
{
    std::string pages;
    for (const char* key : {"113,1", "114,1", "115,1", "116,1", "117,1"}) {
        press(key);
        pages += query(":DISP:PAGE?") + ' ';
    }
    EXPECT_EQ(pages, "CHAN ALL SEQ PROG SYST ");
    send(":DISP:PAGE SEQUENCE");
    EXPECT_EQ(query(":DISP:WIND:PAGE?"), "SEQ");
}

TEST_F(PanelCommandsTest, LockedKeysOnlySwitchOff)
{
    send(":LOAD ON;:KEYB:LOCK ON");
    press("112,1");
    EXPECT_EQ(errors(), "-221,\"Settings conflict\"");
    EXPECT_EQ(query(":CHAN?;:KEYB:CODE?"), "1;0,0");
    press("111,1");
    EXPECT_EQ(query(":LOAD?"), "0");
    EXPECT_EQ(errors(), noError);
    press("111,1");
    EXPECT_EQ(errors(), "-221,\"Settings conflict\"");
    EXPECT_EQ(query(":LOAD?;:KEYB:LOCK?"), "0;1");
    send("*RST");
    EXPECT_EQ(query(":KEYB:LOCK?"), "0");
}

TEST_F(PanelCommandsTest, TheScreenHasABrightnessAndCanBeOff)
{
    send(":DISP:BRIG 60;:DISP OFF");
    EXPECT_EQ(query(":DISP:BRIG?;:DISP?;:DISP:BRIG? MAX"), "60;0;100");
    send(":DISP:BRIG 101");
    EXPECT_EQ(errors(), "-222,\"Data out of range\"");
    send("*RST");
    EXPECT_EQ(query(":DISP:BRIG?;:DISP?"), "100;1");
}

TEST_F(PanelCommandsTest, KeysBeepUnlessTheBeeperIsOff)
{
    press("120,1");
    send(":SYST:BEEP");
    EXPECT_EQ(query(":SYST:BEEP:COUN?"), "2");
    send(":SYST:BEEP:STAT OFF;:SYST:BEEP");
    press("120,1");
    EXPECT_EQ(query(":SYST:BEEP:COUN?;STAT?"), "2;0");
}

} // namespace
} // namespace orb
