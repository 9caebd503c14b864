// SPDX-License-Identifier: GPL-3.0-or-later
#include "program_page_test.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLayout>

using namespace orb;
using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

template <typename Control> QStringList captionsOf(const Control& controls)
{
    QStringList captions;
    for (const auto& control : controls)
        captions << control.caption();
    return captions;
}

QStringList itemsOf(const ComboBox& combo)
{
    QStringList items;
    for (int i = 0; i < combo.listCount(); ++i)
        items << combo.list(i);
    return items;
}

QStringList numbers(int last)
{
    QStringList texts;
    for (int i = 1; i <= last; ++i)
        texts << QString::number(i);
    return texts;
}

const QStringList programs{"P01", "P02", "P03", "P04", "P05", "P06", "P07", "P08", "P09", "P10", "P11", "P12"};

TEST_F(ProgramPageTest, ThePageAndItsFramesHaveTheirCaptionsAndTheFramesStartHidden)
{
    EXPECT_EQ(page.caption(), "Program");
    EXPECT_EQ(page.frameMemorySetting.caption(), "Program Sequence");
    EXPECT_EQ(page.fraProgramOrder.caption(), "Change Program Chain");
    EXPECT_EQ(page.frameProgress.caption(), "Progress ");
    for (const FloatingFrame* frame : {&page.frameMemorySetting, &page.fraProgramOrder, &page.frameProgress})
        EXPECT_FALSE(frame->visible());
}

TEST_F(ProgramPageTest, TheButtonsHaveTheirToolTips)
{
    QStringList toolTips;
    for (const PictureButton* button : {&page.progOpen, &page.progLoad, &page.progSend, &page.progSave,
                                        &page.progOpenDB, &page.progDelete, &page.progReset})
        toolTips << button->toolTip();
    EXPECT_THAT(toolTips, ElementsAre("Open Program from File", "Import Porgram from ORB", "Transfer Program to ORB",
                                      "Save Program File", "Open Program from Hisstory", "Delete Program File",
                                      "Clear All of Program Setting"));
    EXPECT_EQ(page.progOrder.caption(), "Program Chain");
}

TEST_F(ProgramPageTest, TheLabelsAndBoxesHaveTheirCaptions)
{
    QStringList labels;
    for (const auto& [index, label] : page.lblMemory)
        labels << QStringLiteral("%1 %2").arg(index).arg(label.caption());
    EXPECT_THAT(labels, ElementsAre("0 On-Timer:", "1 Off-Time:", "2 P/F-Time:", "3 Short Time:", "4 Program:",
                                    "5 Program:", "6 Sequence:", "7 AUTO", "8 MANUAL", "9 SKIP",
                                    "10 Memory:", "11 Sequence:", "98 Short CH:", "99 Run:"));
    EXPECT_THAT(captionsOf(page.lblMemoryLim), ElementsAre("0.1  -  60", "0.1  -  60", "0.1  -  119.9", "0.1  -  60"));
    EXPECT_THAT(captionsOf(page.lblProgram), ElementsAre("Program", "Sequence", "Start:"));
    EXPECT_THAT(captionsOf(page.chkShortCH), ElementsAre("CH1", "CH2", "CH3", "CH4", "CH5", "CH6", "CH7", "CH8"));
    EXPECT_EQ(page.chkProgLoop.caption(), "Loop");
    EXPECT_EQ(page.cmdMemSetOK.caption() + page.cmdMemSetCancel.caption(), "OKCancel");
    EXPECT_EQ(page.cmdProgOrderExit.caption() + page.cmdProgOrderCancel.caption(), "OKCancel");
}

TEST_F(ProgramPageTest, TheTimesStartAtATenthOfASecondWithTheirBoxesChecked)
{
    EXPECT_EQ(controls(), ",,,,1,0.1,1,0.1,1,0.1,1,0.1,");
}

TEST_F(ProgramPageTest, TheBarsShowProgramsAndSteps)
{
    EXPECT_EQ(page.pbProg.minimum(), 0);
    EXPECT_EQ(page.pbProg.maximum(), 12);
    EXPECT_EQ(page.pbSeq.minimum(), 0);
    EXPECT_EQ(page.pbSeq.maximum(), 10);
}

TEST_F(ProgramPageTest, TheSetUpFillsTheListsOnceAndSelectsNothing)
{
    for (ComboBox* combo : {&page.cmbMemoryProg, &page.cmbMemorySequence, &page.cmbMemory, &page.cmbMemRun})
        combo->setListIndex(1);

    logic([this] { page.InitProgramPage(); });

    EXPECT_EQ(itemsOf(page.cmbMemoryProg), numbers(12));
    EXPECT_EQ(itemsOf(page.cmbMemorySequence), numbers(10));
    EXPECT_EQ(itemsOf(page.cmbMemory), numbers(120));
    EXPECT_THAT(itemsOf(page.cmbMemRun), ElementsAre("SKIP", "AUTO", "MANUAL"));
    for (const ComboBox* combo : {&page.cmbMemoryProg, &page.cmbMemorySequence, &page.cmbMemory, &page.cmbMemRun}) {
        EXPECT_EQ(combo->listIndex(), -1);
        EXPECT_EQ(combo->text(), "");
    }
}

TEST_F(ProgramPageTest, TheSetUpMakesAChainThatStartsAtTheFirstProgramAndEndsAfterIt)
{
    for (ComboBox& box : page.cmbProgChain)
        box.setListIndex(3);

    logic([this] { page.InitProgramPage(); });

    for (int i = 0; i < 12; ++i)
        EXPECT_EQ(itemsOf(chain(i)), QStringList("OFF") + programs);
    EXPECT_EQ(itemsOf(chain(12)), programs);
    EXPECT_EQ(links(), "0 0 0 0 0 0 0 0 0 0 0 0 0");
    EXPECT_EQ(chain(12).text(), "P01");
    EXPECT_EQ(page.lstProgramOrder[0].items().join(' '), "P1 P2 P3 P4 P5 P6 P7 P8 P9 P10 P11 P12");
    EXPECT_THAT(page.lstProgramOrder[1].items(), IsEmpty());
}

TEST_F(ProgramPageTest, TheSetUpEmptiesEveryCellAndLeavesItsToolTipAndItsLettering)
{
    fill(0, "17");
    fill(119, "3", "SKIP");
    ASSERT_EQ(cellState(119),
              "3|12,10,SKIP,0,1,0.1,1,0.1,1,0.1,1,0.1,3|P12 S10 Run as SKIP|#800000|#ffffff|12|centered");

    logic([this] { page.InitProgramPage(); });

    EXPECT_EQ(cellState(0), "||P1 S1 Run as AUTO|#ffffff|#000000|12|centered");
    EXPECT_EQ(cellState(119), "||P12 S10 Run as SKIP|#ffffff|#000000|12|centered");
    EXPECT_EQ(cellState(5), "|||#ffffff|#000000|as it was|as it was");
}

TEST_F(ProgramPageTest, TheSetUpTakesTheImportButtonFromTheLinkAndDisablesTheTransfer)
{
    journal.watch(page.progLoad, "progLoad");
    journal.watch(page.progSend, "progSend");
    page.progSend.setEnabled(true);
    page.progSend.setPicture(paths.inApplication("\\ICON\\SEQINTO.JPG"));
    instrument.connected = false;
    journal.clear();

    logic([this] { page.InitProgramPage(); });
    instrument.connected = true;
    logic([this] { page.InitProgramPage(); });

    EXPECT_THAT(journal.lines(),
                ElementsAre("read IsConnected False", "picture progLoad APP/ICON/SEQOUTSTOP.JPG",
                            "read IsConnected False", "disable progLoad", "disable progSend",
                            "picture progSend APP/ICON/SEQINTOSTOP.JPG", "read IsConnected True",
                            "picture progLoad APP/ICON/SEQOUT.JPG", "read IsConnected True", "enable progLoad"));
}

TEST_F(ProgramPageTest, TheSetUpKeepsTheTimesAndTheChannelsOfTheFrame)
{
    time(0).setText("2.5");
    timeBox(1).setValue(CheckBox::Unchecked);
    page.txtMemCH.setText("5");

    logic([this] { page.InitProgramPage(); });

    EXPECT_EQ(controls(), ",,,5,1,2.5,0,Off,1,0.1,1,0.1,");
}

TEST_F(ProgramPageTest, ClearDoesWhatTheSetUpDoes)
{
    fill(7, "17");
    chain(0).setListIndex(2);
    page.progSend.setEnabled(true);

    press(page.progReset);

    EXPECT_THAT(tags(), Each(QString()));
    EXPECT_EQ(links(), "0 0 0 0 0 0 0 0 0 0 0 0 0");
    EXPECT_EQ(page.cmbMemory.text(), "");
    EXPECT_FALSE(page.progSend.enabled());
}

TEST_F(ProgramPageTest, AMissingPictureEndsTheSetUp)
{
    QFile::remove(application.filePath("ICON"));
    instrument.connected = false;

    logic([this] { page.InitProgramPage(); });

    EXPECT_THAT(processExit.reports, ElementsAre("Run-time error '53':\n\nFile not found"));
}

TEST_F(ProgramPageTest, TheFrameOfAStepCoversNoCellAndIsWhollyOnThePage)
{
    mouseDown(0);
    QCoreApplication::processEvents();

    const QRect frame = page.frameMemorySetting.geometry();
    EXPECT_TRUE(page.rect().contains(frame)) << frame.right();
    EXPECT_LE(frame.bottom(), cell(0).mapTo(&page, QPoint()).y());
    EXPECT_GE(cell(119).height(), 20);
}

TEST_F(ProgramPageTest, ThePagesControlsHaveNamesForScreenReaders)
{
    fill(34, "17");
    EXPECT_EQ(cell(34).accessibleName() + ": " + cell(34).accessibleDescription(), "Program 4 step 5: 17");
    for (const QWidget* control :
         std::initializer_list<QWidget*>{&page.cmbMemory, &time(2), &timeBox(2), &page.txtMemCH, &chain(4), &chain(12),
                                         &page.lstProgramOrder[0], &page.txtProgLoopStart})
        EXPECT_NE(control->accessibleName(), "");
}

TEST_F(ProgramPageTest, TheLegendShowsTheColorsOfTheCells)
{
    for (const auto& [index, mode] : {std::pair{7, "AUTO"}, std::pair{8, "MANUAL"}, std::pair{9, "SKIP"}}) {
        fill(index, "1", mode);
        const QPalette colors = page.lblMemory.at(index).palette();
        EXPECT_EQ(colors.color(QPalette::Window), cell(index).backColor()) << mode;
        EXPECT_EQ(colors.color(QPalette::WindowText), cell(index).foreColor()) << mode;
    }
}

/// The keyboard, with the form as the active window.
class ProgramPageKeyboardTest : public ProgramPageTest {
protected:
    ProgramPageKeyboardTest()
    {
        form.activateWindow();
        QCoreApplication::processEvents();
    }

    void key(int code) const
    {
        QKeyEvent down(QEvent::KeyPress, code, Qt::NoModifier);
        QCoreApplication::sendEvent(QApplication::focusWidget(), &down);
    }

    int focused() const
    {
        for (int n = 0; n < 120; ++n)
            if (page.txtMemSetting.at(static_cast<std::size_t>(n)).hasFocus())
                return n;
        return -1;
    }
};

TEST_F(ProgramPageKeyboardTest, TheArrowsMoveTheFocusWithinTheGrid)
{
    cell(0).setFocus();
    QStringList cells;
    for (const int code : {Qt::Key_Left, Qt::Key_Up, Qt::Key_Right, Qt::Key_Down, Qt::Key_Left}) {
        key(code);
        cells << QString::number(focused());
    }
    EXPECT_EQ(cells.join(' '), "0 0 1 11 10");

    cell(119).setFocus();
    cells.clear();
    for (const int code : {Qt::Key_Right, Qt::Key_Down, Qt::Key_Up}) {
        key(code);
        cells << QString::number(focused());
    }
    EXPECT_EQ(cells.join(' '), "119 119 109");
}

TEST_F(ProgramPageKeyboardTest, EnterOpensTheCellAndTheFirstBoxTakesTheTyping)
{
    cell(34).setFocus();
    key(Qt::Key_Return);

    EXPECT_TRUE(page.frameMemorySetting.visible());
    EXPECT_EQ(page.frameMemorySetting.tag(), "34");
    QKeyEvent seven(QEvent::KeyPress, Qt::Key_7, Qt::NoModifier, "7");
    QCoreApplication::sendEvent(QApplication::focusWidget(), &seven);
    EXPECT_EQ(page.cmbMemory.text(), "7");
    EXPECT_EQ(page.cmbMemory.listIndex(), 6);
}

TEST_F(ProgramPageKeyboardTest, EscapeCancelsTheFrameAndTheFocusIsOnTheCellAgain)
{
    cell(34).setFocus();
    key(Qt::Key_Return);
    page.cmbMemory.setText("7");

    key(Qt::Key_Escape);

    EXPECT_FALSE(page.frameMemorySetting.visible());
    EXPECT_EQ(focused(), 34);
    EXPECT_EQ(cell(34).tag(), "");
}

TEST_F(ProgramPageKeyboardTest, EscapeInATimeCancelsTheFrameToo)
{
    mouseDown(3);
    time(1).setFocus();

    key(Qt::Key_Escape);

    EXPECT_FALSE(page.frameMemorySetting.visible());
}

TEST_F(ProgramPageKeyboardTest, TheOkPutsTheFocusBackOnTheCellUnlessAValueIsMissing)
{
    cell(34).setFocus();
    key(Qt::Key_Return);
    press(page.cmdMemSetOK);
    EXPECT_EQ(focused(), -1) << "the frame is still open";

    fill(34, "1");
    EXPECT_EQ(focused(), 34);
}

TEST_F(ProgramPageKeyboardTest, EscapeCancelsTheChainBeforeTheStep)
{
    mouseDown(3);
    press(page.progOrder);
    page.lstProgramOrder[0].setFocus();

    key(Qt::Key_Escape);
    EXPECT_FALSE(page.fraProgramOrder.visible());
    EXPECT_TRUE(page.frameMemorySetting.visible());
}

TEST_F(ProgramPageKeyboardTest, EnterInTheChannelsSetsTheirBoxes)
{
    mouseDown(3);
    page.txtMemCH.setText("5");
    page.txtMemCH.setFocus();
    QKeyEvent enterKey(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, "\r");
    QCoreApplication::sendEvent(&page.txtMemCH, &enterKey);

    EXPECT_EQ(shorted(), "CH1 CH3");
    EXPECT_TRUE(page.frameMemorySetting.visible());
}

TEST_F(ProgramPageTest, TheRowsOfTheChainStandCloseTogetherAndTheGridBeginsBelowTheFrameOfAStep)
{
    page.resizeTwips(9285, 9900);
    form.resize(page.size());
    QCoreApplication::processEvents();
    const auto top = [&](int box) { return chain(box).mapTo(&page, QPoint(0, 0)).y(); };
    EXPECT_LE(top(4) - top(0), chain(0).height() + 6);
    mouseDown(0);
    EXPECT_GE(cell(0).mapTo(&page, QPoint(0, 0)).y(), page.frameMemorySetting.geometry().bottom());
}

TEST_F(ProgramPageTest, OnALowScreenTheWholeGridIsOnThePageAndTheHintGivesWay)
{
    const auto hint = [&]() -> const QLabel* {
        for (const QLabel* label : page.findChildren<QLabel*>())
            if (label->text().startsWith("Click a cell"))
                return label;
        return nullptr;
    };
    page.resizeTwips(9285, 9900);
    QCoreApplication::processEvents();
    EXPECT_TRUE(hint()->isVisible());

    const int low = page.minimumSizeHint().height();
    EXPECT_LE(low, 486) << "what a screen 600 high leaves";
    page.resize(619, low);
    QCoreApplication::processEvents();

    EXPECT_FALSE(hint()->isVisible());
    EXPECT_LT(cell(119).mapTo(&page, cell(119).rect().bottomRight()).y(), low);
}

TEST_F(ProgramPageTest, ThePageNeedsRoomForTheFrameOfAStepAtItsPlace)
{
    const int before = page.minimumSizeHint().width();
    page.frameMemorySetting.layout()->setContentsMargins(400, 0, 400, 0);
    EXPECT_GT(page.minimumSizeHint().width(), before);
    EXPECT_GE(page.minimumSizeHint().width(), pixels(1620) + page.frameMemorySetting.minimumSizeHint().width());
}

} // namespace
