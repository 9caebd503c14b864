// SPDX-License-Identifier: GPL-3.0-or-later
#include "program_page_test.h"

#include <QKeyEvent>

using namespace orb;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

const QString example = "3,4,AUTO,5,1,2.5,0,Off,1,0.01,1,1.0,17";

class ProgramPageCellsTest : public ProgramPageTest {
protected:
    /// Key presses that give the characters of `text`.
    static void type(QWidget& box, const QString& text)
    {
        for (const QChar c : text) {
            QKeyEvent down(QEvent::KeyPress, 0, Qt::NoModifier, QString(c));
            QCoreApplication::sendEvent(&box, &down);
        }
    }

    void show(const QString& setting)
    {
        logic([&] { page.ShowMemSetting(setting); });
    }

    QString limitMessage(const QString& label) const
    {
        return "message \"" + label + " Value should between 0.1  -  60\" critical Ok";
    }

    /// What a change of a time to this text leaves: box, text and messages.
    QString afterTyping(int index, const QString& text)
    {
        dialogs.shown.clear();
        timeBox(index).setValue(CheckBox::Checked);
        logic([&] { time(index).setText(text); });
        return QStringLiteral("%1 %2 %3").arg(timeBox(index).value()).arg(time(index).text()).arg(dialogs.shown.size());
    }
};

TEST_F(ProgramPageCellsTest, APressOnACellShowsTheFrameForItInFrontAtItsPlace)
{
    journal.watch(page.frameMemorySetting, "frameMemorySetting");
    page.frameMemorySetting.move(0, 0);
    page.fraProgramOrder.raise();
    journal.clear();

    mouseDown(34, Qt::RightButton);

    EXPECT_EQ(page.frameMemorySetting.caption(), "Program: [4] Sequence:[5]");
    EXPECT_EQ(page.frameMemorySetting.tag(), "34");
    EXPECT_THAT(journal.linesOf({"raise", "show"}), ElementsAre("raise frameMemorySetting", "show frameMemorySetting"));
    EXPECT_EQ(page.frameMemorySetting.pos(), QPoint(1620 / 15, 2000 / 15));
    EXPECT_EQ(page.children().last(), &page.frameMemorySetting) << "in front";
}

TEST_F(ProgramPageCellsTest, AnEmptyCellSetsProgramAndStepAndKeepsTheValuesOfTheLastEdit)
{
    show(example);

    mouseDown(119);

    EXPECT_EQ(controls(), "12,10,AUTO,5,1,2.5,0,Off,1,0.01,1,1.0,17");
    EXPECT_EQ(cell(119).tag(), "");
}

TEST_F(ProgramPageCellsTest, AFilledCellSetsProgramAndStepFromItsTagAndNotFromItsPlace)
{
    fill(34, "9");
    cell(34).setTag(example);

    mouseDown(34);

    EXPECT_EQ(controls(), example);
    EXPECT_EQ(page.frameMemorySetting.caption(), "Program: [4] Sequence:[5]");
    EXPECT_EQ(page.frameMemorySetting.tag(), "34");
}

TEST_F(ProgramPageCellsTest, TheTextOfACellAndNotItsTagDecidesWhetherItsProgramAndStepAreSet)
{
    show(example);
    cell(34).setText("9");

    mouseDown(34);
    EXPECT_EQ(controls(), example) << "a text without a tag sets nothing";

    cell(35).setTag("1,2,SKIP,0,0,Off,0,Off,0,Off,0,Off,5");
    mouseDown(35);
    EXPECT_EQ(controls(), "1,2,SKIP,0,0,Off,0,Off,0,Off,0,Off,5") << "the tag comes after the place";
}

TEST_F(ProgramPageCellsTest, OkPacksTheControlsIntoTheCellOfTheTagAndHidesTheFrame)
{
    mouseDown(23);
    show(example);

    press(page.cmdMemSetOK);

    EXPECT_EQ(cellState(23), "17|" + example + "|P3 S4 Run as AUTO|#000080|#ffffff|12|centered");
    EXPECT_FALSE(page.frameMemorySetting.visible());
    EXPECT_THAT(dialogs.shown, IsEmpty());
}

TEST_F(ProgramPageCellsTest, EachRunModeHasItsColorAndAnUnknownOneLeavesTheColorAlone)
{
    QStringList colors;
    for (const char* mode : {"AUTO", "MANUAL", "SKIP", "auto"}) {
        fill(5, "1", mode);
        colors << cell(5).backColor().name() + ' ' + cell(5).foreColor().name();
    }
    EXPECT_THAT(colors, ElementsAre("#000080 #ffffff", "#000000 #ffffff", "#800000 #ffffff", "#800000 #ffffff"));
    EXPECT_EQ(cell(5).toolTip(), "P1 S6 Run as auto");
}

TEST_F(ProgramPageCellsTest, ChangingTheProgramInTheFrameMovesNothing)
{
    mouseDown(34);
    show(example);
    page.cmbMemoryProg.setText("9");

    press(page.cmdMemSetOK);

    EXPECT_EQ(cell(34).tag(), "9,4,AUTO,5,1,2.5,0,Off,1,0.01,1,1.0,17");
    EXPECT_EQ(cell(34).toolTip(), "P9 S4 Run as AUTO");
    EXPECT_EQ(cell(83).tag(), "");
}

TEST_F(ProgramPageCellsTest, OkRightAfterTheSetUpAsksForTheMemory)
{
    mouseDown(0);
    journal.clear();

    press(page.cmdMemSetOK);

    EXPECT_THAT(journal.lines(), ElementsAre("message \"Please Input Value of Memory!\" critical Ok"));
    EXPECT_TRUE(page.frameMemorySetting.visible());
    EXPECT_EQ(page.frameMemorySetting.tag(), "0");
    EXPECT_EQ(cellState(0), "|||#ffffff|#000000|as it was|as it was");
}

TEST_F(ProgramPageCellsTest, EachMissingValueHasItsMessageInItsOrderAndChangesNothing)
{
    mouseDown(34);
    show(example);
    const QString number = "Please Input Value of Memory!";
    const QString place = "Please Input Value of Program and Sequence!";
    const QString mode = "Please Input Value of Run Mode and Short Channel!";
    page.txtMemCH.setText("");
    press(page.cmdMemSetOK);
    page.txtMemCH.setText("5");
    page.cmbMemRun.setText("");
    press(page.cmdMemSetOK);
    page.cmbMemorySequence.setText("");
    press(page.cmdMemSetOK);
    page.cmbMemorySequence.setText("4");
    page.cmbMemoryProg.setText("");
    press(page.cmdMemSetOK);
    page.cmbMemory.setText("");
    press(page.cmdMemSetOK);

    EXPECT_THAT(dialogs.shown, ElementsAre(Shown{mode, critical}, Shown{mode, critical}, Shown{place, critical},
                                           Shown{place, critical}, Shown{number, critical}));
    EXPECT_TRUE(page.frameMemorySetting.visible());
    EXPECT_EQ(cellState(34), "|||#ffffff|#000000|as it was|as it was");
}

TEST_F(ProgramPageCellsTest, CancelHidesTheFrameAndChangesNothing)
{
    mouseDown(34);
    show(example);

    press(page.cmdMemSetCancel);

    EXPECT_FALSE(page.frameMemorySetting.visible());
    EXPECT_EQ(page.frameMemorySetting.tag(), "34");
    EXPECT_EQ(cell(34).tag(), "");
    EXPECT_EQ(controls(), example);
}

TEST_F(ProgramPageCellsTest, AFrameWithATagOfNoCellEndsTheProgram)
{
    show(example);
    page.frameMemorySetting.setTag("120");
    logic([this] { page.cmdMemSetOKClick(); });

    EXPECT_THAT(processExit.reports, ElementsAre("Run-time error '340':\n\nControl array element doesn't exist"));
}

TEST_F(ProgramPageCellsTest, ASettingGoesIntoTheControlsEachBoxBeforeItsText)
{
    show("1,1,SKIP,0,0,Off,1,3.5,0,abc,0,7,8");
    watchHandlers();
    journal.clear();

    show(example);

    EXPECT_THAT(journal.lines(),
                ElementsAre("fires chkShortCH0 1 of 5", "fires chkShortCH2 1 of 1", // the mask is read before
                            "fires chkMemSet0 1", "fires txtProgMem0 0.01", "fires txtProgMem0 2.5", //
                            "fires chkMemSet1 0", "fires txtProgMem1 Off",                           //
                            "fires chkMemSet2 1", "fires txtProgMem2 0.01",                          //
                            "fires chkMemSet3 1", "fires txtProgMem3 0.01", "fires txtProgMem3 1.0"));
    EXPECT_EQ(controls(), example);
    EXPECT_EQ(shorted(), "CH1 CH3");
    EXPECT_EQ(page.cmbMemRun.listIndex(), 1);
    EXPECT_EQ(page.cmbMemory.listIndex(), 16);
}

TEST_F(ProgramPageCellsTest, ASettingOfTwelveOrFourteenFieldsOrNoneIsIgnored)
{
    show(example);
    for (const char* setting : {"", "1,2,SKIP,0,0,Off,0,Off,0,Off,0,Off", "1,2,SKIP,0,0,Off,0,Off,0,Off,0,Off,5,6"}) {
        show(QString::fromLatin1(setting));
        EXPECT_EQ(controls(), example) << setting;
    }
    EXPECT_THAT(dialogs.shown, IsEmpty());
}

TEST_F(ProgramPageCellsTest, ATimeWithACommaSpoilsTheCountAndTheCellOpensWithTheControlsAsTheyWere)
{
    fill(3, "9");
    mouseDown(3);
    time(2).setText("1,5");
    press(page.cmdMemSetOK);
    show(example);

    mouseDown(3);

    EXPECT_EQ(cell(3).tag(), "1,4,AUTO,0,1,0.1,1,0.1,1,1,5,1,0.1,9");
    EXPECT_EQ(controls(), example);
}

TEST_F(ProgramPageCellsTest, AnUnknownRunModeOfASettingLeavesTheBoxAsItIs)
{
    show(example);
    show("3,4,RUN,5,1,2.5,0,Off,1,0.01,1,1.0,18");
    EXPECT_EQ(controls(), "3,4,AUTO,5,1,2.5,0,Off,1,0.01,1,1.0,18");
}

TEST_F(ProgramPageCellsTest, AFieldThatAControlRefusesIsReportedAndTheFieldsBeforeItStay)
{
    show(example);
    journal.clear();

    show("7,8,MANUAL,2,1,3.5,3,Off,1,5,1,6,99");

    EXPECT_THAT(journal.lines(), ElementsAre("message \"Error Assign Valut into Memory Setting!\" none Ok"));
    EXPECT_EQ(controls(), "7,8,MANUAL,2,1,3.5,0,Off,1,0.01,1,1.0,17");
    EXPECT_THAT(processExit.reports, IsEmpty());
}

TEST_F(ProgramPageCellsTest, AMaskOfTwoHundredAndFiftySixInASettingIsReportedLikeEveryRefusedField)
{
    show("7,8,MANUAL,256,1,3.5,1,2,1,5,1,6,99");
    EXPECT_THAT(dialogs.shown, ElementsAre(Shown{"Error Assign Valut into Memory Setting!", noIcon}));
    EXPECT_THAT(processExit.reports, IsEmpty());
    EXPECT_EQ(page.cmbMemory.text(), "");
}

TEST_F(ProgramPageCellsTest, AfterAReportedFieldThePressOnTheCellGoesOn)
{
    cell(7).setTag("1,8,AUTO,0,9,1,1,1,1,1,1,1,5");
    mouseDown(7);
    EXPECT_EQ(dialogs.shown.size(), 1);
    EXPECT_TRUE(page.frameMemorySetting.visible());
    EXPECT_EQ(page.children().last(), &page.frameMemorySetting);
}

TEST_F(ProgramPageCellsTest, SwitchingATimeOffWritesOffAndSwitchingItOnStartsAtAHundredthOfASecond)
{
    mouseDown(0);
    for (int i = 0; i < 4; ++i) {
        press(timeBox(i));
        EXPECT_EQ(time(i).text(), "Off");
        press(timeBox(i));
        EXPECT_EQ(time(i).text(), "0.01");
    }
    EXPECT_THAT(dialogs.shown, IsEmpty());
}

TEST_F(ProgramPageCellsTest, TypingAZeroIntoACheckedTimeTurnsItOffAndTheRestIsTypedFreely)
{
    mouseDown(0);
    time(0).setText("0.01");
    time(0).selectAll();

    type(time(0), "0");
    EXPECT_EQ(timeBox(0).value(), CheckBox::Unchecked);
    EXPECT_EQ(time(0).text(), "Off");

    time(0).selectAll();
    type(time(0), "0.5");
    EXPECT_EQ(time(0).text(), "0.5");
    EXPECT_EQ(timeBox(0).value(), CheckBox::Unchecked);
    page.cmbMemory.setText("1");
    page.cmbMemRun.setText("AUTO");
    page.txtMemCH.setText("0");
    press(page.cmdMemSetOK);
    EXPECT_EQ(cell(0).tag(), "1,1,AUTO,0,0,0.5,1,0.1,1,0.1,1,0.1,1");
    EXPECT_THAT(dialogs.shown, IsEmpty());
}

TEST_F(ProgramPageCellsTest, SixtyIsRefusedJustBelowItAndBelowTheLowerLimitPassAndANegativeTimeIsRefused)
{
    for (int i : {0, 1, 3}) {
        EXPECT_EQ(afterTyping(i, "60"), "1 0.01 1") << i;
        EXPECT_EQ(afterTyping(i, "59.99"), "1 59.99 0") << i;
        EXPECT_EQ(afterTyping(i, "0.02"), "1 0.02 0") << i;
        EXPECT_EQ(afterTyping(i, "-1"), "1 0.01 1") << i;
        EXPECT_EQ(afterTyping(i, "-0.001"), "1 0.01 1") << i;
    }
}

TEST_F(ProgramPageCellsTest, ARefusedTimeNamesItsLabelAndItsLimitsBeforeTheTextIsReplaced)
{
    dialogs.onMessage = [this](const Shown&) { journal.write("holds " + time(0).text() + ' ' + time(1).text()); };
    logic([this] {
        time(0).setText("60");
        time(1).setText("75");
        time(3).setText("-2");
    });

    EXPECT_THAT(journal.lines(), ElementsAre(limitMessage("On-Timer:"), "holds 60 0.1", limitMessage("Off-Time:"),
                                             "holds 0.01 75", limitMessage("Short Time:"), "holds 0.01 0.01"));
}

TEST_F(ProgramPageCellsTest, ATimeThatIsNoNumberIsReplacedWithoutAMessage)
{
    for (const char* text : {"abc", "1x", "", "12.5S", "Off"})
        EXPECT_EQ(afterTyping(0, QString::fromLatin1(text)), "1 0.01 0") << text;
}

TEST_F(ProgramPageCellsTest, AZeroUnchecksItsBoxWhoseClickWritesOff)
{
    watchHandlers();
    journal.clear();

    logic([this] { time(3).setText("0.0"); });

    EXPECT_THAT(journal.lines(), ElementsAre("fires txtProgMem3 0.0", "fires chkMemSet3 0", "fires txtProgMem3 Off"));
}

TEST_F(ProgramPageCellsTest, AnUncheckedTimeTakesAnyText)
{
    for (int i : {0, 1, 3}) {
        timeBox(i).setValue(CheckBox::Unchecked);
        for (const char* text : {"500", "abc", "-1", "0"}) {
            logic([&] { time(i).setText(QString::fromLatin1(text)); });
            EXPECT_EQ(time(i).text(), text);
            EXPECT_EQ(timeBox(i).value(), CheckBox::Unchecked);
        }
    }
    EXPECT_THAT(dialogs.shown, IsEmpty());
}

TEST_F(ProgramPageCellsTest, ThePFTimeTakesAnyTextThoughItsBoxIsCheckedAndOkStoresIt)
{
    fill(3, "9");
    for (const char* text : {"abc", "500", "0"}) {
        mouseDown(3);
        logic([&] { time(2).setText(QString::fromLatin1(text)); });
        press(page.cmdMemSetOK);
        EXPECT_EQ(cell(3).tag(), QStringLiteral("1,4,AUTO,0,1,0.1,1,0.1,1,%1,1,0.1,9").arg(QLatin1String(text)));
    }
    EXPECT_THAT(dialogs.shown, IsEmpty());
}

TEST_F(ProgramPageCellsTest, EnterInTheMaskSetsTheBoxesAndAnyOtherKeyDoesNot)
{
    mouseDown(0);
    page.txtMemCH.setText("1");

    type(page.txtMemCH, "9");
    EXPECT_EQ(shorted(), "");
    EXPECT_EQ(page.txtMemCH.text(), "19") << "the key goes on to the box";
    type(page.txtMemCH, "\r");
    EXPECT_EQ(shorted(), "CH1 CH2 CH5");
    EXPECT_EQ(page.txtMemCH.text(), "19");
}

TEST_F(ProgramPageCellsTest, TheMaskSetsEachBoxToItsBitAndZeroClearsAll)
{
    for (const auto& [mask, channels] :
         {std::pair{"255", "CH1 CH2 CH3 CH4 CH5 CH6 CH7 CH8"}, std::pair{"128", "CH8"}, std::pair{"1", "CH1"},
          std::pair{"0", ""}, std::pair{"12.5S", "CH3 CH4"}, std::pair{"3.5", "CH3"}, std::pair{"-3", ""}}) {
        page.txtMemCH.setText(QString::fromLatin1(mask));
        logic([this] { page.txtMemCHKeyPress(13); });
        EXPECT_EQ(shorted(), channels) << mask;
    }
}

TEST_F(ProgramPageCellsTest, AnEmptyMaskLeavesTheBoxes)
{
    page.txtMemCH.setText("5");
    logic([this] { page.txtMemCHKeyPress(13); });
    page.txtMemCH.setText("");
    logic([this] { page.txtMemCHKeyPress(13); });
    EXPECT_EQ(shorted(), "CH1 CH3");
    EXPECT_EQ(page.txtMemCH.text(), "");
}

TEST_F(ProgramPageCellsTest, AMaskOfTwoHundredAndFiftySixEndsTheProgramAndNoCellIsFilled)
{
    mouseDown(0);
    show(example);
    page.txtMemCH.setText("256");
    type(page.txtMemCH, "\r");

    EXPECT_THAT(processExit.reports, ElementsAre("Run-time error '340':\n\nControl array element doesn't exist"));
    press(page.cmdMemSetOK);
    EXPECT_EQ(cell(0).tag(), "") << "no handler runs any more";
}

TEST_F(ProgramPageCellsTest, AClickOnAChannelSumsTheBoxesUp)
{
    mouseDown(0);
    page.txtMemCH.setText("77");
    press(page.chkShortCH[0]);
    EXPECT_EQ(page.txtMemCH.text(), "1");
    press(page.chkShortCH[7]);
    EXPECT_EQ(page.txtMemCH.text(), "129");
    page.chkShortCH[2].setValue(CheckBox::Grayed);
    EXPECT_EQ(page.txtMemCH.text(), "133") << "a box that is not 0 counts";
    press(page.chkShortCH[0]);
    EXPECT_EQ(page.txtMemCH.text(), "132");
}

TEST_F(ProgramPageCellsTest, TextTypedIntoACombosOfTheFrameSelectsTheEqualItem)
{
    page.cmbMemory.setText("120");
    EXPECT_EQ(page.cmbMemory.listIndex(), 119);
    page.cmbMemory.setText("121");
    EXPECT_EQ(page.cmbMemory.listIndex(), -1);
    page.cmbMemRun.setText("MANUAL");
    EXPECT_EQ(page.cmbMemRun.listIndex(), 2);
}

TEST_F(ProgramPageCellsTest, ACellOutsideOfTheGridIsRefused)
{
    logic([this] { page.txtMemSettingMouseDown(120); });
    EXPECT_THAT(processExit.reports, ElementsAre("Run-time error '340':\n\nControl array element doesn't exist"));
    EXPECT_FALSE(page.frameMemorySetting.visible());
}

/// The numbers of the cells that are marked as edited.
template <typename Cells> std::vector<int> editedCells(const Cells& cells)
{
    std::vector<int> edited;
    for (int i = 0; i < static_cast<int>(cells.size()); ++i)
        if (element(cells, i).isEdited())
            edited.push_back(i);
    return edited;
}

TEST_F(ProgramPageCellsTest, TheCellInTheFrameIsMarkedUntilTheFrameIsClosed)
{
    EXPECT_THAT(editedCells(page.txtMemSetting), IsEmpty());
    mouseDown(34);
    EXPECT_THAT(editedCells(page.txtMemSetting), ElementsAre(34));
    mouseDown(7);
    EXPECT_THAT(editedCells(page.txtMemSetting), ElementsAre(7)) << "the frame was open already";
    press(page.cmdMemSetCancel);
    EXPECT_THAT(editedCells(page.txtMemSetting), IsEmpty());
    mouseDown(0);
    show(example);
    press(page.cmdMemSetOK);
    EXPECT_THAT(editedCells(page.txtMemSetting), IsEmpty());
}

} // namespace
