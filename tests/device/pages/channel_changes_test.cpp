// SPDX-License-Identifier: GPL-3.0-or-later
#include "channel_card.h"
#include "device_control_fixture.h"
#include "simulated_instrument.h"

#include <QApplication>

namespace orb {

namespace {
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

/// One line for what the operator reads of a setting.
std::string settingsOf(const ChannelCard& card)
{
    return QStringList{card.cmbMode.text(),    card.cmbRange.text(),     card.txtSetValue.text(),
                       card.lblUnit.caption(), card.lblLimits.caption(), card.lblNote.caption()}
        .join(QStringLiteral(" | "))
        .toStdString();
}
} // namespace

/// Changes on the Control page, against the simulated instrument with three channels of the module K11 on a line that
/// the test listens to.
class ChannelChangesTest : public DeviceControlTest {
protected:
    ChannelChangesTest() : instrument(threeChannels(), [this] { return std::chrono::milliseconds(clock.elapsed()); })
    {
        connectInstrument([this](const QByteArray& text) { return answerTo(text); });
        control->ShowControlPage();
        clock.advance(400);
        line.sent.clear();
    }

    static SimulatorConfiguration threeChannels()
    {
        SimulatorConfiguration configuration = defaultConfiguration(3);
        for (auto& channel : configuration.channels) {
            channel.module = "K11";
            channel.function = LoadFunction::Current;
            channel.range = LoadRange::High;
            channel.setValue = 0;
        }
        return configuration;
    }

    QByteArray answerTo(const QByteArray& text)
    {
        const QByteArray answer = QByteArray::fromStdString(instrument.execute(text.toStdString()));
        return answer.isEmpty() ? answer : answer + '\n';
    }
    ChannelCard& card(std::size_t channel = 1) { return *control->controlPage.cards.at(channel - 1); }
    std::string settings(std::size_t channel = 1) { return settingsOf(card(channel)); }
    std::string note() { return card().lblNote.caption().toStdString(); }

    /// What was sent and is no query.
    QList<QByteArray> commands() const
    {
        QList<QByteArray> lines = line.sent;
        lines.removeIf([](const QByteArray& text) { return isQuery(text); });
        return lines;
    }
    void key(int key, const QString& text = {})
    {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, text);
        QApplication::sendEvent(&card().txtSetValue, &event);
    }
    void type(const char* text)
    {
        card().txtSetValue.setFocus();
        card().txtSetValue.selectAll();
        for (const char* each = text; *each != '\0'; ++each)
            key(Qt::Key_unknown, QString(QLatin1Char(*each)));
    }

    SimulatedInstrument instrument;
};

TEST_F(ChannelChangesTest, ASetValueIsSentAtEnterAndReadBack)
{
    EXPECT_EQ(settings(), "CC | High | 0.0000 | A | 0…20 | ");
    type("2.5");
    clock.advance(1000);
    EXPECT_EQ(settings(), "CC | High | 2.5 | A | 0…20 | Enter sends it");
    EXPECT_THAT(commands(), IsEmpty());
    key(Qt::Key_Return);
    EXPECT_EQ(settings(), "CC | High | 2.5000 | A | 0…20 | Sent");
    clock.advance(300);
    EXPECT_EQ(settings(), "CC | High | 2.5000 | A | 0…20 | Read back");
    EXPECT_THAT(commands(), ElementsAre(":CURR1:L1 2.5"));
    clock.advance(ChannelChanges::shownMs);
    EXPECT_EQ(settings(), "CC | High | 2.5000 | A | 0…20 | ");
}

TEST_F(ChannelChangesTest, TheSetValueIsThatOfTheChannelAndTheLevelInForce)
{
    instrument.execute(":MODE1 CV;:LEV1 2");
    clock.advance(1000);
    type("12");
    key(Qt::Key_Enter);
    clock.advance(300);
    EXPECT_THAT(commands(), ElementsAre(":VOLT1:L2 12"));
    EXPECT_EQ(note(), "Read back");
}

TEST_F(ChannelChangesTest, AValueThatTheInstrumentDoesNotTakeIsReportedAndItsOwnIsShown)
{
    line.onLine = [this](const QByteArray& text) {
        if (isQuery(text))
            line.say(answerTo(text));
    };
    type("3");
    key(Qt::Key_Return);
    clock.advance(300);
    EXPECT_EQ(settings(), "CC | High | 0.0000 | A | 0…20 | Not taken");
}

TEST_F(ChannelChangesTest, AChangeThatIsNotReadBackSaysSo)
{
    line.onLine = nullptr;
    type("3");
    key(Qt::Key_Return);
    clock.advance(ChannelChanges::readBackLimitMs - 100);
    EXPECT_EQ(note(), "Sent");
    clock.advance(200);
    EXPECT_EQ(note(), "Not read back");
}

TEST_F(ChannelChangesTest, AnAnswerThatWasUnderWayIsNoReadBack)
{
    line.onLine = [this](const QByteArray& text) {
        const QByteArray answer = answerTo(text); // of the moment of the query
        if (!answer.isEmpty())
            line.say(answer, 150);
    };
    while (line.sent.isEmpty() || !line.sent.back().startsWith(":CURR1:L1?"))
        clock.advance(10);
    type("3");
    key(Qt::Key_Return);
    clock.advance(200);
    EXPECT_EQ(note(), "Sent") << "its answer is from before the command";
    clock.advance(1000);
    EXPECT_EQ(note(), "Read back");
}

TEST_F(ChannelChangesTest, AChangeOfTheModeSwitchesTheLoadOffFirst)
{
    instrument.execute(":CURR1 1;:LOAD1 ON");
    clock.advance(1000);
    ASSERT_EQ(card().lblState.caption(), "ON");
    std::string inputAtChange;
    line.onLine = [&](const QByteArray& text) {
        if (text == ":MODE1 CR")
            inputAtChange = instrument.execute(":LOAD1?");
        line.say(answerTo(text));
    };
    pick(card().cmbMode, QStringLiteral("CR"));
    EXPECT_EQ(settings(), "CR | High | 1.0000 | A | 0…20 | Pending: load off");
    EXPECT_THAT(commands(), ElementsAre(":LOAD1 OFF"));
    clock.advance(1000);
    EXPECT_THAT(commands(), ElementsAre(":LOAD1 OFF", ":MODE1 CR"));
    EXPECT_EQ(inputAtChange, "0");
    EXPECT_EQ(settings(), "CR | High | 8000.00 | Ω | 2…8000 | Read back");
    clock.advance(60'000);
    EXPECT_THAT(commands(), ElementsAre(":LOAD1 OFF", ":MODE1 CR")) << "the load stays off";
}

TEST_F(ChannelChangesTest, AChangeOfTheRangeSwitchesTheLoadOffFirst)
{
    pick(card(2).cmbRange, QStringLiteral("Low"));
    clock.advance(1000);
    EXPECT_THAT(commands(), ElementsAre(":LOAD2 OFF", ":MODE2 CCL"));
    EXPECT_EQ(settings(2), "CC | Low | 0.0000 | A | 0…2 | Read back");
    instrument.execute(":MODE3 CV");
    clock.advance(1000);
    line.sent.clear();
    pick(card(3).cmbRange, QStringLiteral("Low"));
    clock.advance(1000);
    EXPECT_THAT(commands(), ElementsAre(":LOAD3 OFF", ":VOLT3:RANG LOW"));
    EXPECT_EQ(card(3).lblLimits.caption(), "0…16");
}

TEST_F(ChannelChangesTest, AnInputThatDoesNotGoOffKeepsItsMode)
{
    instrument.execute(":CURR1 1;:LOAD1 ON");
    clock.advance(1000);
    line.onLine = [&](const QByteArray& text) {
        if (text != ":LOAD1 OFF")
            line.say(answerTo(text));
    };
    line.sent.clear();
    pick(card().cmbMode, QStringLiteral("CV"));
    clock.advance(ChannelChanges::offLimitMs - 100);
    EXPECT_EQ(note(), "Pending: load off");
    clock.advance(200);
    EXPECT_EQ(note(), "Not sent: not off");
    EXPECT_EQ(card().cmbMode.text(), "CC");
    clock.advance(10'000);
    EXPECT_THAT(commands(), ElementsAre(":LOAD1 OFF"));
}

TEST_F(ChannelChangesTest, WhatIsPendingIsNotSentAfterThePageWasLeft)
{
    const std::vector<std::function<void()>> leave{[this] { control->PanelActive(false); },
                                                   [this] { control->ShowConnectPage(); },
                                                   [this] { control->setVisible(false); }};
    for (const auto& leaving : leave) {
        pick(card().cmbMode, QStringLiteral("CV"));
        ASSERT_EQ(note(), "Pending: load off");
        line.sent.clear();
        leaving();
        clock.advance(60'000);
        EXPECT_THAT(line.sent, IsEmpty());
        control->setVisible(true);
        control->ShowControlPage();
        clock.advance(1000);
        EXPECT_THAT(commands(), IsEmpty());
        EXPECT_EQ(card().cmbMode.text(), "CC");
    }
}

TEST_F(ChannelChangesTest, WhileTheLoadGoesOffOnlyLoadOffCanBePressed)
{
    pick(card().cmbMode, QStringLiteral("CV"));
    EXPECT_FALSE(card().cmbMode.enabled());
    EXPECT_FALSE(card().cmbRange.enabled());
    EXPECT_TRUE(card().txtSetValue.isReadOnly());
    EXPECT_EQ(card().cmdLoad.caption(), "LOAD OFF");
    press(card().cmdLoad);
    clock.advance(1000);
    EXPECT_THAT(commands(), ElementsAre(":LOAD1 OFF", ":LOAD1 OFF", ":MODE1 CV"));
    EXPECT_TRUE(card().cmbMode.enabled());
    EXPECT_FALSE(card().txtSetValue.isReadOnly());
    EXPECT_EQ(card().cmdLoad.caption(), "LOAD ON");
}

TEST_F(ChannelChangesTest, TheModeThatIsInForceIsNotSentAgain)
{
    pick(card().cmbMode, QStringLiteral("CC"));
    pick(card().cmbRange, QStringLiteral("High"));
    clock.advance(1000);
    EXPECT_THAT(commands(), IsEmpty());
}

TEST_F(ChannelChangesTest, ALoadThatIsSwitchedIsReadBack)
{
    press(card().cmdLoad);
    EXPECT_EQ(note(), "Sent");
    clock.advance(300);
    EXPECT_EQ(note(), "Read back");
    EXPECT_EQ(card().lblState.caption(), "ON");
    EXPECT_EQ(card().cmdLoad.caption(), "LOAD OFF");
    EXPECT_THAT(commands(), ElementsAre(":LOAD1 ON"));
}

TEST_F(ChannelChangesTest, ALinkThatDoesNotTakeTheLineSaysSo)
{
    faults.refusesWrites = true;
    type("3");
    key(Qt::Key_Return);
    EXPECT_EQ(note(), "Not sent");
}

TEST_F(ChannelChangesTest, AHeldEnterSwitchesALoadOnce)
{
    QKeyEvent first(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QStringLiteral("\r"));
    QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QStringLiteral("\r"), true);
    QApplication::sendEvent(&card().cmdLoad, &first);
    for (int i = 0; i < 20; ++i) {
        QApplication::sendEvent(&card().cmdLoad, &held);
        clock.advance(100);
    }
    EXPECT_THAT(commands(), ElementsAre(":LOAD1 ON"));
}

TEST_F(ChannelChangesTest, NoLoadIsSwitchedOnByAReconnect)
{
    press(card().cmdLoad);
    clock.advance(300);
    instrument.execute(":LOAD1 OFF");
    line.sent.clear();
    control->Reconnect();
    control->ShowControlPage();
    clock.advance(60'000);
    EXPECT_THAT(commands(), IsEmpty());
    EXPECT_EQ(note(), "");
}

TEST_F(ChannelChangesTest, ATripIsShownByItsName)
{
    instrument.execute(":LOAD1:PROT:VOLT 1;:LOAD1 ON");
    clock.advance(2000);
    EXPECT_EQ(card().lblState.caption(), "OV");
    EXPECT_EQ(note(), "Over voltage trip");
    EXPECT_EQ(card().cmdLoad.caption(), "LOAD ON");
}

} // namespace orb
