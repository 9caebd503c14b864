// SPDX-License-Identifier: GPL-3.0-or-later
#include "device_test.h"
#include "simulated_instrument.h"

#include <QApplication>
#include <QFile>
#include <QKeyEvent>
#include <QLineEdit>

namespace orb {

namespace {

QString itemsOf(const ComboBox& combo)
{
    QStringList items;
    for (int i = 0; i < combo.listCount(); ++i)
        items += combo.list(i);
    return items.join(QLatin1Char('|'));
}

void pressKey(QWidget& widget, Qt::Key key, const QString& text = {})
{
    QKeyEvent down(QEvent::KeyPress, key, Qt::NoModifier, text);
    QApplication::sendEvent(&widget, &down);
}

} // namespace

class ConnectPageTest : public DeviceTest {
protected:
    ConnectPageTest() { control->ShowConnectPage(); }

    ConnectPage& page() { return control->connectPage; }
    /// "Connect Cancel Disconnect", those that the operator can press.
    QString offered()
    {
        QStringList names;
        for (const PictureButton* button : {&page().cmdConnect, &page().cmdCancel, &page().cmdDisconnect})
            if (isReachable(*button))
                names += button->caption();
        return names.join(QLatin1Char(' '));
    }
};

TEST_F(ConnectPageTest, ChoosesTheSimulatedInstrumentOnAFirstStart)
{
    EXPECT_EQ(page().cmbKind.text(), "Simulated instrument");
    EXPECT_FALSE(page().cmbAddress.enabled());
    EXPECT_EQ(status(), "Not connected. Choose the link and press Connect.");
    EXPECT_EQ(offered(), "Connect");
}

TEST_F(ConnectPageTest, ShowsTheInstrument)
{
    press(page().cmdConnect);
    EXPECT_EQ(status(), "Connected to the simulated instrument.");
    EXPECT_EQ(control->lblLink.caption(), "ZN ORB3000, 6 channels");
    EXPECT_EQ(page().lblMaker.caption(), "ZN");
    EXPECT_EQ(page().lblModel.caption(), "ORB3000");
    EXPECT_EQ(page().lblSerialNumber.caption(), "SIM0001");
    EXPECT_EQ(page().lblFirmware.caption(), "1.0");
    EXPECT_EQ(page().lblChannels.caption(), "6");
    EXPECT_EQ(page().lblResource.caption(), "SIM::INSTR");
    EXPECT_EQ(offered(), "Disconnect");

    press(page().cmdDisconnect);
    EXPECT_FALSE(control->IsConnected());
    EXPECT_EQ(status(), "Disconnected.");
    EXPECT_EQ(page().lblMaker.caption(), "");
    EXPECT_EQ(page().lblChannels.caption(), "");
    EXPECT_EQ(offered(), "Connect");
}

TEST_F(ConnectPageTest, CanBeCancelledWhileItConnects)
{
    line.opensAfter = std::nullopt;
    connectScripted();
    clock.advance(1000);
    EXPECT_EQ(status(), "Connecting to load...");
    EXPECT_EQ(offered(), "Cancel");
    EXPECT_FALSE(isReachable(page().cmbKind));
    EXPECT_FALSE(isReachable(page().cmbAddress));
    press(page().cmdCancel);
    EXPECT_EQ(status(), "Connecting was cancelled.");
    EXPECT_EQ(offered(), "Connect");
    clock.advance(60'000);
    EXPECT_EQ(status(), "Connecting was cancelled.");
}

TEST_F(ConnectPageTest, CanBeCancelledWhileAPeerKeepsSilent)
{
    connectScripted();
    clock.advance(1000);
    EXPECT_EQ(status(), "load took the connection. Asking what it is...");
    press(page().cmdCancel);
    EXPECT_EQ(status(), "Connecting was cancelled.");
    clock.advance(60'000);
    EXPECT_EQ(offered(), "Connect");
}

TEST_F(ConnectPageTest, ConnectsAtEnterInTheAddressField)
{
    actAsInstrument(2);
    pick(page().cmbKind, QStringLiteral("Scripted"));
    page().cmbAddress.setText(QStringLiteral("load"));
    pressKey(*page().cmbAddress.lineEdit(), Qt::Key_Return, QStringLiteral("\r"));
    clock.advance(100);
    EXPECT_TRUE(control->IsConnected());
}

TEST_F(ConnectPageTest, RefusesAnAddressThatIsNoneInWords)
{
    pick(page().cmbKind, QStringLiteral("Scripted"));
    press(page().cmdConnect);
    EXPECT_EQ(status(), "An address is missing. Type where the instrument is.");
    page().cmbAddress.setText(QStringLiteral("two words"));
    press(page().cmdConnect);
    EXPECT_EQ(status(), "\"two words\" is no address of this kind of link.");
    EXPECT_EQ(line.openings, 0);
    clock.advance(1000);
    EXPECT_EQ(status(), "\"two words\" is no address of this kind of link.");
    line.openError = LinkError::HostNotFound;
    page().cmbAddress.setText(QStringLiteral("load"));
    press(page().cmdConnect);
    EXPECT_EQ(status(), "load was not found: no host has this name. Check it, or give the address in numbers.");
}

TEST_F(ConnectPageTest, RemembersTheLinksThatCameUp)
{
    actAsInstrument(2);
    for (const char* name : {"one", "two", "one", "three"}) {
        connectScripted(QString::fromLatin1(name));
        clock.advance(100);
        ASSERT_TRUE(control->IsConnected());
        press(page().cmdDisconnect);
    }
    line.openError = LinkError::Refused;
    connectScripted(QStringLiteral("wrong"));
    EXPECT_EQ(itemsOf(page().cmbAddress), "three|one|two");
    EXPECT_EQ(page().cmbAddress.text(), "wrong");

    control.reset();
    start();
    control->ShowConnectPage();
    EXPECT_EQ(page().cmbKind.text(), "Scripted");
    EXPECT_EQ(page().cmbAddress.text(), "three");
    EXPECT_EQ(itemsOf(page().cmbAddress), "three|one|two");
    EXPECT_FALSE(control->IsConnected());
}

TEST_F(ConnectPageTest, OffersEachKindItsOwnAddresses)
{
    actAsInstrument(2);
    connectScripted(QStringLiteral("one"));
    clock.advance(100);
    press(page().cmdDisconnect);
    pick(page().cmbKind, QStringLiteral("Simulated instrument"));
    EXPECT_EQ(itemsOf(page().cmbAddress), "");
    EXPECT_EQ(page().cmbAddress.text(), "");
    pick(page().cmbKind, QStringLiteral("Scripted"));
    EXPECT_EQ(page().cmbAddress.text(), "one");
}

TEST_F(ConnectPageTest, StartsAsOnAFirstDayWhereTheSettingsAreGarbage)
{
    control.reset();
    QFile file(settings.filePath(QStringLiteral("link.ini")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("[link]\nlast=ASRL/dev/ttyS9::INSTR\nrecent=, , <b>x</b>, SCRIPT::ok, \"\\x1\\x2\"\n");
    file.close();
    start();
    control->ShowConnectPage();
    EXPECT_EQ(page().cmbKind.text(), "Simulated instrument");
    pick(page().cmbKind, QStringLiteral("Scripted"));
    EXPECT_EQ(itemsOf(page().cmbAddress), "ok");
}

TEST_F(ConnectPageTest, DoesNotEndWithASecondEnterWhatTheFirstBegan)
{
    page().cmdConnect.setFocus();
    pressKey(*form.focusWidget(), Qt::Key_Return);
    ASSERT_TRUE(control->IsConnected());
    ASSERT_NE(form.focusWidget(), nullptr);
    pressKey(*form.focusWidget(), Qt::Key_Return);
    EXPECT_TRUE(control->IsConnected());
}

TEST_F(ConnectPageTest, LeavesNoButtonInTheWayOfAStrayKeyWhenThePageChanges)
{
    press(page().cmdConnect);
    page().cmdDisconnect.setFocus();
    control->ShowControlPage();
    EXPECT_EQ(form.focusWidget(), &*control);
    control->ShowConnectPage();
    EXPECT_EQ(form.focusWidget(), &*control);
    press(page().cmdDisconnect);
    control->ShowConnectPage();
    EXPECT_EQ(form.focusWidget(), &page().cmdConnect); // Enter connects
}

TEST_F(ConnectPageTest, IsWorkedThroughWithTheTabKeyFromTopToBottom)
{
    pick(page().cmbKind, QStringLiteral("Scripted"));
    std::vector<QWidget*> visited;
    QWidget* widget = &page().cmbKind;
    for (int i = 0; i < 4; ++i) {
        visited.push_back(widget);
        do {
            widget = widget->nextInFocusChain();
        } while (!isReachable(*widget) || !(widget->focusPolicy() & Qt::TabFocus) || widget->focusProxy() != nullptr);
    }
    EXPECT_EQ(visited,
              (std::vector<QWidget*>{&page().cmbKind, &page().cmbAddress, &page().cmdConnect, &control->cmdAllOff}));
}

TEST_F(ConnectPageTest, KeepsAPeersWordsPlain)
{
    line.onLine = [this](const QByteArray&) { line.say("<b>bold</b><img src=x>\n"); };
    connectScripted();
    clock.advance(2500);
    EXPECT_EQ(page().lblStatus.textFormat(), Qt::PlainText);
    EXPECT_EQ(status(), "load answered, but not as an instrument does. It said: \"<b>bold</b><img src=x>\"");
}

// The page of the instrument.

class ControlPageTest : public DeviceTest {
protected:
    ControlPage& page() { return control->controlPage; }
    /// A card in one line.
    QString card(int index)
    {
        const ChannelCard& card = *page().cards.at(static_cast<std::size_t>(index));
        QStringList texts;
        for (const Label* label : {&card.lblNumber, &card.lblModule, &card.lblState, &card.lblVolts, &card.lblAmperes,
                                   &card.lblWatts, &card.lblMode, &card.lblSetValue})
            texts += label->caption();
        return texts.join(QStringLiteral(" | ")) + QStringLiteral(" | ") + card.cmdLoad.caption();
    }
    QByteArray answerTo(const QByteArray& query) const
    {
        if (query == "*OPT?")
            return "K11,K13,K14\n";
        if (query.startsWith(":FETC"))
            return "12.7193,499.95,5,;2.0000,-0.5,0,;25.4386,1924.1,12000,;1,0,0\n";
        if (query.startsWith(":MODE"))
            return "CCH;1;NONE;CV;1;OV;CRL;2;NONE\n";
        return query == ":CURR1:L1?;:VOLT2:L1?;:RES3:L2?" ? "2.0000;48.0000;4.7000\n" : "wrong query\n";
    }
};

TEST_F(ControlPageTest, LeadsToTheConnectPageWithoutALink)
{
    control->ShowControlPage();
    EXPECT_TRUE(page().cards.empty());
    EXPECT_TRUE(isReachable(page().cmdGoToConnect));
    EXPECT_EQ(page().lblNoLink.caption(), "Not connected. Choose the link and press Connect.");
    press(page().cmdGoToConnect);
    EXPECT_TRUE(control->connectPage.isVisible());
    EXPECT_FALSE(page().isVisible());
}

TEST_F(ControlPageTest, ShowsACardForEachChannel)
{
    actAsInstrument(3, [this](const QByteArray& query) { return answerTo(query); });
    connectScripted();
    clock.advance(100);
    control->ShowControlPage();
    clock.advance(1000);
    ASSERT_EQ(page().cards.size(), 3u);
    EXPECT_EQ(card(0), "1 | K11 | ON | 12.7193 | 2.0000 | 25.4386 | Mode CC High | Set 2 A | LOAD OFF");
    EXPECT_EQ(card(1), "2 | K13 | OV | 499.950 | -0.5000 | 1924.10 | Mode CV | Set 48 V | LOAD ON");
    EXPECT_EQ(card(2),
              QString::fromUtf8("3 | K14 | OFF | 5.0000 | 0.0000 | 12000 | Mode CR Low | Set 4.7 \u03A9 | LOAD ON"));
    EXPECT_FALSE(isReachable(page().cmdGoToConnect));
}

TEST_F(ControlPageTest, ShowsAllChannelsOfTheSimulatedInstrument)
{
    connectSimulated();
    control->ShowControlPage();
    clock.advance(1000);
    ASSERT_EQ(page().cards.size(), 6u);
    for (int i = 0; i < 6; ++i)
        EXPECT_FALSE(card(i).contains(QChar(0x2014))) << card(i).toStdString(); // nothing is unknown
}

TEST_F(ControlPageTest, ShowsWhatItDoesNotKnowAsADash)
{
    actAsInstrument(2, [](const QByteArray&) { return QByteArray("1,2;nonsense;nan,inf\n"); });
    connectScripted();
    clock.advance(100);
    control->ShowControlPage();
    clock.advance(3000);
    EXPECT_EQ(card(1),
              QString::fromUtf8(
                  "2 | 2;nonsense;n\u2026 | \u2014 | \u2014 | \u2014 | \u2014 | Mode \u2014 | Set \u2014 | LOAD OFF"));
}

TEST_F(ControlPageTest, ShowsTheReadingsAsUnknownWhenTheInstrumentFallsSilent)
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

TEST_F(ControlPageTest, TakesTheCardsAwayWhenTheLinkIsLost)
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

TEST_F(ControlPageTest, HoldsEightChannelsInItsDesignSize)
{
    SimulatedInstrument instrument(defaultConfiguration(8));
    actAsInstrument(8, [&](const QByteArray& query) {
        return QByteArray::fromStdString(instrument.execute(query.toStdString())) + '\n';
    });
    connectScripted();
    control->ShowControlPage();
    clock.advance(1000);
    QApplication::processEvents();
    ASSERT_EQ(page().cards.size(), 8u);
    const QRect room = control->rect();
    for (const auto& each : page().cards) {
        EXPECT_TRUE(room.contains(QRect(each->mapTo(&*control, QPoint(0, 0)), each->size())));
        for (const Label* reading : {&each->lblVolts, &each->lblAmperes, &each->lblWatts})
            EXPECT_LE(reading->fontMetrics().horizontalAdvance(QStringLiteral("-00.0000")), reading->width());
        EXPECT_LE(each->cmdLoad.sizeHint().width(), each->cmdLoad.width());
        EXPECT_LE(each->lblMode.sizeHint().width(), each->lblMode.width());
    }
}

} // namespace orb
