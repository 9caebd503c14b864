// SPDX-License-Identifier: GPL-3.0-or-later
#include "sequence_page_test.h"

#include <QApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QScrollBar>

namespace orb {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// The page as the operator sees it, in the window's size.
class SequencePageLayoutTest : public SequencePageTest {
protected:
    SequencePageLayoutTest()
    {
        form.resize(page.size());
        form.show();
        form.activateWindow();
        open(sequenceRecord());
        settle();
    }

    static void settle()
    {
        for (int i = 0; i < 5; ++i)
            QCoreApplication::processEvents();
    }

    static void key(QWidget& target, int code, const QString& text = {})
    {
        QKeyEvent event(QEvent::KeyPress, code, Qt::NoModifier, text);
        QCoreApplication::sendEvent(&target, &event);
        settle();
    }

    /// The operator goes to a cell and types a text into it.
    static void edit(DBGrid& grid, int row, int column, const QString& text)
    {
        grid.setFocus();
        grid.setCurrentIndex(grid.model()->index(row, column));
        key(grid, Qt::Key_F2);
        if (auto* editor = grid.viewport()->findChild<QLineEdit*>()) {
            editor->setText(text);
            key(*editor, Qt::Key_Return);
        }
    }

    static QStringList editable(const DBGrid& grid)
    {
        QStringList fields;
        for (int i = 0; i < grid.columnCount(); ++i)
            if (grid.model()->flags(grid.model()->index(0, i)).testFlag(Qt::ItemIsEditable))
                fields << grid.column(i).field;
        return fields;
    }

    /// Where the focus goes from the first button on, with the Tab key.
    QStringList tabOrder()
    {
        const std::map<QWidget*, QString> names{{&page.seqOpen, "seqOpen"},
                                                {&page.seqSave, "seqSave"},
                                                {&page.seqDelete, "seqDelete"},
                                                {&page.seqSend, "seqSend"},
                                                {&page.SeqLoad, "SeqLoad"},
                                                {&page.seqPlot, "seqPlot"},
                                                {&page.DBGridHead, "DBGridHead"},
                                                {&page.lstSequence, "lstSequence"},
                                                {&page.DBGridSequence, "DBGridSequence"}};
        QStringList order;
        page.seqOpen.setFocus();
        for (int i = 0; i < 12 && form.focusWidget(); ++i) {
            const auto name = names.find(form.focusWidget());
            order << (name == names.end() ? QString::fromLatin1(form.focusWidget()->metaObject()->className())
                                          : name->second);
            key(*form.focusWidget(), Qt::Key_Tab);
            if (form.focusWidget() == &page.seqOpen)
                break;
        }
        return order;
    }
};

TEST_F(SequencePageLayoutTest, TheButtonsHaveTheirCaptionsAndToolTips)
{
    QStringList texts;
    for (const PictureButton* button :
         {&page.seqOpen, &page.seqSave, &page.seqDelete, &page.seqSend, &page.SeqLoad, &page.seqPlot})
        texts << button->caption() + " | " + button->toolTip();
    EXPECT_THAT(texts, ElementsAre("Open Sequence File | ",
                                   "Save Sequence File | Write the file as it was read to " + file("test.a"),
                                   "Delete Sequence File | Empty the page; the file stays",
                                   "Transfer Sequence to ORB | ", "Load Sequence from ORB | ", "Sequence Simulate | "));
    EXPECT_EQ(page.caption(), "Sequence");
    EXPECT_EQ(page.datORBSeqSet.caption(), "Sequence Settings");
    EXPECT_EQ(page.datORB.caption(), "Sequence 120 Points");
}

TEST_F(SequencePageLayoutTest, EveryControlThatAnOperatorReachesHasAName)
{
    EXPECT_EQ(page.DBGridHead.accessibleName(), "Sequence Settings");
    EXPECT_EQ(page.DBGridSequence.accessibleName(), "Sequence 120 Points");
    EXPECT_EQ(page.lstSequence.accessibleName(), "Summary");
}

TEST_F(SequencePageLayoutTest, OnlyTheValuesToSendCanBeEdited)
{
    EXPECT_THAT(editable(page.DBGridHead), ElementsAre("Update"));
    EXPECT_THAT(editable(page.DBGridSequence), ElementsAre("DurTime", "Current", "SlewrateUp", "SlewrateDown"));
}

TEST_F(SequencePageLayoutTest, AnEditedSettingIsInTheTableAndMarkedAndTheLoadedValueStays)
{
    edit(page.DBGridHead, 3, 2, "7");

    EXPECT_EQ(table("select * from ORBSeqHead where Item like 'Repeat%'"), "Repeat Count(0:inf)|3|7\n");
    EXPECT_EQ(page.datORBSeqSet.textBeforeEdit(3, 2), "3");
    EXPECT_EQ(bytesOf(page.record), bytesOf(sequenceRecord()));
}

TEST_F(SequencePageLayoutTest, EveryValueOfAPointIsEditedInTheTable)
{
    edit(page.DBGridSequence, 1, 1, "0.5");
    edit(page.DBGridSequence, 1, 2, "2.25");
    edit(page.DBGridSequence, 1, 3, "0.75");
    edit(page.DBGridSequence, 1, 4, "0.125");

    EXPECT_EQ(table("select * from ORBSeqData where [Index]=2"), "2|0.5|2.25|0.75|0.125\n");
    EXPECT_EQ(page.datORB.textBeforeEdit(1, 2), "0.02");
}

TEST_F(SequencePageLayoutTest, AMistypedValueIsRefusedAndTheOldOneStays)
{
    for (const int column : {1, 2, 3, 4})
        edit(page.DBGridSequence, 1, column, "abc");
    edit(page.DBGridHead, 3, 2, "abc");

    EXPECT_EQ(table("select * from ORBSeqData where [Index]=2"), "2|0.002|0.02|1.6|0.8\n");
    EXPECT_EQ(table("select [Update] from ORBSeqHead where Item like 'Repeat%'"), "3\n");
    EXPECT_EQ(page.DBGridHead.viewport()->findChild<QLineEdit*>()->toolTip(),
              "\"abc\" is not a number. Numbers are entered like 12.5 or -0.02.");
    EXPECT_THAT(processExit.reports, IsEmpty());
}

TEST_F(SequencePageLayoutTest, AnEditThatIsSentIsWhatTheOperatorTyped)
{
    clock.allow(200'000);
    edit(page.DBGridHead, 2, 2, "1");
    edit(page.DBGridSequence, 0, 2, "2.25");

    send();

    EXPECT_EQ(instrument.sent.size(), 11U);
    EXPECT_EQ(instrument.sent[8], ":SEQ:POIN:CURR 2.25");
}

TEST_F(SequencePageLayoutTest, TheNextFileAfterADeleteHasNoEditedCells)
{
    edit(page.DBGridSequence, 1, 2, "2.25");
    ASSERT_TRUE(page.datORB.textBeforeEdit(1, 2));

    press(page.seqDelete);
    open(sequenceRecord());

    EXPECT_EQ(page.datORB.textBeforeEdit(1, 2), std::nullopt);
}

TEST_F(SequencePageLayoutTest, TheTabKeyGoesFromTheButtonsToTheGridsAndTheList)
{
    EXPECT_THAT(tabOrder(), ElementsAre("seqOpen", "seqSave", "seqDelete", "seqSend", "SeqLoad", "DBGridHead",
                                        "DBGridSequence", "lstSequence"));
}

TEST_F(SequencePageLayoutTest, TheKeysScrollTheTable)
{
    DBGrid& grid = page.DBGridSequence;
    grid.setFocus();
    key(grid, Qt::Key_PageDown);
    EXPECT_GT(page.datORB.recordset().position(), 5);
    EXPECT_GT(grid.verticalScrollBar()->value(), 0);
    key(grid, Qt::Key_Down);
    const std::int64_t row = page.datORB.recordset().position();
    key(grid, Qt::Key_Up);
    EXPECT_EQ(page.datORB.recordset().position(), row - 1);
}

TEST_F(SequencePageLayoutTest, AllSettingsAndAllColumnsAreInView)
{
    EXPECT_EQ(page.DBGridHead.verticalScrollBar()->maximum(), 0);
    EXPECT_EQ(page.DBGridHead.horizontalScrollBar()->maximum(), 0);
    EXPECT_EQ(page.DBGridSequence.horizontalScrollBar()->maximum(), 0);
}

TEST_F(SequencePageLayoutTest, EveryColumnIsWideEnoughForItsCaptionAndItsLongestValues)
{
    SeqFileRecord record = sequenceRecord();
    record.DurationCount[0] = 1234567;
    record.Points[0].CurrentRaw = -32768;
    record.Points[0].SlewUpRaw = -32767;
    record.Points[0].SlewDownRaw = -32767;
    reset();
    open(withCheckSum(record));
    settle();
    QFont bold = page.font();
    bold.setBold(true);
    const QFontMetrics metrics(bold);
    constexpr int margins = 8;
    for (const DBGrid* grid : {&page.DBGridHead, &page.DBGridSequence})
        for (int column = 0; column < grid->columnCount(); ++column) {
            const QString caption = grid->model()->headerData(column, Qt::Horizontal, Qt::DisplayRole).toString();
            EXPECT_GE(grid->columnWidth(column), grid->fontMetrics().horizontalAdvance(caption) + margins / 2)
                << caption.toStdString();
            for (int row = 0; row < 5; ++row)
                EXPECT_GE(grid->columnWidth(column),
                          (column == 0 ? grid->fontMetrics() : metrics).horizontalAdvance(grid->cellText(row, column)) +
                              margins)
                    << grid->cellText(row, column).toStdString();
        }
}

TEST_F(SequencePageLayoutTest, TheSummaryStandsBesideBothGridsAndShowsEveryLineWhole)
{
    EXPECT_GT(page.lstSequence.x(), page.DBGridSequence.geometry().right());
    EXPECT_LT(page.lstSequence.y(), page.DBGridHead.y());
    EXPECT_EQ(page.lstSequence.geometry().bottom(), page.DBGridSequence.geometry().bottom());
    const QFontMetrics metrics = page.lstSequence.fontMetrics();
    const int width = page.lstSequence.viewport()->width();
    ASSERT_GT(metrics.horizontalAdvance(page.lstSequence.list(0)), width);
    EXPECT_GE(page.lstSequence.visualItemRect(page.lstSequence.item(0)).height(), 2 * metrics.height());
    EXPECT_LT(page.lstSequence.visualItemRect(page.lstSequence.item(4)).height(), 2 * metrics.height());
}

TEST_F(SequencePageLayoutTest, ThePageNeedsNoMoreRoomThanItsFrameHas)
{
    EXPECT_LE(page.minimumSizeHint().width(), page.width());
    EXPECT_LE(page.minimumSizeHint().height(), page.height());
    EXPECT_EQ(page.widthTwips(), 9285);
    EXPECT_EQ(page.heightTwips(), 8400);
}

TEST_F(SequencePageLayoutTest, ALargerWindowGivesItsRoomToThePoints)
{
    const int headHeight = page.DBGridHead.height();
    const int pointsHeight = page.DBGridSequence.height();
    page.resize(page.width(), page.height() + 100);
    settle();
    EXPECT_EQ(page.DBGridHead.height(), headHeight);
    EXPECT_EQ(page.DBGridSequence.height(), pointsHeight + 100);
}

TEST_F(SequencePageLayoutTest, TheGraphCoversTheGridsAndTheListAndLeavesTheButtons)
{
    run.enter([this] { page.seqPlotClick(); });
    settle();

    const QRect covered(page.graphSeq.mapTo(&page, QPoint()), page.graphSeq.size());
    for (const QWidget* under :
         std::initializer_list<const QWidget*>{&page.DBGridHead, &page.DBGridSequence, &page.lstSequence, &page.datORB})
        EXPECT_TRUE(covered.contains(QRect(under->mapTo(&page, QPoint()), under->size())));
    EXPECT_FALSE(covered.intersects(QRect(page.seqOpen.mapTo(&page, QPoint()), page.seqOpen.size())));
}

TEST_F(SequencePageLayoutTest, AMouseClickOnTheGraphHidesIt)
{
    run.enter([this] { page.seqPlotClick(); });
    settle();
    const QPoint at(page.graphSeq.width() / 2, page.graphSeq.height() / 2);
    for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
        QMouseEvent event(type, at, page.graphSeq.mapToGlobal(at), Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&page.graphSeq, &event);
    }
    EXPECT_FALSE(page.graphSeq.visible());
}

} // namespace
} // namespace orb
