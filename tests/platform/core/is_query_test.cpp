// SPDX-License-Identifier: GPL-3.0-or-later
#include "is_query.h"

#include <QString>

#include <gmock/gmock.h>

#include <string>

namespace orb {

TEST(IsQueryTest, ALineWithAQuestionMarkAnywhereIsAQuery)
{
    const std::pair<const char*, bool> lines[] = {{"*IDN?", true},
                                                  {":CURR 5;:CURR?", true},
                                                  {"?", true},
                                                  {":CURR? 1", true},
                                                  {":DISP:TEXT \"what?\"", true},
                                                  {":DISP:TEXT 'what?'", true},
                                                  {":DISP:TEXT \"open?", true},
                                                  {":CURR 5", false},
                                                  {":DISP:TEXT \"what\"", false},
                                                  {"", false}};
    for (const auto& [line, expected] : lines) {
        EXPECT_EQ(isQuery(QByteArrayView(line)), expected) << line;
        EXPECT_EQ(isQuery(QString::fromLatin1(line)), expected) << line;
    }
}

} // namespace orb
