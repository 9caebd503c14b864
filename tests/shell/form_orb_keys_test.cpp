// SPDX-License-Identifier: GPL-3.0-or-later
#include "form_orb_test.h"

#include <QApplication>
#include <QTimer>

using namespace orb;
using testing::ElementsAre;

namespace {

class FormORBKeysTest : public FormORBTest {
protected:
    FormORBKeysTest()
    {
        load();
        form.show();
    }

    /// The captions of the page buttons that are marked.
    QString marked() const
    {
        QStringList captions;
        for (const PictureButton* button :
             {&form.pageConnect, &form.pageControl, &form.pageCommand, &form.pageWave, &form.pageSequence,
              &form.PageProgram, &form.pageAbout, &form.pageExit, &form.pageDisplay})
            if (button->marked())
                captions << button->caption();
        return captions.join(", ");
    }

    void writeManual() const
    {
        EXPECT_TRUE(QDir(application.path()).mkpath(QStringLiteral("manual")));
        QFile file(application.filePath(QStringLiteral("manual/index.html")));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    }
};

TEST_F(FormORBKeysTest, TheButtonOfThePageShownIsMarkedAndNoOther)
{
    EXPECT_EQ(marked(), "Control");
    for (PictureButton* button : {&form.pageConnect, &form.pageCommand, &form.pageWave, &form.pageSequence,
                                  &form.PageProgram, &form.pageControl}) {
        press(*button);
        EXPECT_EQ(marked(), button->caption());
    }
    click(&FormORB::pageDisplayClick);
    EXPECT_EQ(marked(), "Display");
}

TEST_F(FormORBKeysTest, TheAboutBoxChangesNoMark)
{
    QTimer::singleShot(0, &form, [] { QApplication::activeModalWidget()->close(); });
    press(form.pageAbout);
    EXPECT_EQ(marked(), "Control");
}

TEST_F(FormORBKeysTest, AControlThatGoesToItsConnectPageByItselfMarksConnect)
{
    instrument.onConnectPage();
    EXPECT_EQ(marked(), "Connect");
}

TEST_F(FormORBKeysTest, CtrlAndADigitPressThePageButtonsInTheirOrder)
{
    QStringList pages;
    for (const Qt::Key key : {Qt::Key_1, Qt::Key_3, Qt::Key_4, Qt::Key_5, Qt::Key_6, Qt::Key_2}) {
        hitKey(form.pageExit, key, Qt::ControlModifier);
        pages << marked() + ": " + shownGroups();
    }
    hitKey(form.pageExit, Qt::Key_7, Qt::ControlModifier);
    hitKey(form.pageExit, Qt::Key_4); // a digit alone
    EXPECT_THAT(pages, ElementsAre("Connect: CORB", "Command: fraCommand", "Data Log: frmDatalog",
                                   "Sequence: fraSequence", "Program: fraProgram", "Control: CORB"));
    EXPECT_EQ(marked(), "Control");
    EXPECT_EQ(form.pageWave.toolTip(), "Data Log (Ctrl+4)");
}

TEST_F(FormORBKeysTest, TheKeyOfAButtonThatCantBePressedDoesNothing)
{
    clock.advance(1200); // the supervisor finds no link
    ASSERT_FALSE(form.pageCommand.enabled());
    press(form.pageWave);
    hitKey(form.pageExit, Qt::Key_3, Qt::ControlModifier);
    EXPECT_EQ(marked(), "Data Log");
    EXPECT_TRUE(form.pageExit.hasFocus());
}

TEST_F(FormORBKeysTest, TheKeyTakesTheFocusFromTheFieldThatIsBeingEditedAsAClickDoes)
{
    press(form.pageCommand);
    form.fraCommand.chkSend.setValue(CheckBox::Checked);
    hitKey(form.fraCommand.lstCommand, Qt::Key_4, Qt::ControlModifier);
    EXPECT_TRUE(form.pageWave.hasFocus());
}

TEST_F(FormORBKeysTest, AKeyPressedDuringARecordingIsHandledAtItsNextYield)
{
    instrument.connected = true;
    instrument.channelCount = 2;
    instrument.onCommand = [](const QString&) { return QStringLiteral("1.1000,2.2000,"); };
    press(form.pageWave);
    clock.at(1500, [&] { hitKey(form.pageExit, Qt::Key_5, Qt::ControlModifier); });
    press(form.frmDatalog.logStart);
    EXPECT_EQ(marked(), "Sequence");
    EXPECT_FALSE(form.frmDatalog.logStop.enabled()) << "the page switch stopped it";
}

TEST_F(FormORBKeysTest, F1OpensTheManualThatStandsBesideTheProgram)
{
    writeManual();
    hitKey(form.pageExit, Qt::Key_F1);
    EXPECT_THAT(journal.linesOf({"document", "message"}), ElementsAre("document APP/manual/index.html"));
}

TEST_F(FormORBKeysTest, WithoutAManualOrAProgramToShowItF1SaysSo)
{
    hitKey(form.pageExit, Qt::Key_F1);
    EXPECT_THAT(journal.linesOf({"document", "message"}),
                ElementsAre("message \"The manual is missing: it belongs beside the program, in the folder manual.\" "
                            "information Ok"));
    writeManual();
    dialogs.documentsCanBeShown = false;
    journal.clear();

    hitKey(form.pageExit, Qt::Key_F1);

    EXPECT_THAT(
        journal.linesOf({"document", "message"}),
        ElementsAre("document APP/manual/index.html",
                    "message \"There is no program to show the manual. It is the file\\nAPP/manual/index.html\" "
                    "information Ok"));
}

} // namespace
