// SPDX-License-Identifier: GPL-3.0-or-later
#include "fake_orb_ctrl.h"
#include "form_test.h"
#include "label.h"
#include "press.h"
#include "scripted_dialogs.h"

using namespace orb;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

/// The tests' own journal, with one of each fake.
class JournalTest : public FormTest {
protected:
    FakeORBCtrl instrument{&journal};
    ScriptedDialogs dialogs{&journal};
};

TEST_F(JournalTest, EveryFakeWritesIntoOneOrder)
{
    dialogs.CommonDialog1 = {"/tmp", "A|*.a", "Open", "b.a"};
    instrument.replies = {"1,2"};

    run.enter([&] {
        instrument.SendCommand(":FETC:ALLC?");
        clock.sleep(100);
        instrument.Reply();
        clock.yield();
        instrument.IsConnected();
        instrument.ChannelCount();
        instrument.LinkType();
        instrument.PanelActive(false);
        dialogs.message("a\r\nb", Icon::Critical, Buttons::YesNo);
        dialogs.showOpen();
        dialogs.showSave();
        dialogs.showPrinter();
        dialogs.printer().endDoc();
        throw RuntimeFailure(failure::Overflow);
    });

    const QString file = " directory \"/tmp\" filter \"A|*.a\" title \"Open\" name \"b.a\"";
    EXPECT_THAT(journal.lines(),
                ElementsAre("send :FETC:ALLC?", "sleep 100", "read Reply \"1,2\"", "yield", "read IsConnected False",
                            "read ChannelCount 0", "read LinkType 0", "call PanelActive False",
                            "message \"a\\r\\nb\" critical YesNo", "open" + file, "save" + file, "printer dialog",
                            "print end", "report 6: Overflow"));
}

TEST_F(JournalTest, AWatchedControlUnderAHiddenContainerWritesItsChangesBetweenTheLinesOfTheFakes)
{
    Frame frame;
    PictureButton button;
    Label sibling;
    put(frame);
    button.setParent(&frame);
    sibling.setParent(&frame);
    frame.setVisible(false);
    frame.setEnabled(false);
    journal.watch(button, "cmdStart");

    instrument.SendCommand("A");
    button.setVisible(false);
    button.setEnabled(false);
    instrument.SendCommand("B");
    button.moveTwips(120, 960);
    instrument.SendCommand("C");
    button.resizeTwips(1005, 975);
    button.bringToFront();
    button.setEnabled(true);

    EXPECT_THAT(journal.lines(),
                ElementsAre("send A", "hide cmdStart", "disable cmdStart", "send B", "move cmdStart 120 960", "send C",
                            "resize cmdStart 1005 975", "raise cmdStart", "enable cmdStart"));
}

TEST_F(JournalTest, AWatchedTimerWritesThatItWasSwitched)
{
    Timer timer(clock);
    journal.watchTimer(timer, "TimerDisplay");

    timer.setInterval(500);
    timer.setEnabled(true);
    timer.setEnabled(false);

    EXPECT_THAT(journal.lines(), ElementsAre("timer TimerDisplay on 500", "timer TimerDisplay off"));
}

TEST_F(JournalTest, LinesAreChosenByTheirKindAndCarryTheirTime)
{
    clock.sleep(100);
    instrument.SendCommand("A");
    clock.sleep(200);
    instrument.SendCommand("B");

    EXPECT_THAT(journal.linesOf({"send"}), ElementsAre("send A", "send B"));
    EXPECT_THAT(journal.linesWithout({"send"}), ElementsAre("sleep 100", "sleep 200"));
    EXPECT_THAT(journal.timedLines(), ElementsAre("0 sleep 100", "100 send A", "100 sleep 200", "300 send B"));
    journal.clear();
    EXPECT_THAT(journal.lines(), IsEmpty());
}

TEST_F(JournalTest, AControlThatIsGoneIsNotReadAnyMore)
{
    {
        PictureButton button;
        Timer timer(clock);
        put(button);
        journal.watch(button, "cmdStart");
        journal.watchTimer(timer, "TimerDisplay");
    }
    form.show();

    EXPECT_THAT(journal.lines(), IsEmpty());
}

} // namespace
