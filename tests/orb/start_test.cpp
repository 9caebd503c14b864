// SPDX-License-Identifier: GPL-3.0-or-later
#include "program_process.h"

using namespace orb;
using testing::HasSubstr;

namespace {

class StartTest : public testing::Test {
protected:
    ProgramFolder folder;
    ProgramProcess program{folder};
};

TEST_F(StartTest, AMissingPictureIsReportedAsARunTimeError)
{
    ASSERT_TRUE(QFile::remove(folder.filePath("ICON/PageConnect.png")));

    program.start("orb");

    ASSERT_TRUE(program.waitFor("File not found"));
    EXPECT_THAT(program.errors().toStdString(), HasSubstr("Run-time error '53':\n\nFile not found"));
    EXPECT_TRUE(program.isRunning()) << "the report waits for its answer";
}

TEST_F(StartTest, AMissingDatabaseIsReportedAsARunTimeError)
{
    ASSERT_TRUE(QFile::remove(folder.filePath("orb.mdb")));

    program.start("orb");

    EXPECT_TRUE(program.waitFor("Run-time error '3024':"));
}

TEST_F(StartTest, AMissingPanelMapIsReportedAsARunTimeErrorByBothPrograms)
{
    ASSERT_TRUE(QFile::remove(folder.filePath("ORBScrBtn.dat")));
    for (const char* name : {"orb", "orb-service"}) {
        program.start(name);
        EXPECT_TRUE(program.waitFor("Run-time error '53':\n\nFile not found")) << name;
        program.kill();
    }
}

} // namespace
