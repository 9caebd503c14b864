// SPDX-License-Identifier: GPL-3.0-or-later
#include "panel_keys.h"

#include "printing.h"

#include <gmock/gmock.h>

using namespace orb;

namespace {

TEST(PanelKeysTest, EachOfThe28KeysHasItsCommand)
{
    const std::vector<std::pair<QString, QString>> table{{"F1", "113,1"},
                                                         {"F2", "114,1"},
                                                         {"F3", "115,1"},
                                                         {"F4", "116,1"},
                                                         {"F5", "117,1"},
                                                         {"CHAN", "112,1"},
                                                         {"FUNC", "118,1"},
                                                         {"FILE", "119,1"},
                                                         {"HELP", "120,1"},
                                                         {"PRESET", "109,1"},
                                                         {"SHIFT", "110,1"},
                                                         {"ENTER", "108,1"},
                                                         {"LOAD", "111,1"},
                                                         {"0", "96,1"},
                                                         {"1", "97,1"},
                                                         {"2", "98,1"},
                                                         {"3", "99,1"},
                                                         {"4", "100,1"},
                                                         {"5", "101,1"},
                                                         {"6", "102,1"},
                                                         {"7", "103,1"},
                                                         {"8", "104,1"},
                                                         {"9", "105,1"},
                                                         {"DOT", "106,1"},
                                                         {"ROTATELEFT", "214,1"},
                                                         {"ROTATERIGHT", "214,255"},
                                                         {"ROTATEENTER", "123,1"},
                                                         {"CLEAR", "107,1"}};
    ASSERT_EQ(table.size(), 28U);
    for (const auto& [name, code] : table)
        EXPECT_EQ(keyCommand(name), ":KEYBoard:CODE " + code) << name.toStdString();
}

TEST(PanelKeysTest, ANameThatDiffersInCaseOrByABlankIsNoKey)
{
    for (const char* name : {"f1", "Enter", " F1", "F1 ", "F6", "10", ""})
        EXPECT_EQ(keyCommand(QString::fromLatin1(name)), "") << name;
}

TEST(PanelKeysTest, EachKeyOfTheKnobHasItsPointerAndTheTurningOnesAreCrossedOver)
{
    EXPECT_EQ(keyPointer("ROTATERIGHT"), "\\icon\\LeftRotate.cur");
    EXPECT_EQ(keyPointer("ROTATELEFT"), "\\icon\\RightRotate.cur");
    EXPECT_EQ(keyPointer("ROTATEENTER"), "\\icon\\H_NW.CUR");
}

TEST(PanelKeysTest, EveryOtherNameHasThePointingHandAlsoOneWithoutACommand)
{
    for (const char* name : {"F1", "LOAD", "logo", ""})
        EXPECT_EQ(keyPointer(QString::fromLatin1(name)), "\\icon\\H_POINT.CUR") << name;
}

} // namespace
