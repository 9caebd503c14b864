// SPDX-License-Identifier: GPL-3.0-or-later
#include "channel_card.h"
#include "device_control_fixture.h"
#include "page_texts.h"
#include "simulated_instrument.h"
#include "status_label.h"

#include <QApplication>

namespace orb {

namespace {
using testing::Contains;

ChannelReadout readoutOf(double volts, bool loadOn, const char* tripped = "")
{
    ChannelReadout readout;
    readout.volts = volts;
    readout.loadOn = loadOn;
    readout.tripped = QString::fromLatin1(tripped);
    return readout;
}
} // namespace

class ControlPageTest : public DeviceControlTest {
protected:
    ControlPage& page() { return control->controlPage; }
    /// A card in one line.
    QString card(int index)
    {
        const ChannelCard& card = *page().cards.at(static_cast<std::size_t>(index));
        QStringList texts;
        for (const Label* label :
             {&card.lblNumber, &card.lblModule, &card.lblState, &card.lblVolts, &card.lblAmperes, &card.lblWatts})
            texts += label->caption();
        texts += {card.cmbMode.text(),    card.cmbRange.text(),     card.txtSetValue.text(),
                  card.lblUnit.caption(), card.lblLimits.caption(), card.lblNote.caption()};
        return texts.join(QStringLiteral(" | ")) + QStringLiteral(" | ") + card.cmdLoad.caption();
    }
    QByteArray answerTo(const QByteArray& query) const
    {
        if (query == "*OPT?")
            return "K11,K13,K14\n";
        if (query.startsWith(":FETC"))
            return "12.7193,499.95,5,;2.0000,-0.5,0,;25.4386,1924.1,12000,;1,0,0\n";
        if (query.startsWith(":MODE"))
            return "CCH;LOW;1;NONE;CV;HIGH;1;OV;CRL;LOW;2;NONE\n";
        if (query.contains("MIN"))
            return "0;20;0;500;0.05;8000\n";
        return query == ":CURR1:L1?;:VOLT2:L1?;:RES3:L2?" ? "2.0000;48.0000;4.7000\n" : "wrong query\n";
    }
};

TEST_F(ControlPageTest, TheTextsOfThePageAreThoseOfThisTable)
{
    control->ShowControlPage();
    EXPECT_EQ(textsOf(page()), R"(
Not connected. Choose the link and press Connect.
Go to the Connect page
)");
    actAsInstrument(2, [](const QByteArray& query) {
        return query.startsWith(":FETC") ? QByteArray("1,2;3,4;3,8;1,0\n") : QByteArray("K11,K12A\n");
    });
    connectScripted();
    control->ShowControlPage();
    clock.advance(1000);
    EXPECT_EQ(textsOf(page()), R"(
Channel 1
1
K11
ON
1.0000
V
3.0000
A
3.0000
W
[CC,CR,CV] | Mode. A change switches the input off first. | Mode, channel 1
[Low,High] | Range. A change switches the input off first. | Range, channel 1
Set value. Enter sends it, Escape takes an edit back; the arrow keys step the digit under the cursor. | Set value, channel 1
The lowest and the highest set value in this mode and range
LOAD OFF | LOAD OFF, channel 1
Channel 2
2
K12A
OFF
2.0000
V
4.0000
A
8.0000
W
[CC,CR,CV] | Mode. A change switches the input off first. | Mode, channel 2
[Low,High] | Range. A change switches the input off first. | Range, channel 2
Set value. Enter sends it, Escape takes an edit back; the arrow keys step the digit under the cursor. | Set value, channel 2
The lowest and the highest set value in this mode and range
LOAD ON | LOAD ON, channel 2
)");
}

TEST_F(ControlPageTest, WithoutALinkThePageLeadsToTheConnectPage)
{
    control->ShowControlPage();
    EXPECT_TRUE(page().cards.empty());
    EXPECT_TRUE(isReachable(page().cmdGoToConnect));
    EXPECT_EQ(page().lblNoLink.caption(), "Not connected. Choose the link and press Connect.");
    int timesNotified = 0;
    control->onConnectPage = [&] { ++timesNotified; };
    press(page().cmdGoToConnect);
    EXPECT_EQ(timesNotified, 1);
    EXPECT_TRUE(control->connectPage.isVisible());
    EXPECT_FALSE(page().isVisible());
}

TEST_F(ControlPageTest, EachChannelHasACard)
{
    actAsInstrument(3, [this](const QByteArray& query) { return answerTo(query); });
    connectScripted();
    clock.advance(100);
    control->ShowControlPage();
    clock.advance(1000);
    ASSERT_EQ(page().cards.size(), 3u);
    EXPECT_EQ(card(0),
              QString::fromUtf8(
                  "1 | K11 | ON | 12.7193 | 2.0000 | 25.4386 | CC | High | 2.0000 | A | 0\u202620 |  | LOAD OFF"));
    EXPECT_EQ(card(1),
              QString::fromUtf8("2 | K13 | OV | 499.950 | -0.5000 | 1924.10 | CV | High | 48.000 | V | 0\u2026500 | "
                                "Over voltage trip | LOAD ON"));
    EXPECT_EQ(card(2), QString::fromUtf8(
                           "3 | K14 | OFF | 5.0000 | 0.0000 | 12000 | CR | Low | 4.70 | \u03A9 | 0.05\u20268000 |  | "
                           "LOAD ON"));
    EXPECT_FALSE(isReachable(page().cmdGoToConnect));
}

TEST_F(ControlPageTest, EveryChannelOfTheSimulatedInstrumentIsShown)
{
    connectSimulated();
    control->ShowControlPage();
    clock.advance(1000);
    ASSERT_EQ(page().cards.size(), 6u);
    for (int i = 0; i < 6; ++i)
        EXPECT_FALSE(card(i).contains(QChar(0x2014))) << card(i).toStdString(); // nothing is unknown
}

TEST_F(ControlPageTest, UnknownValuesAreShownAsADash)
{
    actAsInstrument(2, [](const QByteArray&) { return QByteArray("1,2;nonsense;nan,inf\n"); });
    connectScripted();
    clock.advance(100);
    control->ShowControlPage();
    clock.advance(3000);
    EXPECT_EQ(card(1), QString::fromUtf8(
                           "2 | 2;nonsense;n\u2026 | \u2014 | \u2014 | \u2014 | \u2014 |  |  |  |  |  |  | LOAD OFF"));
}

TEST_F(ControlPageTest, ReadingsBecomeUnknownWhenTheInstrumentFallsSilent)
{
    actAsInstrument(3, [this](const QByteArray& query) { return answerTo(query); });
    connectScripted();
    clock.advance(100);
    control->ShowControlPage();
    clock.advance(1000);
    line.onLine = nullptr;
    clock.advance(10'000);
    EXPECT_TRUE(card(0).startsWith(QString::fromUtf8("1 | K11 | \u2014 | \u2014 | \u2014 | \u2014 |")))
        << card(0).toStdString();
}

TEST_F(ControlPageTest, TheCardsAreRemovedWhenTheLinkIsLost)
{
    actAsInstrument(3, [this](const QByteArray& query) { return answerTo(query); });
    connectScripted();
    clock.advance(100);
    control->ShowControlPage();
    clock.advance(1000);
    line.close();
    clock.advance(100);
    EXPECT_TRUE(page().cards.empty());
    EXPECT_EQ(page().lblNoLink.caption(), "load closed the link.");
    EXPECT_EQ(control->lblLink.caption(), "Not connected: the link was lost");
}

TEST_F(ControlPageTest, ThePagePollsWithOneQueryAtATime)
{
    int open = 0;
    connectInstrument();
    line.onLine = [&](const QByteArray& text) {
        if (!isQuery(text))
            return;
        EXPECT_EQ(open, 0) << text.toStdString();
        ++open;
        line.say(text == "*OPT?" ? "K11,K12B,K13\n" : "1,2,3,;4,5,6,;7,8,9,;1,0,0\n", 120);
        clock.at(clock.elapsed() + 120, [&] { --open; });
    };
    control->ShowControlPage();
    clock.advance(5000);
    EXPECT_THAT(line.sent, Contains(":FETC:ALLV?;:FETC:ALLC?;:FETC:ALLP?;:LOAD:ALL?").Times(testing::Ge(5)));
    EXPECT_EQ(page().cards.at(1)->lblAmperes.caption(), "5.0000");
}

TEST_F(ControlPageTest, TheReadingsStayWhenThePageComesBack)
{
    connectInstrument([this](const QByteArray& query) { return answerTo(query); });
    control->ShowControlPage();
    clock.advance(1000);
    line.onLine = nullptr;
    clock.advance(600);          // a query is sent that gets no answer
    control->PanelActive(false); // while it is awaited
    clock.advance(10'000);
    control->ShowControlPage();
    clock.advance(100);
    EXPECT_EQ(page().cards.at(0)->lblVolts.caption(), "12.7193");
}

TEST_F(ControlPageTest, ASwitchedInputIsPolledAtOnce)
{
    connectInstrument([this](const QByteArray& query) { return answerTo(query); });
    control->ShowControlPage();
    clock.advance(1500);
    for (PictureButton* button :
         std::initializer_list<PictureButton*>{&page().cards.at(0)->cmdLoad, &control->allOffBar.cmdAllOff}) {
        line.sent.clear();
        press(*button);
        clock.advance(50);
        EXPECT_THAT(line.sent, Contains(":FETC:ALLV?;:FETC:ALLC?;:FETC:ALLP?;:LOAD:ALL?"));
        clock.advance(250); // the round ends, and the next one is not due yet
    }
}

TEST_F(ControlPageTest, ATickReadsTheLinkOnceHoweverMuchArrives)
{
    connectInstrument([this](const QByteArray& query) { return answerTo(query); });
    control->ShowControlPage();
    clock.advance(1000);
    faults.floods = true;
    EXPECT_TRUE(control->IsConnected());
    const qint64 bytesOfOneRead = faults.bytesRead;
    faults.bytesRead = 0;
    clock.advance(50);
    EXPECT_GT(faults.bytesRead, 0);
    EXPECT_LE(faults.bytesRead, bytesOfOneRead);
}

TEST_F(ControlPageTest, TheCardsFitTheDesignSizeFromTheirFirstPainting)
{
    for (const int channels : {1, 6, 8}) {
        control->ShowConnectPage();
        SimulatedInstrument instrument(defaultConfiguration(channels));
        actAsInstrument(channels, [&](const QByteArray& query) {
            return QByteArray::fromStdString(instrument.execute(query.toStdString())) + '\n';
        });
        press(control->connectPage.cmdDisconnect);
        connectScripted();
        clock.advance(200);
        QApplication::processEvents();
        control->grab(); // the other page was painted before
        control->ShowControlPage();
        clock.advance(1000);
        QApplication::processEvents();
        ASSERT_EQ(page().cards.size(), static_cast<std::size_t>(channels));
        for (const auto& card : page().cards) {
            EXPECT_TRUE(control->rect().contains(QRect(card->mapTo(&*control, QPoint(0, 0)), card->size())));
            for (const Label* reading : {&card->lblVolts, &card->lblAmperes, &card->lblWatts})
                EXPECT_LE(reading->fontMetrics().horizontalAdvance(QStringLiteral("-00.0000")), reading->width());
            for (const QWidget* text : std::initializer_list<const QWidget*>{
                     &card->lblNumber, &card->lblModule, &card->lblState, &card->lblUnit, &card->lblLimits}) {
                EXPECT_LE(text->sizeHint().width(), text->width()) << channels;
                EXPECT_LE(text->sizeHint().height(), text->height()) << channels;
            }
            EXPECT_LE(card->cmdLoad.sizeHint().width(), card->cmdLoad.width());
        }
    }
}

TEST_F(ControlPageTest, TheReadingsOfALoadedInputStandOutOnALightAndOnADarkCard)
{
    for (const QColor& base : {QColor(Qt::white), QColor(30, 30, 32)}) {
        ChannelCard card(1);
        QPalette colors(base);
        colors.setColor(QPalette::Base, base);
        card.setPalette(colors);
        const auto distance = [&] {
            return std::abs(card.lblVolts.palette().color(QPalette::WindowText).lightness() - base.lightness());
        };
        card.display(readoutOf(1, true), {});
        EXPECT_GT(distance(), 100);
        const QColor loaded = card.lblVolts.palette().color(QPalette::WindowText);
        card.display(readoutOf(1, false), {});
        EXPECT_GT(distance(), 100);
        EXPECT_NE(card.lblVolts.palette().color(QPalette::WindowText), loaded);
    }
}

TEST_F(ControlPageTest, TheStateOfAnInputHasItsColor)
{
    const auto ground = [](const ChannelReadout& readout) {
        ChannelCard card(1);
        card.display(readout, {});
        return card.lblState.palette().color(QPalette::Window);
    };
    EXPECT_EQ(ground({}), toneColor(Tone::Neutral));
    EXPECT_EQ(ground(readoutOf(1, false)), toneColor(Tone::Neutral));
    EXPECT_EQ(ground(readoutOf(1, true)), toneColor(Tone::Good));
    EXPECT_EQ(ground(readoutOf(1, true, "OV")), toneColor(Tone::Bad));
}

TEST_F(ControlPageTest, AReadingHasSevenCharactersAtMost)
{
    ChannelCard card(1);
    const auto shown = [&](double volts) {
        card.display(readoutOf(volts, true), {});
        return card.lblVolts.caption().toStdString();
    };
    EXPECT_EQ(shown(99.9999), "99.9999");
    EXPECT_EQ(shown(100), "100.000");
    EXPECT_EQ(shown(-999.5), "-999.500");
    EXPECT_EQ(shown(1000), "1000.00");
    EXPECT_EQ(shown(9999.99), "9999.99");
    EXPECT_EQ(shown(10'000), "10000");
}

TEST_F(ControlPageTest, TheCardsFillThePageAtEveryNumber)
{
    ChannelPoll poll(clock);
    ChannelChanges changes(clock, poll);
    const int inFirstRow[] = {1, 2, 3, 2, 3, 3, 4, 4};
    for (int channels = 1; channels <= 8; ++channels) {
        changes.restart(channels);
        page().display(ChannelReadouts(static_cast<std::size_t>(channels)), changes, {});
        control->ShowControlPage();
        QApplication::processEvents();
        int first = 0;
        int area = 0;
        QRect all;
        for (const auto& card : page().cards) {
            first += card->y() == page().cards.front()->y() ? 1 : 0;
            area += card->width() * card->height();
            all |= card->geometry();
            EXPECT_NEAR(card->height(), page().cards.front()->height(), 1) << channels;
        }
        EXPECT_EQ(first, inFirstRow[channels - 1]) << channels;
        EXPECT_EQ(all, page().rect()) << channels;
        EXPECT_GT(area, page().width() * page().height() * 95 / 100) << channels << " leave a hole";
    }
}

} // namespace orb
