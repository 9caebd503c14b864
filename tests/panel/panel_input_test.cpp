// SPDX-License-Identifier: GPL-3.0-or-later
#include "panel_input.h"

#include "page_test.h"
#include "pointer_file.h"

#include <QCoreApplication>
#include <QDir>
#include <QMouseEvent>

using namespace orb;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

/// The panel picture on a form, with a map of a few keys and a stopped mirror of 500 ms.
class PanelInputTest : public PageTest {
protected:
    PanelInputTest()
    {
        for (QWidget* child : std::initializer_list<QWidget*>{&Image2, &Picture1, &tool})
            child->setParent(&form);
        Image1.setParent(&Picture1);
        Image2.resizeTwips(5700, 9180);
        TimerDisplay.setInterval(500);
        TimerDisplay.onTick = [this] { journal.write("tick"); };
        readMap("A,0,0,300,300\r\n"
                "LOAD,150,0,600,300\r\n"
                "CHAN,900,0,1200,300\r\n"
                "ROTATELEFT,1500,0,1800,300\r\n"
                "ROTATERIGHT,2100,0,2400,300\r\n"
                "ROTATEENTER,2700,0,3000,300\r\n"
                "ENTER,3000,0,3300,300\r\n"
                "1,3000,0,3600,300\r\n");
        journal.watchTimer(TimerDisplay, "TimerDisplay");
        journal.clear();
    }

    void readMap(const QByteArray& rows)
    {
        QFile file(application.filePath("ORBScrBtn.dat"));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        file.write(rows);
        file.close();
        panel.InitDevButton();
    }

    void mouse(QEvent::Type type, double x, double y, Qt::MouseButton button = Qt::LeftButton)
    {
        const QPointF at(x / twipsPerPixel, y / twipsPerPixel);
        const bool isDown = type == QEvent::MouseButtonPress;
        QMouseEvent event(type, at, at, type == QEvent::MouseMove ? Qt::NoButton : button,
                          isDown ? button : Qt::NoButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&Image2, &event);
    }

    void click(double x, double y, Qt::MouseButton button = Qt::LeftButton)
    {
        mouse(QEvent::MouseButtonPress, x, y, button);
        mouse(QEvent::MouseButtonRelease, x, y, button);
    }

    /// The file whose pointer the form shows.
    QString pointer() const
    {
        if (form.cursor().shape() != Qt::BitmapCursor)
            return form.cursor().shape() == Qt::ArrowCursor ? "arrow" : "other";
        for (const char* name : {"LeftRotate.cur", "RightRotate.cur", "H_NW.CUR", "H_POINT.CUR"}) {
            const QCursor file = loadPointer(paths.inApplication(QStringLiteral("\\ICON\\") + name));
            if (file.pixmap().toImage() == form.cursor().pixmap().toImage())
                return QString::fromLatin1(name);
        }
        return "unknown";
    }

    void writeScreen(const QColor& color) const
    {
        createFolder(staging::folder);
        QImage screen(320, 240, QImage::Format_RGB32);
        screen.fill(color);
        ASSERT_TRUE(screen.save(realPath(staging::screen)));
    }

    Form form{run};
    Image Image2;
    PictureBox Picture1;
    Image Image1;
    Timer TimerDisplay{clock};
    ListBox lstCommand{&form};
    CaptureTool tool{paths, lstCommand};
    PanelInput panel{paths, instrument, form, Image2, Picture1, Image1, TimerDisplay, tool};
};

TEST_F(PanelInputTest, APressOnAKeyTakesItsStepsInOrder)
{
    TimerDisplay.setEnabled(true);
    journal.clear();

    mouse(QEvent::MouseButtonPress, 450, 150);

    EXPECT_THAT(journal.lines(), ElementsAre("timer TimerDisplay off", "send :KEYBoard:CODE 111,1", "call GrabScreen",
                                             "timer TimerDisplay on 500"));
}

TEST_F(PanelInputTest, APressOnNoKeySendsNothingAndLeavesTheTimerOn)
{
    click(700, 150);
    EXPECT_THAT(journal.lines(), ElementsAre("timer TimerDisplay on 500"));
    EXPECT_EQ(tool.lblX1.caption(), "700");
    EXPECT_EQ(tool.lblY1.caption(), "150");
}

TEST_F(PanelInputTest, APressOnTheEdgeOfAKeyIsAMiss)
{
    click(900, 150);
    click(1200, 150);
    click(1050, 0);
    click(1050, 300);
    EXPECT_THAT(instrument.sent, IsEmpty());
    click(1050, 150);
    EXPECT_THAT(instrument.sent, ElementsAre(":KEYBoard:CODE 112,1"));
}

TEST_F(PanelInputTest, OnAPlaceOfTwoKeysTheEarlierRowIsPressed)
{
    click(3150, 150);
    EXPECT_THAT(instrument.sent, ElementsAre(":KEYBoard:CODE 108,1"));
}

TEST_F(PanelInputTest, AKeyWithoutACommandSendsNothingAndFetchesNoScreen)
{
    tool.TXT.setText(":LOAD ON");
    click(75, 150);
    EXPECT_THAT(journal.linesOf({"send", "call"}), IsEmpty());
    EXPECT_EQ(tool.TXT.text(), "");
    EXPECT_TRUE(TimerDisplay.enabled());
}

TEST_F(PanelInputTest, TheChannelKeySendsItsCodeAloneAndLeavesTheDisplayCommandInTheBox)
{
    click(1050, 150);
    EXPECT_THAT(instrument.sent, ElementsAre(":KEYBoard:CODE 112,1"));
    EXPECT_EQ(tool.TXT.text(), ":CHAN:DISP");
}

TEST_F(PanelInputTest, EveryMouseButtonPressesAKey)
{
    for (const auto button : {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton})
        click(1650, 150, button);
    EXPECT_THAT(instrument.sent, ElementsAre(":KEYBoard:CODE 214,1", ":KEYBoard:CODE 214,1", ":KEYBoard:CODE 214,1"));
}

TEST_F(PanelInputTest, TheReleaseShowsItsPositionAndSendsNothing)
{
    mouse(QEvent::MouseButtonPress, 450, 150);
    journal.clear();
    mouse(QEvent::MouseButtonRelease, 457.5, 142.5);
    EXPECT_THAT(journal.lines(), IsEmpty());
    EXPECT_EQ(tool.lblX2.caption(), "457.5");
    EXPECT_EQ(tool.lblY2.caption(), "142.5");
}

TEST_F(PanelInputTest, AMoveAfterThePressOverwritesThePressedPosition)
{
    mouse(QEvent::MouseButtonPress, 450, 150);
    mouse(QEvent::MouseMove, 525, 165);
    mouse(QEvent::MouseButtonRelease, 540, 180);
    EXPECT_EQ(tool.lblX1.caption(), "525");
    EXPECT_EQ(tool.lblY1.caption(), "165");
    EXPECT_EQ(tool.lblX2.caption(), "540");
}

TEST_F(PanelInputTest, TheScreenAfterAKeyGoesByThePictureBoxToTheImageOfTheMainForm)
{
    writeScreen(Qt::green);
    instrument.screenGrabbed = true;
    click(450, 150);
    EXPECT_EQ(Picture1.tag(), staging::screen);
    EXPECT_EQ(Picture1.picture(), staging::screen);
    EXPECT_EQ(Image1.pixmap().toImage().pixelColor(5, 5), QColor(Qt::green));
}

TEST_F(PanelInputTest, AScreenThatCanNotBeGrabbedLeavesThePictureAsItWas)
{
    writeScreen(Qt::green);
    QPixmap old(2, 2);
    old.fill(Qt::red);
    Image1.setPixmap(old);
    click(450, 150);
    EXPECT_EQ(Image1.pixmap().toImage(), old.toImage());
    EXPECT_EQ(Picture1.tag(), "");
}

TEST_F(PanelInputTest, AScreenThatCanNotBeLoadedEndsTheProgramWithTheTimerOff)
{
    QFile::remove(realPath(staging::screen));
    instrument.screenGrabbed = true;
    click(450, 150);
    EXPECT_THAT(processExit.reports, ElementsAre("Run-time error '53':\n\nFile not found"));
    EXPECT_FALSE(TimerDisplay.enabled());
}

TEST_F(PanelInputTest, WithoutALinkAKeyIsSentAndTheScreenFetchedAllTheSame)
{
    instrument.connected = false;
    click(450, 150);
    EXPECT_THAT(journal.linesOf({"send", "call", "read"}), ElementsAre("send :KEYBoard:CODE 111,1", "call GrabScreen"));
}

TEST_F(PanelInputTest, APressBeginsTheIntervalOfARunningTimerAnew)
{
    TimerDisplay.setEnabled(true);
    clock.advance(400);
    click(700, 150);
    clock.advance(499);
    EXPECT_THAT(journal.linesOf({"tick"}), IsEmpty());
    clock.advance(1);
    EXPECT_THAT(journal.linesOf({"tick"}), ElementsAre("tick"));
}

TEST_F(PanelInputTest, EachKindOfKeyShowsItsPointerAndTheKnobsAreCrossedOver)
{
    QStringList pointers;
    for (const double x : {75.0, 450.0, 700.0, 1650.0, 2250.0, 2850.0, 1950.0}) {
        mouse(QEvent::MouseMove, x, 150);
        pointers << pointer();
    }
    EXPECT_THAT(pointers, ElementsAre("H_POINT.CUR", "H_POINT.CUR", "arrow", "RightRotate.cur", "LeftRotate.cur",
                                      "H_NW.CUR", "arrow"));
}

TEST_F(PanelInputTest, AMoveOverAKeyEmptiesTheBoxAndOneBesideItDoesNot)
{
    tool.TXT.setText(":LOAD ON");
    mouse(QEvent::MouseMove, 700, 150);
    EXPECT_EQ(tool.TXT.text(), ":LOAD ON");
    mouse(QEvent::MouseMove, 450, 150);
    EXPECT_EQ(tool.TXT.text(), "");
    EXPECT_EQ(tool.lblX1.caption(), "450");
    EXPECT_EQ(tool.lblY1.caption(), "150");
    EXPECT_THAT(journal.linesOf({"send", "timer"}), IsEmpty());
}

TEST_F(PanelInputTest, ThePointerFileIsReadOnEveryMoveAndAMissingOneEndsTheProgram)
{
    mouse(QEvent::MouseMove, 450, 150);
    ASSERT_THAT(processExit.reports, IsEmpty());
    QFile::remove(application.filePath("ICON"));
    mouse(QEvent::MouseMove, 460, 150);
    EXPECT_THAT(processExit.reports, ElementsAre("Run-time error '53':\n\nFile not found"));
}

TEST_F(PanelInputTest, WithAnEmptyMapNoPlaceIsAKey)
{
    readMap("");
    click(450, 150);
    mouse(QEvent::MouseMove, 450, 150);
    EXPECT_THAT(instrument.sent, IsEmpty());
    EXPECT_EQ(pointer(), "arrow");
}

} // namespace
