// SPDX-License-Identifier: GPL-3.0-or-later
#include "data_log_page_test.h"

#include <QApplication>
#include <QLayout>

using namespace orb;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class DataLogPageGraphControlsTest : public DataLogPageTest {
protected:
    /// The operator drags cursor 1 to that many seconds of the time axis.
    void moveCursor(double seconds, double y = 12.5)
    {
        run.enter([&] { page.graphLog.onCursorChange(seconds / 86400, y); });
    }

    void recordedRows(int rows)
    {
        for (int i = 0; i < rows; ++i)
            dbMain.execute(
                QStringLiteral("insert into DataMeasure (SeqNo,RecTime,PVal1,SVal1) values(%1,'t',1,12)").arg(i));
        page.iLogChannels = 1;
        press(page.logRefresh);
        press(page.optGraphMode[2]);
    }

    QString currentRow() { return page.DataLog.recordset().field("SeqNo").asText(); }

    QString checkedBoxes() const
    {
        QStringList checked;
        for (const CheckBox& box : page.cbPlot)
            if (box.value() == CheckBox::Checked)
                checked << box.caption();
        return checked.join(", ");
    }
};

TEST_F(DataLogPageGraphControlsTest, EachTimeRangeSetsCaptionFormatDivisionsAndRange)
{
    const auto axisAfter = [&](const QString& text) {
        page.cmbXLength.addItem(text); // the last three are in the handler and not in the list
        run.enter([&] { page.cmbXLength.setText(text); });
        const GraphAxis& axis = page.graphLog.axis(1);
        return QStringLiteral("%1 | %2 | %3 | %4 s")
            .arg(axis.caption(), axis.FormatString())
            .arg(axis.MajorDivisions())
            .arg(std::llround((axis.maximum() - axis.minimum()) * 86400));
    };
    EXPECT_EQ(axisAfter("10m"), "Elapsed Time [Sec] | h:n:ss | 5 | 600 s");
    EXPECT_EQ(axisAfter("5m"), "Elapsed Time [Sec] | h:n:ss | 5 | 300 s");
    EXPECT_EQ(axisAfter("20m"), "Elapsed Time [Sec] | h:n:ss | 5 | 1200 s");
    EXPECT_EQ(axisAfter("30m"), "Elapsed Time [Sec] | h:n:ss | 5 | 1800 s");
    EXPECT_EQ(axisAfter("60m"), "Elapsed Time [Sec] | h:n:ss | 6 | 3600 s");
    EXPECT_EQ(axisAfter("1 Hr"), "Elapsed Time [min] | h:nn | 6 | 3600 s");
    EXPECT_EQ(axisAfter("3 Hr"), "Elapsed Time [min] | h:nn | 6 | 10800 s");
    EXPECT_EQ(axisAfter("6 Hr"), "Elapsed Time [Min] | h:nn | 6 | 21600 s");
    EXPECT_EQ(axisAfter("12Hr"), "Elapsed Time [Min] | h:nn | 6 | 43200 s");
    EXPECT_EQ(axisAfter("1Day"), "Elapsed Time [Min] | hh:nn | 6 | 86340 s");
    EXPECT_EQ(axisAfter("2Day"), QStringLiteral("Elapsed Time [Min] | dd h:nn | 6 | %1 s").arg(2880LL * 86400));
    EXPECT_EQ(axisAfter("3Day"), QStringLiteral("Elapsed Time [Min] | dd h:n | 6 | %1 s").arg(4320LL * 86400));
    EXPECT_EQ(axisAfter("4Day"), QStringLiteral("Elapsed Time [Min] | dd h:n | 6 | %1 s").arg(5760LL * 86400));
    EXPECT_EQ(axisAfter("5Day"), QStringLiteral("Elapsed Time [Min] | dd h:n | 6 | %1 s").arg(5760LL * 86400))
        << "a text that matches no row changes nothing";
}

TEST_F(DataLogPageGraphControlsTest, ValueRangesReadTheNumberAtTheHeadOfTheText)
{
    const auto maximum = [&](ComboBox& combo, const QString& text, int axis) {
        pick(combo, text);
        return page.graphLog.axis(axis).maximum();
    };
    EXPECT_EQ(maximum(page.cmbYVoltage, "105V", 2), 105);
    EXPECT_EQ(maximum(page.cmbYVoltage, "1 V", 2), 1);
    EXPECT_EQ(maximum(page.cmbYCurrent, "0.1 A", 3), 0.1);
    EXPECT_EQ(maximum(page.cmbYCurrent, "4.5A", 3), 4.5);
    EXPECT_EQ(page.graphLog.axis(3).minimum(), 0);
}

TEST_F(DataLogPageGraphControlsTest, SelectingDefaultGoesToFiftyUntilTheNextRefresh)
{
    recordedRows(2);
    pick(page.cmbYVoltage, "5V");

    pick(page.cmbYVoltage, "Default");
    EXPECT_EQ(page.graphLog.axis(2).maximum(), 50);

    press(page.logRefresh);
    EXPECT_NEAR(page.graphLog.axis(2).maximum(), 1, 1e-9);
}

TEST_F(DataLogPageGraphControlsTest, NoSelectionOfARangeChangesNothing)
{
    pick(page.cmbYVoltage, "5V");
    run.enter([&] { page.cmbYVoltage.setListIndex(-1); });
    EXPECT_EQ(page.graphLog.axis(2).maximum(), 5);
    run.enter([&] { page.cmbYVoltageClick(); });
    EXPECT_EQ(page.graphLog.axis(2).maximum(), 5);
    EXPECT_THAT(processExit.reports, IsEmpty());
}

TEST_F(DataLogPageGraphControlsTest, ABoxShowsAndHidesItsPlot)
{
    record(1);
    press(page.cbPlot[2]);
    EXPECT_FALSE(page.graphLog.plot(3).visible());
    press(page.cbPlot[2]);
    EXPECT_TRUE(page.graphLog.plot(3).visible());
}

TEST_F(DataLogPageGraphControlsTest, WithoutALogTheModeChangesAndNoCursorAndNoBoxIsTouched)
{
    page.cbPlot[3].setValue(CheckBox::Checked);
    page.graphLog.cursor(2).setVisible(true);

    press(page.optGraphMode[2]);
    EXPECT_EQ(page.graphLog.TrackMode(), 2);
    EXPECT_TRUE(page.FrameCursor.visible());
    EXPECT_EQ(checkedBoxes(), "Ch2 A");
    EXPECT_TRUE(page.graphLog.cursor(2).visible());

    press(page.optGraphMode[1]);
    EXPECT_EQ(page.graphLog.TrackMode(), 3);
    EXPECT_FALSE(page.FrameCursor.visible());
    press(page.optGraphMode[0]);
    EXPECT_EQ(page.graphLog.TrackMode(), 6);
    EXPECT_EQ(checkedBoxes(), "Ch2 A");
}

TEST_F(DataLogPageGraphControlsTest, AFourthModeActsLikeTheThird)
{
    record(2);
    page.graphLog.cursor(1).setVisible(true);
    page.graphLog.cursor(8).setVisible(true);

    run.enter([&] { page.optGraphModeClick(3); });

    EXPECT_EQ(page.graphLog.TrackMode(), 2);
    EXPECT_TRUE(page.FrameCursor.visible());
    EXPECT_EQ(boxesPlotsAndCursors(), "enabled [1 2 3 4 5 6 7 8] checked [] plots [] cursors []");
    EXPECT_THAT(processExit.reports, IsEmpty());
}

TEST_F(DataLogPageGraphControlsTest, AnIndexWithoutAControlFails)
{
    const auto failureOf = [](const std::function<void()>& click) {
        try {
            click();
        } catch (const RuntimeFailure& failure) {
            return failure.number();
        }
        return 0;
    };
    for (int index : {-1, 4, 5})
        EXPECT_EQ(failureOf([&] { page.optGraphModeClick(index); }), 340) << index;
    for (int index : {-1, 16})
        EXPECT_EQ(failureOf([&] { page.cbPlotClick(index); }), 340) << index;
    for (int index : {0, 15})
        EXPECT_EQ(failureOf([&] { page.cbPlotClick(index); }), 0) << index;
    EXPECT_EQ(page.graphLog.TrackMode(), 6);
}

TEST_F(DataLogPageGraphControlsTest, TheCursorFrameComesToTheFront)
{
    page.DBGrid1.raise();

    press(page.optGraphMode[2]);

    EXPECT_EQ(page.children().last(), &page.FrameCursor);
}

TEST_F(DataLogPageGraphControlsTest, TheBoxOfTheLastPlotIsClearedLikeTheOthers)
{
    record(2);
    press(page.optGraphMode[2]);
    press(page.cbPlot[7]);
    press(page.cbPlot[0]);
    EXPECT_EQ(checkedBoxes(), "Ch1 V");
    press(page.cbPlot[7]);
    EXPECT_EQ(checkedBoxes(), "Ch4 A");
}

TEST_F(DataLogPageGraphControlsTest, TheCursorIsPlacedInTheMiddleOfItsOwnAxis)
{
    record(2);
    press(page.optGraphMode[2]);
    pick(page.cmbYVoltage, "10V");
    pick(page.cmbYCurrent, "4A");

    press(page.cbPlot[2]);
    EXPECT_EQ(page.graphLog.cursor(1).yPosition(), 5);

    press(page.cbPlot[3]);
    EXPECT_EQ(page.graphLog.cursor(1).yPosition(), 2);
}

TEST_F(DataLogPageGraphControlsTest, CursorModeTakesAllCurvesOffAndShowsTheOneThatIsChecked)
{
    record(2);

    press(page.optGraphMode[2]);
    EXPECT_EQ(checkedBoxes(), "");
    EXPECT_FALSE(page.graphLog.plot(1).visible());
    EXPECT_FALSE(page.graphLog.cursor(1).visible());

    press(page.cbPlot[0]);
    press(page.cbPlot[3]);
    EXPECT_EQ(checkedBoxes(), "Ch2 A");
    const GraphCursor& cursor = page.graphLog.cursor(1);
    EXPECT_TRUE(cursor.visible());
    EXPECT_EQ(cursor.plot(), &page.graphLog.plot(4));
    EXPECT_EQ(cursor.color(), QColor(0, 0, 255));
    EXPECT_EQ(cursor.yPosition(), 25);
}

TEST_F(DataLogPageGraphControlsTest, LeavingCursorModeHidesItsFrameAndItsCursors)
{
    record(2);
    press(page.optGraphMode[2]);
    press(page.cbPlot[0]);

    press(page.optGraphMode[0]);

    EXPECT_FALSE(page.FrameCursor.visible());
    EXPECT_FALSE(page.graphLog.cursor(1).visible());
    EXPECT_EQ(page.graphLog.TrackMode(), 6);
}

TEST_F(DataLogPageGraphControlsTest, ARefreshInCursorModeLeavesOnlyTheLastBoxChecked)
{
    record(2);
    press(page.optGraphMode[2]);

    press(page.logRefresh);

    EXPECT_EQ(checkedBoxes(), "Ch4 A");
    EXPECT_TRUE(page.optGraphMode[0].value());
}

TEST_F(DataLogPageGraphControlsTest, TheCursorIsReadOffAndTheGridFollowsIt)
{
    recordedRows(100);

    moveCursor(42, 12.3456);

    EXPECT_EQ(page.XPosition.text(), "00:00:42");
    EXPECT_EQ(page.YPosition.text(), "12.3456");
    EXPECT_EQ(currentRow(), "42");
    QCoreApplication::processEvents();
    EXPECT_EQ(page.DBGrid1.currentIndex().row(), 42);
}

TEST_F(DataLogPageGraphControlsTest, MinutesOfTheCursorCountSixtySeconds)
{
    recordedRows(200);

    moveCursor(125);

    EXPECT_EQ(page.XPosition.text(), "00:02:05");
    EXPECT_EQ(currentRow(), "125");
}

TEST_F(DataLogPageGraphControlsTest, DaysOfTheCursorAreNotCounted)
{
    recordedRows(10);

    moveCursor(2 * 86400 + 7);

    EXPECT_EQ(page.XPosition.text(), "00:00:07");
    EXPECT_EQ(currentRow(), "7");
}

TEST_F(DataLogPageGraphControlsTest, ACursorAtZeroSearchesForNothing)
{
    recordedRows(10);
    moveCursor(5);
    moveCursor(0);
    EXPECT_EQ(page.XPosition.text(), "00:00:00");
    EXPECT_EQ(currentRow(), "5");
}

TEST_F(DataLogPageGraphControlsTest, ACursorAtTheLastSampleFindsItsRowAndOneAfterItMovesNothing)
{
    recordedRows(10);
    moveCursor(9);
    EXPECT_EQ(currentRow(), "9");
    moveCursor(3);
    moveCursor(10);
    EXPECT_EQ(currentRow(), "3") << "no row has the number of the rows";
    moveCursor(11);
    EXPECT_EQ(currentRow(), "3");
}

TEST_F(DataLogPageGraphControlsTest, HoursCountSixtySecondsSoThatTheGridLagsBeyondTheFirstHour)
{
    recordedRows(100);

    moveCursor(3610);

    EXPECT_EQ(page.XPosition.text(), "01:00:10");
    EXPECT_EQ(currentRow(), "70");
}

TEST_F(DataLogPageGraphControlsTest, OutsideOfCursorModeACursorIsNotReadOff)
{
    recordedRows(10);
    press(page.optGraphMode[0]);
    moveCursor(5);
    EXPECT_EQ(page.XPosition.text(), "");
}

TEST_F(DataLogPageGraphControlsTest, AnotherCurveClearsTheReadOutAndNamesItsUnit)
{
    recordedRows(10);
    press(page.cbPlot[0]);
    EXPECT_EQ(page.lblYUnit.caption(), "V");
    moveCursor(5);
    ASSERT_EQ(page.XPosition.text() + ' ' + page.YPosition.text(), "00:00:05 12.5");

    press(page.cbPlot[1]);

    EXPECT_EQ(page.XPosition.text() + ' ' + page.YPosition.text(), " ");
    EXPECT_EQ(page.lblYUnit.caption(), "A");
}

TEST_F(DataLogPageGraphControlsTest, EnteringCursorModeAgainClearsTheReadOutOfTheCurveThatGoesOff)
{
    recordedRows(10);
    press(page.cbPlot[0]);
    moveCursor(5);
    press(page.optGraphMode[0]);
    EXPECT_EQ(page.XPosition.text() + ' ' + page.YPosition.text(), "00:00:05 12.5");

    press(page.optGraphMode[2]);

    EXPECT_EQ(page.XPosition.text() + ' ' + page.YPosition.text() + page.lblYUnit.caption(), " ");
}

TEST_F(DataLogPageGraphControlsTest, TheUnitStandsBesideTheValueThatItIsOf)
{
    form.show();
    recordedRows(10);
    press(page.cbPlot[0]);
    QCoreApplication::processEvents();
    page.FrameCursor.layout()->activate();
    EXPECT_EQ(page.lblYUnit.geometry().center().y(), page.YPosition.geometry().center().y());
    EXPECT_GT(page.lblYUnit.x(), page.YPosition.geometry().right());
}

TEST_F(DataLogPageGraphControlsTest, TheMenuSavesThePictureAndLeavesTheSharedDialogAsItWas)
{
    const QString name = application.filePath("night.png");
    dialogs.CommonDialog1 = {"c:\\logs", "CSV(*.csv)|*.csv", "Export", "night.csv"};
    dialogs.files = {name};
    run.enter([&] { page.graphLog.onSavePicture(); });
    EXPECT_EQ(QImage(name).size(), page.graphLog.ControlImage().size());
    EXPECT_EQ(dialogs.fileDialogs.at(0).dialog.filter, "Picture(*.png)|*.png");
    EXPECT_EQ(dialogs.CommonDialog1.fileName, "night.csv");
    EXPECT_EQ(dialogs.CommonDialog1.filter, "CSV(*.csv)|*.csv");
    EXPECT_EQ(dialogs.CommonDialog1.title, "Export");
}

} // namespace
