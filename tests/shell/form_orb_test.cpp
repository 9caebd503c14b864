// SPDX-License-Identifier: GPL-3.0-or-later
#include "form_orb_test.h"

#include <QCoreApplication>
#include <QMouseEvent>

using namespace orb;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

namespace {

TEST_F(FormORBTest, TheFormAndItsPageButtonsHaveTheirTextsPicturesAndPlaces)
{
    QStringList rows{form.caption()};
    for (const PictureButton* button :
         {&form.pageConnect, &form.pageControl, &form.pageCommand, &form.pageWave, &form.pageSequence,
          &form.PageProgram, &form.pageAbout, &form.pageExit, &form.pageDisplay})
        rows << QStringLiteral("%1|%2|%3|%4 %5 %6 %7|%8|%9")
                    .arg(button->caption(), button->toolTip(), button->picture().section('\\', -1))
                    .arg(button->leftTwips())
                    .arg(button->topTwips())
                    .arg(button->widthTwips())
                    .arg(button->heightTwips())
                    .arg(button->visible() ? "" : "hidden", button->enabled() ? "" : "disabled");

    const QStringList expected{
        "ZN ORB Device[DisConnected]",
        "Connect|Connect (Ctrl+1)|PageConnect.png|120 0 1005 975||",
        "Control|Control (Ctrl+2)|A3RMTCTRLSTOP.JPG|1125 0 1005 975||",
        "Command|Command (Ctrl+3)|PageCommand.png|2130 0 1005 975||",
        "Data Log|Data Log (Ctrl+4)|PageDataLog.png|3135 0 1005 975||",
        "Sequence|Sequence (Ctrl+5)|PageSequence.png|4140 0 1005 975||",
        "Program|Program (Ctrl+6)|PageProgram.png|5145 0 1005 975||",
        "About||PageAbout.png|6150 0 1005 975||",
        "Exit||PageExit.png|7155 0 1005 975||",
        "Display||PageDisplay.png|8160 0 1005 975|hidden|",
    };
    EXPECT_EQ(rows, expected);
    EXPECT_EQ(shownGroups(), "");
}

TEST_F(FormORBTest, AWidgetAtTheEndOfTheRowIsShownOnEveryPageUpToTheRightEdge)
{
    QWidget bar;
    form.setRowEnd(bar);
    load();
    form.show();
    const std::vector<void (FormORB::*)()> pages{&FormORB::pageControlClick,  &FormORB::pageConnectClick,
                                                 &FormORB::pageCommandClick,  &FormORB::pageWaveClick,
                                                 &FormORB::pageSequenceClick, &FormORB::PageProgramClick};
    for (const auto page : pages) {
        click(page);
        EXPECT_TRUE(bar.isVisible());
        EXPECT_EQ(bar.geometry(), QRect(QPoint(546, 4), QPoint(form.width() - 9, 60)));
        EXPECT_GE(bar.width(), 75);
    }
    form.resize(1024, 600);
    EXPECT_EQ(bar.geometry().right(), 1015);
}

TEST_F(FormORBTest, TheFormOutlivesAWidgetAtTheEndOfItsRow)
{
    {
        QWidget bar;
        form.setRowEnd(bar);
    }
    load();
    form.show();
    form.resize(1024, 600);
    QWidget other;
    form.setRowEnd(other);
    EXPECT_EQ(other.parentWidget(), &form);
}

TEST_F(FormORBTest, TheThreeTimersExistFromTheStart)
{
    EXPECT_TRUE(form.supervisor.TimerChkConnected.enabled());
    EXPECT_EQ(form.supervisor.TimerChkConnected.interval(), 1200);
    EXPECT_TRUE(form.fraDisplay.TimerDisplay.enabled());
    EXPECT_EQ(form.fraDisplay.TimerDisplay.interval(), 200);
    EXPECT_EQ(form.frmDatalog.TimerDataLog.interval(), 0);
}

TEST_F(FormORBTest, TheStartEndsOnTheControlPageWithAllThreeActivitiesStopped)
{
    watchPages();
    journal.watchTimer(form.fraDisplay.TimerDisplay, "TimerDisplay");

    load();

    EXPECT_THAT(journal.linesWithout({"picture", "resize", "raise"}),
                ElementsAre("disable logStop", "read IsConnected False", "read IsConnected False",
                            "timer TimerDisplay off", "disable dispStop", "show CORB", "move CORB 120 1020",
                            "call ShowControlPage"));
    EXPECT_FALSE(form.fraCommand.cmdStop.enabled());
    EXPECT_EQ(shownGroups(), "CORB");
}

TEST_F(FormORBTest, TheStartResetsTheStateThatThePagesShare)
{
    form.sPendingSeqFile = "left.a";
    form.bFullScrMode = true;
    load();
    EXPECT_EQ(form.sPendingSeqFile, "");
    EXPECT_FALSE(form.bFullScrMode);
}

TEST_F(FormORBTest, TheStartReadsTheCatalogueOfCommands)
{
    load();
    EXPECT_GT(form.fraCommand.lstCommand.listCount(), 100);
    EXPECT_THAT(dialogs.shown, IsEmpty());
}

TEST_F(FormORBTest, WithoutTheCatalogueTheStartShowsTheFailureAndGoesOn)
{
    QFile::remove(application.filePath("orbCommands.dat"));
    load();
    EXPECT_THAT(journal.linesOf({"message", "call"}),
                ElementsAre("message \"Error Number:53:File not found\" critical Ok", "call ShowControlPage"));
}

TEST_F(FormORBTest, TheStartReadsTheCatalogueBeforeItTouchesTheTables)
{
    QFile::remove(application.filePath("orbCommands.dat"));
    alterDatabase("drop table DataMeasure");
    load();
    EXPECT_THAT(journal.linesOf({"message"}), ElementsAre("message \"Error Number:53:File not found\" critical Ok"));
    EXPECT_EQ(processExit.reports.size(), 1);
}

TEST_F(FormORBTest, TheStartSetsTheProgramPageUpAfterTheDataLog)
{
    QFile::remove(application.filePath("ICON"));
    instrument.connected = true; // the button of the import needs another picture then
    load();
    EXPECT_THAT(processExit.reports, ElementsAre("Run-time error '53':\n\nFile not found"));
    EXPECT_TRUE(form.fraDisplay.dispStop.enabled()) << "before the Control page";
    EXPECT_FALSE(form.frmDatalog.logStop.enabled());
    EXPECT_EQ(form.fraProgram.cmbMemory.listCount(), 120);
}

TEST_F(FormORBTest, TheProgramPageTakesThePendingPathOfTheForm)
{
    load();
    form.sPendingProgFile = application.filePath("no.b");
    run.enter([this] { form.fraProgram.progOpenClick(); });
    EXPECT_EQ(form.sPendingProgFile, "");
    EXPECT_THAT(dialogs.fileDialogs, IsEmpty());
}

TEST_F(FormORBTest, TheMirrorDoesNotTickAfterTheStart)
{
    load();
    instrument.connected = true;
    clock.advance(5000);
    EXPECT_THAT(instrument.calls, Not(Contains("GrabScreen")));
}

TEST_F(FormORBTest, TheFirstTickOfTheSupervisorDisablesControlAndCommandAlone)
{
    const auto enabled = [&] {
        QStringList captions;
        for (const PictureButton* button : {&form.pageConnect, &form.pageControl, &form.pageCommand, &form.pageWave,
                                            &form.pageSequence, &form.PageProgram, &form.pageAbout, &form.pageExit})
            if (button->enabled())
                captions << button->caption();
        return captions.join(", ");
    };
    load();
    clock.advance(1199);
    EXPECT_EQ(enabled(), "Connect, Control, Command, Data Log, Sequence, Program, About, Exit");
    clock.advance(1);
    EXPECT_EQ(enabled(), "Connect, Data Log, Sequence, Program, About, Exit");
}

TEST_F(FormORBTest, ActivatingTheFormLeavesTheFullScreenMode)
{
    load();
    form.bFullScrMode = true;
    QEvent activate(QEvent::WindowActivate);
    QCoreApplication::sendEvent(&form, &activate);
    EXPECT_FALSE(form.bFullScrMode);
}

TEST_F(FormORBTest, TheStartReadsThePanelMapBeforeTheCatalogue)
{
    QFile::remove(application.filePath("orbCommands.dat"));
    QFile::remove(application.filePath("ORBScrBtn.dat"));
    load();
    EXPECT_THAT(processExit.reports, ElementsAre("Run-time error '53':\n\nFile not found"));
    EXPECT_THAT(journal.linesOf({"message", "call"}), IsEmpty()) << "the catalogue's failure is a message box";
}

TEST_F(FormORBTest, TheStartResetsTheSharedStateBeforeItReadsThePanelMap)
{
    QFile::remove(application.filePath("ORBScrBtn.dat"));
    form.sPendingSeqFile = "left.a";
    form.bFullScrMode = true;
    load();
    EXPECT_EQ(form.sPendingSeqFile, "");
    EXPECT_FALSE(form.bFullScrMode);
}

TEST_F(FormORBTest, TheStartReadsAllKeysOfThePanel)
{
    load();
    EXPECT_EQ(form.panel.map.nDevButton, 28);
}

TEST_F(FormORBTest, ActivatingTheFormInFullScreenSendsTheNextPictureToTheMainForm)
{
    createFolder(staging::folder);
    QPixmap screen(320, 240);
    screen.fill(Qt::green);
    ASSERT_TRUE(screen.save(realPath(staging::screen)));
    instrument.connected = true;
    instrument.screenGrabbed = true;
    load();
    click(&FormORB::pageDisplayClick);
    press(form.fraDisplay.dispPlay);
    press(form.fraDisplay.dispEnlarge);
    clock.advance(500);
    EXPECT_EQ(form.fraDisplay.Image1.picture(), paths.inApplication("\\OrbEmpty.jpg")) << "still blank";

    QEvent activate(QEvent::WindowActivate);
    QCoreApplication::sendEvent(&form, &activate);
    clock.advance(500);

    EXPECT_EQ(form.fraDisplay.Image1.pixmap().toImage().pixelColor(5, 5), QColor(Qt::green));
    EXPECT_TRUE(form.fraDisplay.oFullScreen->isVisible());
}

TEST_F(FormORBTest, AKeyPressedInFullScreenModeShowsTheScreenOnTheMainForm)
{
    createFolder(staging::folder);
    QPixmap screen(320, 240);
    screen.fill(Qt::green);
    ASSERT_TRUE(screen.save(realPath(staging::screen)));
    instrument.screenGrabbed = true;
    load();
    click(&FormORB::pageDisplayClick);
    form.bFullScrMode = true;
    QMouseEvent down(QEvent::MouseButtonPress, QPointF(56, 309), QPointF(56, 309), Qt::LeftButton, Qt::LeftButton,
                     Qt::NoModifier);
    QCoreApplication::sendEvent(&form.fraDisplay.Image2, &down);
    EXPECT_THAT(instrument.sent, ElementsAre(":KEYBoard:CODE 113,1"));
    EXPECT_EQ(form.fraDisplay.Image1.pixmap().toImage().pixelColor(5, 5), QColor(Qt::green));
    EXPECT_FALSE(form.fraDisplay.oFullScreen);
}

TEST_F(FormORBTest, AClickOnThePanelRunsAStoppedMirrorAndTheButtonsStayUntilTheLinkIsFoundDown)
{
    load();
    click(&FormORB::pageDisplayClick);
    QMouseEvent down(QEvent::MouseButtonPress, QPointF(2, 2), QPointF(2, 2), Qt::LeftButton, Qt::LeftButton,
                     Qt::NoModifier);
    QCoreApplication::sendEvent(&form.fraDisplay.Image2, &down);

    EXPECT_TRUE(form.fraDisplay.TimerDisplay.enabled());
    EXPECT_EQ(form.fraDisplay.TimerDisplay.interval(), 200);
    EXPECT_FALSE(form.fraDisplay.dispStop.enabled());
    press(form.pageSequence); // stops only what its stop button says is running
    EXPECT_TRUE(form.fraDisplay.TimerDisplay.enabled());
    clock.advance(200); // the instrument is not connected
    EXPECT_FALSE(form.fraDisplay.TimerDisplay.enabled());
}

/// The panel picture with the program's own map. A place is given in pixels as the operator sees them.
class FormORBPanelTest : public FormORBTest {
protected:
    FormORBPanelTest()
    {
        load();
        click(&FormORB::pageDisplayClick);
    }

    /// The code and count that a click there sends; "none" where it sends nothing.
    QString codeAt(double x, double y)
    {
        instrument.sent.clear();
        for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
            QMouseEvent event(type, QPointF(x, y), QPointF(x, y), Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
            QCoreApplication::sendEvent(&form.fraDisplay.Image2, &event);
        }
        return instrument.sent.empty() ? "none" : instrument.sent.front().section(' ', 1);
    }

    QStringList codesAt(double y, const std::vector<double>& places)
    {
        QStringList codes;
        for (const double x : places)
            codes << codeAt(x, y);
        return codes;
    }
};

TEST_F(FormORBPanelTest, AClickInTheMiddleOfEveryKeySendsItsCode)
{
    const std::vector<double> fiveInARow{56, 122, 188, 254, 320};
    EXPECT_THAT(codesAt(309, fiveInARow), ElementsAre("113,1", "114,1", "115,1", "116,1", "117,1")); // F1 to F5
    EXPECT_THAT(codesAt(353, fiveInARow),
                ElementsAre("112,1", "118,1", "109,1", "119,1", "120,1")); // CHAN FUNC PRESET FILE HELP
    const std::vector<double> pad{53, 113, 173};
    EXPECT_THAT(codesAt(407, pad), ElementsAre("103,1", "104,1", "105,1"));
    EXPECT_THAT(codesAt(459, pad), ElementsAre("100,1", "101,1", "102,1"));
    EXPECT_THAT(codesAt(511, pad), ElementsAre("97,1", "98,1", "99,1"));
    EXPECT_THAT(codesAt(563, pad), ElementsAre("96,1", "106,1", "107,1"));                // 0 . CLEAR
    EXPECT_THAT(codesAt(432, {251, 285, 318}), ElementsAre("214,1", "123,1", "214,255")); // the knob
    EXPECT_THAT(codesAt(511, {251, 320}), ElementsAre("110,1", "108,1"));                 // SHIFT ENTER
    EXPECT_EQ(codeAt(285, 563), "111,1");                                                 // LOAD
}

TEST_F(FormORBPanelTest, AClickInAGapBetweenTwoKeysSendsNothing)
{
    EXPECT_THAT(codesAt(309, {20, 89.5, 155.5, 221.5, 287.5, 360}), testing::Each(QString("none")));
    EXPECT_THAT(codesAt(330, {56, 122, 188, 254, 320}), testing::Each(QString("none")));
    EXPECT_THAT(codesAt(407, {83, 143, 210}), testing::Each(QString("none")));
    EXPECT_THAT(codesAt(433, {53, 113, 173}), testing::Each(QString("none")));
    EXPECT_THAT(codesAt(432, {266, 304}), testing::Each(QString("none")));
    EXPECT_THAT(codesAt(537, {251, 285, 320}), testing::Each(QString("none")));
    EXPECT_EQ(codeAt(285.5, 511), "none");
    EXPECT_EQ(codeAt(190, 150), "none") << "the screen";
}

TEST_F(FormORBTest, AMouseMoveOverTheDisplayPageSetsTheArrowPointer)
{
    form.setCursor(Qt::PointingHandCursor);
    QMouseEvent move(QEvent::MouseMove, QPointF(2, 2), QPointF(2, 2), Qt::NoButton, Qt::NoButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&form.fraDisplay, &move);
    EXPECT_EQ(form.cursor().shape(), Qt::ArrowCursor);
    EXPECT_TRUE(form.fraDisplay.hasMouseTracking());
}

TEST_F(FormORBTest, ClosingTheFormClosesTheDatabaseAndTheWorkspace)
{
    load();
    ASSERT_TRUE(QFile::copy(databasePath(), application.filePath("other.mdb")));
    const auto other = form.wsMain.openDatabase(application.filePath("other.mdb"));

    form.close();

    EXPECT_FALSE(form.dbMain.isOpen());
    EXPECT_FALSE(other.isOpen());
    EXPECT_THAT(processExit.reports, IsEmpty());
}

TEST_F(FormORBTest, AFormThatNeverLoadedCanBeClosed)
{
    form.close();
    EXPECT_THAT(processExit.reports, IsEmpty());
}

TEST_F(FormORBTest, AMissingDatabaseEndsTheStartWithTheReportAndNothingIsCreated)
{
    ASSERT_TRUE(QFile::remove(databasePath()));

    load();

    EXPECT_THAT(processExit.reports, ElementsAre("Run-time error '3024':\n\nDatabase not found: " + databasePath()));
    EXPECT_THAT(journal.linesOf({"message", "call"}), IsEmpty());
    EXPECT_FALSE(QFile::exists(databasePath()));
}

TEST_F(FormORBTest, AnUnreadableDatabaseEndsTheStartAndKeepsItsBytes)
{
    const QByteArray bytes = "this is no database\n";
    QFile file(databasePath());
    ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    file.write(bytes);
    file.close();

    load();

    EXPECT_THAT(processExit.reports,
                ElementsAre("Run-time error '3343':\n\nUnrecognized database format: " + databasePath()));
    EXPECT_THAT(journal.linesOf({"message", "call"}), IsEmpty());
    EXPECT_EQ(contentOf(databasePath()), QString::fromUtf8(bytes));
}

TEST_F(FormORBTest, ADatabaseWithoutItsTablesEndsTheStart)
{
    alterDatabase("drop table DataMeasure");
    load();
    EXPECT_THAT(processExit.reports, ElementsAre("Run-time error '3075':\n\nno such table: DataMeasure"));
    EXPECT_THAT(journal.linesOf({"message", "call"}), IsEmpty());
}

TEST_F(FormORBTest, TheSimulationOfASequenceUsesTheFirstBufferOfTheDataLog)
{
    load();
    alterDatabase("insert into ORBSeqData values(1,1,4,0,0)");
    run.enter([this] {
        form.fraSequence.datORB.setDatabaseName(databasePath());
        form.fraSequence.datORB.refresh();
        form.fraSequence.seqPlotClick();
    });
    EXPECT_THAT(form.frmDatalog.adLogSeries[0], testing::ElementsAre(4, 0));
}

TEST_F(FormORBTest, ALoadFromTheInstrumentTakesThePathThatTheFormHolds)
{
    load();
    form.sPendingSeqFile = application.filePath("gone.a");
    run.enter([this] { form.fraSequence.seqOpenClick(); });
    EXPECT_EQ(form.sPendingSeqFile, "");
    EXPECT_THAT(processExit.reports, testing::ElementsAre("Run-time error '53':\n\nFile not found"));
}

TEST_F(FormORBTest, ClearGraphSeqErasesTwoBuffersOfTheDataLogAndItsGraphAndNotTheSimulation)
{
    load();
    for (auto& series : form.frmDatalog.adLogSeries)
        series = {1};
    form.frmDatalog.graphLog.plot(3).ChartY(1, 1);
    form.fraSequence.graphSeq.plot(1).ChartY(1, 1);

    form.ClearGraphSeq();

    EXPECT_TRUE(form.frmDatalog.adLogSeries[0].empty() && form.frmDatalog.adLogSeries[1].empty());
    EXPECT_EQ(form.frmDatalog.adLogSeries[2].size(), 1U);
    EXPECT_EQ(form.frmDatalog.graphLog.plot(3).pointCount(), 0U);
    EXPECT_EQ(form.fraSequence.graphSeq.plot(1).pointCount(), 1U);
}

} // namespace
