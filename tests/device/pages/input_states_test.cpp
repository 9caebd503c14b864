// SPDX-License-Identifier: GPL-3.0-or-later
#include "input_states.h"

#include <gtest/gtest.h>

namespace orb {

/// Three channels of which the Control page has read that the second is on.
class InputStatesTest : public testing::Test {
protected:
    InputStatesTest() { poll({false, true, false}); }

    void poll(const std::vector<std::optional<bool>>& inputs)
    {
        ChannelReadouts readouts(inputs.size());
        for (std::size_t i = 0; i < inputs.size(); ++i)
            readouts[i].loadOn = inputs[i];
        states.restart(static_cast<int>(inputs.size()));
        states.polled(readouts);
    }
    /// What is known after a line, away from the Control page.
    std::string after(const char* line)
    {
        poll({false, true, false});
        states.left();
        states.sent(line);
        return text();
    }
    std::string text() const { return states.status().text.toStdString(); }

    InputStates states;
};

TEST_F(InputStatesTest, TheTextSaysWhichInputsAreOn)
{
    EXPECT_EQ(states.status(), (StatusLine{QStringLiteral("2 on"), Tone::Good}));
    EXPECT_EQ(states.sentence(), "Now these inputs are on: 2.");
    poll({true, true, true});
    EXPECT_EQ(text(), "1, 2, 3 on");
    poll({true, true, true, false, true});
    EXPECT_EQ(text(), "4 on");
    EXPECT_EQ(states.sentence(), "Now these inputs are on: 1, 2, 3, 5.");
    poll({false, false});
    EXPECT_EQ(states.status(), (StatusLine{QStringLiteral("All off"), Tone::Neutral}));
    EXPECT_EQ(states.sentence(), "Now all inputs are off.");
    poll({false, std::nullopt});
    EXPECT_EQ(text(), "Inputs unknown");
    EXPECT_EQ(states.sentence(), "Which inputs are on is not known.");
}

TEST_F(InputStatesTest, WhatWasReadEarlierIsNotCalledPresent)
{
    states.left();
    EXPECT_EQ(states.status(), (StatusLine{QStringLiteral("Last: 2 on"), Tone::Busy}));
    EXPECT_EQ(states.sentence(),
              "When the Control page was last shown, or by what was sent since, these inputs are on: 2.");
    poll({false});
    states.left();
    EXPECT_EQ(text(), "Last: all off");
}

TEST_F(InputStatesTest, NothingIsKnownBeforeTheFirstPoll)
{
    states.restart(3);
    EXPECT_EQ(text(), "Inputs unknown");
}

TEST_F(InputStatesTest, ALoadCommandSaysWhatItDoes)
{
    EXPECT_EQ(after(":LOAD3 ON"), "Last: 2, 3 on");
    EXPECT_EQ(after("load2 off"), "Last: all off");
    EXPECT_EQ(after(":LOAD1:STAT 1"), "Last: 1, 2 on");
    EXPECT_EQ(after(":LOAD2:STATE 0"), "Last: all off");
    EXPECT_EQ(after(":LOAD:ALL ON"), "Last: 1, 2, 3 on");
    EXPECT_EQ(after(":LOAD1 ON;:LOAD2 OFF"), "Last: 1 on");
    EXPECT_EQ(after("*RST"), "Last: all off");
    EXPECT_EQ(after("*RCL 5"), "Last: all off");
    EXPECT_EQ(after(":ABOR"), "Last: all off");
}

TEST_F(InputStatesTest, WhatIsNotUnderstoodMakesTheInputsUnknown)
{
    for (const char* line :
         {":LOAD ON", ":LOAD4 ON", ":LOAD2 maybe", ":KEYB:CODE 1", ":SEQ:RUN", ":PROG:RUN", ":PROG:STOP", ":PROG:NEXT",
          ":MEM:REC 1", ":NO:SUCH", ":LOAD1:SHOR ON", ":LOAD1:STAT OFF;STAT ON"})
        EXPECT_EQ(after(line), "Inputs unknown") << line;
}

TEST_F(InputStatesTest, WhatSwitchesNothingLeavesThemAsTheyWere)
{
    for (const char* line : {":CURR1 1", "CURRENT2:L2 1", ":VOLT1:L1 5", "*IDN?", ":FETC:ALLV?;:LOAD:ALL?", ":CHAN 2",
                             "", ":SEQ:POIN:TIME 1", ":PROG:ONT 1", ":RES 5;:CHAN?", "*CLS", ":CURR1 1;RISE?"})
        EXPECT_EQ(after(line), "Last: 2 on") << line;
}

TEST_F(InputStatesTest, AChangeOfModeOrRangeMaySwitchAnInputOffAndNeverOn)
{
    EXPECT_EQ(after(":MODE1 CR"), "Last: 2 on");
    EXPECT_EQ(after(":MODE2 CR"), "Inputs unknown");
    EXPECT_EQ(after(":MODE CR"), "Inputs unknown");
    EXPECT_EQ(after(":VOLT1:RANG HIGH"), "Last: 2 on");
    EXPECT_EQ(after(":VOLT2:RANG HIGH"), "Inputs unknown");
}

TEST_F(InputStatesTest, AllOffIsReportedAsSentUntilSomethingElseIsKnown)
{
    EXPECT_EQ(after(":LOAD:ALL OFF"), "ALL OFF sent");
    EXPECT_EQ(states.sentence(), "ALL OFF was sent.");
    states.sent(":CURR1 1");
    EXPECT_EQ(text(), "ALL OFF sent");
    states.sent(":LOAD1 ON");
    EXPECT_EQ(text(), "Last: 1 on");
    states.sent(":LOAD:ALL OFF");
    states.polled(ChannelReadouts(3));
    EXPECT_EQ(text(), "Inputs unknown");
}

} // namespace orb
