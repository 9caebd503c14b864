// SPDX-License-Identifier: GPL-3.0-or-later
#include "accessible_tree.h"
#include "directories.h"
#include "form_full_screen.h"
#include "program_test.h"

#include <QAccessible>
#include <QDir>

using namespace orb;

namespace {

/// The whole program as a screen reader finds it.
class AccessibleNamesTest : public ProgramTest {
protected:
    /// Records two samples.
    void record()
    {
        press(form().pageWave);
        clock.at(clock.elapsed() + 1500, [this] { press(form().frmDatalog.logStop); });
        press(form().frmDatalog.logStart);
    }

    static QString example(const char* name) { return QDir(binaryDirectory()).filePath(QLatin1String(name)); }
    static std::string unnamed(QWidget& widget) { return unnamedControls(widget).join('\n').toStdString(); }
};

TEST_F(AccessibleNamesTest, EveryControlOfThePagesHasAName)
{
    connect();
    press(form().pageControl);
    clock.advance(2000);
    ASSERT_FALSE(CORB().controlPage.cards.empty());
    EXPECT_EQ(unnamed(form()), "");
}

TEST_F(AccessibleNamesTest, EveryControlHasANameWhileASavedLogIsChosenAndACurveIsRead)
{
    connect();
    record();
    ASSERT_GE(form().frmDatalog.lLogRecNo, 2);
    press(form().frmDatalog.logSave);
    press(form().frmDatalog.optGraphMode[2]);
    press(form().frmDatalog.logOpen);
    ASSERT_EQ(form().frmDatalog.FrameDataFileOperate.lstLogMain.listCount(), 1);
    EXPECT_EQ(unnamed(form()), "");
}

TEST_F(AccessibleNamesTest, EveryControlOfTheSequencePageHasANameWithASequenceInIt)
{
    press(form().pageSequence);
    dialogs.files = {example("examples/ramp.a")};
    press(form().fraSequence.seqOpen);
    ASSERT_GT(form().fraSequence.lstSequence.listCount(), 0);
    EXPECT_EQ(unnamed(form()), "");
}

TEST_F(AccessibleNamesTest, EveryControlOfTheProgramPageHasANameWithAProgramInIt)
{
    press(form().PageProgram);
    dialogs.files = {example("examples/burn_in.b")};
    press(form().fraProgram.progOpen);
    ASSERT_TRUE(dialogs.files.empty());
    EXPECT_EQ(unnamed(form()), "");
}

TEST_F(AccessibleNamesTest, EveryControlOfTheAboutBoxAndOfTheFullScreenHasAName)
{
    AboutBox about(form(), run, paths, form().systemInfo);
    EXPECT_EQ(unnamed(about), "");
    FormFullScreen fullScreen(run);
    EXPECT_EQ(unnamed(fullScreen), "");
}

TEST_F(AccessibleNamesTest, AControlWithoutANameIsListedWithItsPlace)
{
    TextBox nameless;
    nameless.setObjectName("nameless");
    nameless.setParent(&form().frmDatalog.FrameCursor);
    EXPECT_THAT(unnamed(form().frmDatalog),
                testing::MatchesRegex("role [0-9]+, QLineEdit 'nameless' in Data Log > Cursor Information"));
    nameless.setAccessibleName("Median");
    EXPECT_EQ(unnamed(form().frmDatalog), "");
}

TEST_F(AccessibleNamesTest, TheGraphsAndTheTablesHaveTheirRoles)
{
    const auto role = [](QWidget& widget) { return QAccessible::queryAccessibleInterface(&widget)->role(); };
    EXPECT_EQ(role(form().frmDatalog.graphLog), QAccessible::Chart);
    EXPECT_EQ(role(form().fraSequence.graphSeq), QAccessible::Chart);
    EXPECT_EQ(role(form().frmDatalog.DBGrid1), QAccessible::Table);
    EXPECT_EQ(role(form().fraSequence.DBGridHead), QAccessible::Table);
    EXPECT_EQ(role(form().fraSequence.DBGridSequence), QAccessible::Table);
}

} // namespace
