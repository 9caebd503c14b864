// SPDX-License-Identifier: GPL-3.0-or-later
#include "channel_card.h"
#include "device_control_fixture.h"
#include "simulated_instrument.h"

#include <QApplication>
#include <QtMath>

namespace orb {

namespace {
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
} // namespace

/// The bar that stands on every page of the program.
class AllOffBarTest : public DeviceControlTest {
protected:
    AllOffBar& bar() { return control->allOffBar; }
    std::string texts()
    {
        QStringList shown;
        for (const Label* label : {&bar().lblLink, &bar().lblInputs})
            if (isReachable(*label))
                shown += label->caption();
        if (isReachable(bar().cmdAllOff))
            shown += bar().cmdAllOff.caption();
        return shown.join(QStringLiteral(" | ")).toStdString();
    }
    void connectLoads(const QByteArray& loads)
    {
        connectInstrument([loads](const QByteArray& query) {
            return query.startsWith(":FETC") ? "1,2,3;4,5,6;7,8,9;" + loads + '\n' : QByteArray("x\n");
        });
    }
};

TEST_F(AllOffBarTest, TheButtonIsThereWhileConnected)
{
    EXPECT_EQ(texts(), "Not connected");
    EXPECT_FALSE(bar().keyAllOff.isEnabled());
    connectInstrument();
    EXPECT_EQ(texts(), "Scripted | Inputs unknown | ALL OFF");
    EXPECT_TRUE(bar().keyAllOff.isEnabled());
    control->ShowConnectPage();
    press(control->connectPage.cmdDisconnect);
    EXPECT_EQ(texts(), "Not connected");
    EXPECT_FALSE(bar().keyAllOff.isEnabled());
}

TEST_F(AllOffBarTest, ALinkThatIsLostShowsOnEveryPageWithoutAByte)
{
    connectInstrument();
    control->setVisible(false);
    line.close(100);
    clock.advance(1000);
    EXPECT_EQ(texts(), "Not connected | Link lost");
    EXPECT_THAT(line.sent, IsEmpty());
}

TEST_F(AllOffBarTest, ItSendsOneLineOnAnyPage)
{
    connectInstrument();
    press(bar().cmdAllOff); // the control is not active
    EXPECT_THAT(line.sent, ElementsAre(":LOAD:ALL OFF"));
    clock.advance(10'000);
    EXPECT_THAT(line.sent, ElementsAre(":LOAD:ALL OFF"));
    EXPECT_EQ(texts(), "Scripted | ALL OFF sent | ALL OFF");
    for (const bool isControlPage : {true, false}) {
        isControlPage ? control->ShowControlPage() : control->ShowConnectPage();
        clock.advance(200);
        line.sent.clear();
        press(bar().cmdAllOff);
        EXPECT_THAT(line.sent, ElementsAre(":LOAD:ALL OFF"));
    }
}

TEST_F(AllOffBarTest, ItIsSentAlthoughNothingIsAnswered)
{
    connectInstrument([](const QByteArray&) { return QByteArray(); });
    control->SendCommand(QStringLiteral(":FETC:ALLC?"));
    press(bar().cmdAllOff);
    EXPECT_THAT(line.sent, ElementsAre(":FETC:ALLC?", ":LOAD:ALL OFF"));
}

TEST_F(AllOffBarTest, ItCostsTheApplicationNoReply)
{
    connectInstrument();
    line.onLine = [this](const QByteArray& text) {
        if (isQuery(text))
            line.say("4,5,6,\n", 80);
    };
    control->SendCommand(QStringLiteral(":FETC:ALLC?"));
    press(bar().cmdAllOff); // in the middle of a sample
    clock.sleep(100);
    EXPECT_EQ(control->Reply(), "4,5,6,");
}

TEST_F(AllOffBarTest, ItIsHandledAtTheNextYieldOfALoop)
{
    connectInstrument();
    clock.at(clock.elapsed() + 50, [&] { press(bar().cmdAllOff); });
    run.enter([&] {
        for (int round = 0; round < 3; ++round) {
            clock.yield();
            control->SendCommand(QStringLiteral(":CURR1 %1").arg(round));
            clock.sleep(100);
        }
    });
    EXPECT_THAT(line.sent, ElementsAre(":CURR1 0", ":LOAD:ALL OFF", ":CURR1 1", ":CURR1 2"));
}

TEST_F(AllOffBarTest, F12PressesItWhateverHasTheFocus)
{
    connectInstrument();
    TextBox elsewhere;
    put(elsewhere).show();
    form.activateWindow();
    QApplication::processEvents();
    elsewhere.setFocus();
    EXPECT_EQ(bar().keyAllOff.key(), QKeySequence(Qt::Key_F12));
    EXPECT_EQ(bar().keyAllOff.context(), Qt::ApplicationShortcut);
    Q_EMIT bar().keyAllOff.activated();
    EXPECT_THAT(line.sent, ElementsAre(":LOAD:ALL OFF"));
}

TEST_F(AllOffBarTest, ALinkThatDoesNotTakeItSaysSo)
{
    connectInstrument();
    faults.refusesWrites = true;
    press(bar().cmdAllOff);
    EXPECT_EQ(texts(), "Scripted | OFF not sent | ALL OFF");
    EXPECT_EQ(control->lblLink.status(),
              (StatusLine{QStringLiteral("Not connected: nothing could be switched off from here."), Tone::Bad}));
    faults.refusesWrites = false;
    press(bar().cmdAllOff);
    EXPECT_EQ(texts(), "Scripted | ALL OFF sent | ALL OFF");
}

TEST_F(AllOffBarTest, ALinkThatIsGoneAtThePressSaysSo)
{
    connectInstrument();
    line.close();
    press(bar().cmdAllOff);
    EXPECT_EQ(texts(), "Not connected | OFF not sent");
}

TEST_F(AllOffBarTest, TheInputsAreThoseOfTheLastPoll)
{
    connectLoads("0,1,0");
    control->ShowControlPage();
    clock.advance(1000);
    EXPECT_EQ(texts(), "Scripted | 2 on | ALL OFF");
    control->PanelActive(false);
    EXPECT_EQ(texts(), "Scripted | Last: 2 on | ALL OFF");
    control->SendCommand(QStringLiteral(":LOAD1 ON"));
    EXPECT_EQ(texts(), "Scripted | Last: 1, 2 on | ALL OFF");
    line.sent.clear();
    clock.advance(60'000);
    EXPECT_THAT(line.sent, IsEmpty());
}

TEST_F(AllOffBarTest, TheInputsAgeWhenThePageIsCovered)
{
    connectLoads("0,1,0");
    control->ShowControlPage();
    clock.advance(1000);
    control->ShowConnectPage();
    clock.advance(100);
    EXPECT_EQ(texts(), "Scripted | Last: 2 on | ALL OFF");
}

TEST_F(AllOffBarTest, AnAnswerFromBeforeThePressDoesNotSayWhatIsOn)
{
    connectLoads("0,1,0");
    const auto answer = line.onLine;
    line.onLine = [this](const QByteArray& text) {
        if (text.startsWith(":FETC"))
            line.say("1,2,3;4,5,6;7,8,9;0,1,0\n", 40);
    };
    control->ShowControlPage();
    while (line.sent.isEmpty() || !line.sent.back().startsWith(":FETC"))
        clock.advance(10);
    press(bar().cmdAllOff);
    clock.advance(90); // the answer of the query that was under way is in
    EXPECT_EQ(texts(), "Scripted | ALL OFF sent | ALL OFF");
}

TEST_F(AllOffBarTest, AnInputThatIsSwitchedOnACardCountsAlthoughItsPageIsLeft)
{
    connectLoads("0,0,0");
    control->ShowControlPage();
    clock.advance(1000);
    press(control->controlPage.cards.at(2)->cmdLoad);
    control->PanelActive(false);
    EXPECT_EQ(texts(), "Scripted | Last: 3 on | ALL OFF");
}

TEST_F(AllOffBarTest, NothingIsKnownAfterAReconnect)
{
    connectLoads("0,1,0");
    control->ShowControlPage();
    clock.advance(1000);
    control->PanelActive(false);
    control->Reconnect();
    EXPECT_EQ(texts(), "Scripted | Inputs unknown | ALL OFF");
}

TEST_F(AllOffBarTest, TheButtonStandsAtTheRightOrAboveTheStateWhereItIsNarrow)
{
    connectInstrument();
    bar().resize(80, 57);
    QApplication::processEvents();
    EXPECT_LT(bar().cmdAllOff.geometry().bottom(), bar().lblLink.geometry().top());
    EXPECT_GE(bar().cmdAllOff.width(), 78);
    bar().resize(400, 57);
    QApplication::processEvents();
    EXPECT_GT(bar().cmdAllOff.geometry().left(), bar().lblLink.geometry().right());
    EXPECT_EQ(bar().cmdAllOff.geometry().right(), 399);
}

TEST_F(AllOffBarTest, InAWideBarItStandsAtTheRightAndNoWiderThanItNeeds)
{
    connectInstrument();
    bar().setGeometry(0, 0, 1300, 60);
    QCoreApplication::processEvents();
    EXPECT_EQ(bar().cmdAllOff.geometry().right(), 1299);
    EXPECT_EQ(bar().cmdAllOff.width(), 160);
    EXPECT_LE(bar().lblLink.width(), 200);
    EXPECT_EQ(bar().lblLink.geometry().right() + 4, bar().cmdAllOff.x());
}

TEST_F(AllOffBarTest, BesideTheButtonItsTextsHaveTheirWholeWidth)
{
    connectInstrument();
    bar().setGeometry(0, 0, 165, 60);
    bar().display(true, QStringLiteral("Network"), {QStringLiteral("Last: 1, 2, 3 on"), Tone::Busy}, {});
    QCoreApplication::processEvents();
    EXPECT_GE(bar().lblInputs.width(), bar().lblInputs.fontMetrics().horizontalAdvance(bar().lblInputs.caption()));
    EXPECT_GT(bar().cmdAllOff.x(), bar().lblInputs.geometry().right());
    EXPECT_GE(bar().cmdAllOff.width(), bar().cmdAllOff.minimumSizeHint().width());
}

TEST_F(AllOffBarTest, InALargeFontItsTextsAreDrawnAsSmallAsTheirRoomNeeds)
{
    connectInstrument();
    QFont large = bar().font();
    large.setPointSize(14);
    bar().setFont(large);
    bar().setGeometry(0, 0, 182, 60);
    bar().display(true, QStringLiteral("Network"), {QStringLiteral("Last: 1, 2, 3 on"), Tone::Busy}, {});
    QCoreApplication::processEvents();
    EXPECT_GE(bar().lblInputs.width(), bar().lblInputs.fontMetrics().horizontalAdvance(bar().lblInputs.caption()));
    bar().setGeometry(0, 0, 400, 60);
    QCoreApplication::processEvents();
    EXPECT_GT(QFontInfo(bar().lblInputs.font()).pixelSize(), 12) << "and no smaller";
}

} // namespace orb
