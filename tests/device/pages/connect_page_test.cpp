// SPDX-License-Identifier: GPL-3.0-or-later
#include "device_control_fixture.h"
#include "page_texts.h"
#include "text_box.h"

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

class ConnectPageTest : public DeviceControlTest {
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

TEST_F(ConnectPageTest, ANoticeStandsUnderTheStateOfTheLinkAndOutlivesAConnection)
{
    EXPECT_FALSE(page().lblNotice.visible());

    page().showNotice(QStringLiteral("3 rows are in /tmp/rows.csv"));
    EXPECT_TRUE(page().lblNotice.visible());
    press(page().cmdConnect);
    EXPECT_EQ(page().lblNotice.caption(), "3 rows are in /tmp/rows.csv");
    EXPECT_TRUE(page().lblNotice.visible());
    EXPECT_TRUE(page().lblNotice.textInteractionFlags() & Qt::TextSelectableByMouse);

    page().showNotice({});
    EXPECT_FALSE(page().lblNotice.visible());
}

TEST_F(ConnectPageTest, TheTextsOfThePageAreThoseOfThisTable)
{
    pick(page().cmbKind, QStringLiteral("Scripted"));
    EXPECT_EQ(textsOf(page()), R"(
Kind of &link
[Simulated instrument,Scripted]
&Address
[]
For example anything
Connect
Cancel | End the attempt (Esc)
Disconnect
Not connected. Choose the link and press Connect.
Instrument
Maker
Model
Serial number
Firmware
Load channels
Resource name
)");
    pick(page().cmbKind, QStringLiteral("Simulated instrument"));
    EXPECT_EQ(textsOf(page()), R"(
Kind of &link
[Simulated instrument,Scripted]
&Address
[needs no address]
Runs inside this program: nothing to plug in.
Connect
Cancel | End the attempt (Esc)
Disconnect
Not connected. Choose the link and press Connect.
Instrument
Maker
Model
Serial number
Firmware
Load channels
Resource name
)");
}

/// Beside the other kinds one whose line has settings, and which finds two addresses on this machine.
class ConnectPageOptionsTest : public ConnectPageTest {
protected:
    ConnectPageOptionsTest()
    {
        LinkKind kind = kinds.back();
        kind.title = QStringLiteral("Line");
        kind.resourceName = [](const QString& typed) -> std::optional<QString> {
            if (typed.startsWith(QStringLiteral("LINE::")))
                return typed;
            return typed.isEmpty() ? std::nullopt : std::optional(QStringLiteral("LINE::") + typed);
        };
        kind.typed = kind.remoteName = [](const QString& name) { return name.mid(6); };
        kind.options = {{QStringLiteral("Baud rate"), {QStringLiteral("1200"), QStringLiteral("9600")}, 1},
                        {QStringLiteral("Parity"), {QStringLiteral("None"), QStringLiteral("Even")}, 0}};
        kind.found = [] { return QStringList{QStringLiteral("tty1"), QStringLiteral("tty2")}; };
        const auto open = kind.transport;
        kind.transport = [this, open](const QString& name, const QStringList& choices) {
            opened += name + QLatin1Char(' ') + choices.join(QLatin1Char(','));
            return open(name, choices);
        };
        kinds.push_back(kind);
        actAsInstrument(3);
        start();
        control->ShowConnectPage();
        pick(page().cmbKind, QStringLiteral("Line"));
    }

    void connectTo(const QString& address)
    {
        page().cmbAddress.setText(address);
        press(page().cmdConnect);
        clock.advance(1000);
        ASSERT_TRUE(control->IsConnected());
        press(page().cmdDisconnect);
    }

    QStringList opened; ///< the transports that were made: resource name and choices
};

TEST_F(ConnectPageOptionsTest, AKindOffersTheSettingsOfItsLine)
{
    EXPECT_EQ(textsOf(page()), R"(
Kind of &link
[Simulated instrument,Scripted,Line]
&Address
[tty1,tty2,]
For example anything
Baud rate
[1200,9600] | Baud rate
Parity
[None,Even] | Parity
Connect
Cancel | End the attempt (Esc)
Disconnect
Not connected. Choose the link and press Connect.
Instrument
Maker
Model
Serial number
Firmware
Load channels
Resource name
)");
    EXPECT_EQ(page().cmbOption[0].text(), "9600");
    EXPECT_EQ(page().cmbOption[1].text(), "None");
}

TEST_F(ConnectPageOptionsTest, TheLinkIsOpenedWithTheChosenSettings)
{
    pick(page().cmbOption[1], QStringLiteral("Even"));
    connectTo(QStringLiteral("load"));
    EXPECT_THAT(opened, testing::ElementsAre("LINE::load 9600,Even"));
}

TEST_F(ConnectPageOptionsTest, AReconnectUsesTheSameSettings)
{
    pick(page().cmbOption[0], QStringLiteral("1200"));
    connectTo(QStringLiteral("load"));
    pick(page().cmbOption[0], QStringLiteral("9600")); // chosen, but nothing was opened with it

    control->Reconnect();

    EXPECT_THAT(opened, testing::ElementsAre("LINE::load 1200,None", "LINE::load 1200,None"));
}

TEST_F(ConnectPageOptionsTest, TheSettingsOfARecentLinkComeBackWithItsAddressAndInTheNextStart)
{
    pick(page().cmbOption[0], QStringLiteral("1200"));
    pick(page().cmbOption[1], QStringLiteral("Even"));
    connectTo(QStringLiteral("tty1"));
    pick(page().cmbOption[0], QStringLiteral("9600"));
    pick(page().cmbOption[1], QStringLiteral("None"));
    connectTo(QStringLiteral("other"));

    page().cmbAddress.setText(QStringLiteral("tty1"));
    EXPECT_EQ(page().cmbOption[0].text(), "1200");
    EXPECT_EQ(page().cmbOption[1].text(), "Even");
    start();
    EXPECT_EQ(page().cmbAddress.text(), "other");
    EXPECT_EQ(page().cmbOption[0].text(), "9600");
    page().cmbAddress.setText(QStringLiteral("tty1"));
    EXPECT_EQ(page().cmbOption[0].text(), "1200");
}

TEST_F(ConnectPageOptionsTest, TheSettingsCanOnlyBeChangedWithoutALink)
{
    EXPECT_TRUE(isReachable(page().cmbOption[0]));
    page().cmbAddress.setText(QStringLiteral("load"));
    press(page().cmdConnect);
    clock.advance(1000);
    EXPECT_FALSE(isReachable(page().cmbOption[0]));
}

TEST_F(ConnectPageTest, TheMessagesAboutAnAddressAreThoseOfThisTable)
{
    const std::pair<const char*, const char*> messages[] = {
        {"", "An address is missing. Type where the instrument is."},
        {"  ", "An address is missing. Type where the instrument is."},
        {"two words", "\"two words\" is not an address of this kind of link."},
        {" %1 %2 ", "\"%1 %2\" is not an address of this kind of link."}};
    pick(page().cmbKind, QStringLiteral("Scripted"));
    for (const auto& [address, message] : messages) {
        page().cmbAddress.setText(QString::fromLatin1(address));
        press(page().cmdConnect);
        EXPECT_EQ(page().lblStatus.status(), (StatusLine{QString::fromLatin1(message), Tone::Bad}));
    }
}

TEST_F(ConnectPageTest, AFirstStartSelectsTheSimulatedInstrument)
{
    EXPECT_EQ(page().cmbKind.text(), "Simulated instrument");
    EXPECT_FALSE(page().cmbAddress.enabled());
    EXPECT_EQ(status(), "Not connected. Choose the link and press Connect.");
    EXPECT_EQ(offered(), "Connect");
}

TEST_F(ConnectPageTest, TheConnectedInstrumentIsShown)
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

TEST_F(ConnectPageTest, ConnectingCanBeCancelledWhileTheLinkOpens)
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

TEST_F(ConnectPageTest, EscapeCancelsConnectingWhereverTheFocusIsAndNothingElse)
{
    TextBox elsewhere;
    put(elsewhere).show();
    line.opensAfter = std::nullopt;
    hitKey(elsewhere, Qt::Key_Escape);
    EXPECT_EQ(status(), "Not connected. Choose the link and press Connect.");
    connectScripted();
    clock.advance(1000);
    EXPECT_EQ(status(), "Connecting to load...");

    hitKey(elsewhere, Qt::Key_Escape);

    EXPECT_EQ(status(), "Connecting was cancelled.");
    EXPECT_EQ(offered(), "Connect");
}

TEST_F(ConnectPageTest, EscapeOnTheControlPageLeavesTheConnectingAlone)
{
    line.opensAfter = std::nullopt;
    connectScripted();
    control->ShowControlPage();
    TextBox elsewhere;
    put(elsewhere).show();

    hitKey(elsewhere, Qt::Key_Escape);

    EXPECT_EQ(status(), "Connecting to load...");
}

TEST_F(ConnectPageTest, ConnectingCanBeCancelledWhileTheIdentityIsAwaited)
{
    connectScripted();
    clock.advance(1000);
    EXPECT_EQ(status(), "load took the connection. Asking what it is...");
    press(page().cmdCancel);
    EXPECT_EQ(status(), "Connecting was cancelled.");
    clock.advance(60'000);
    EXPECT_EQ(offered(), "Connect");
}

TEST_F(ConnectPageTest, EnterInTheAddressFieldConnects)
{
    actAsInstrument(2);
    pick(page().cmbKind, QStringLiteral("Scripted"));
    page().cmbAddress.setText(QStringLiteral("load"));
    pressKey(*page().cmbAddress.lineEdit(), Qt::Key_Return, QStringLiteral("\r"));
    clock.advance(100);
    EXPECT_TRUE(control->IsConnected());
}

TEST_F(ConnectPageTest, AnInvalidAddressIsRefusedWithAMessage)
{
    pick(page().cmbKind, QStringLiteral("Scripted"));
    press(page().cmdConnect);
    EXPECT_EQ(status(), "An address is missing. Type where the instrument is.");
    page().cmbAddress.setText(QStringLiteral("two words"));
    press(page().cmdConnect);
    EXPECT_EQ(status(), "\"two words\" is not an address of this kind of link.");
    EXPECT_EQ(line.openings, 0);
    page().cmbAddress.lineEdit()->setText(QStringLiteral("two word"));
    EXPECT_EQ(status(), "Not connected. Choose the link and press Connect.");
    page().cmbAddress.setText(QStringLiteral("two words"));
    press(page().cmdConnect);
    clock.advance(1000);
    EXPECT_EQ(status(), "\"two words\" is not an address of this kind of link.");
    line.openError = LinkError::HostNotFound;
    page().cmbAddress.setText(QStringLiteral("load"));
    press(page().cmdConnect);
    EXPECT_EQ(status(), "load was not found: no host has this name. Check it, or give the address in numbers.");
}

TEST_F(ConnectPageTest, LinksThatCameUpAreRemembered)
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

TEST_F(ConnectPageTest, EachKindOffersItsOwnAddresses)
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

TEST_F(ConnectPageTest, DamagedSettingsCountAsNone)
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

TEST_F(ConnectPageTest, ASecondEnterDoesNotEndTheLinkOfTheFirst)
{
    page().cmdConnect.setFocus();
    pressKey(*form.focusWidget(), Qt::Key_Return);
    ASSERT_TRUE(control->IsConnected());
    ASSERT_NE(form.focusWidget(), nullptr);
    pressKey(*form.focusWidget(), Qt::Key_Return);
    EXPECT_TRUE(control->IsConnected());
}

TEST_F(ConnectPageTest, APageChangeLeavesTheFocusOnNoButton)
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

TEST_F(ConnectPageTest, TheTabKeyGoesFromTopToBottom)
{
    pick(page().cmbKind, QStringLiteral("Scripted"));
    std::vector<QWidget*> visited;
    QWidget* widget = &page().cmbKind;
    for (int i = 0; i < 3; ++i) {
        visited.push_back(widget);
        do {
            widget = widget->nextInFocusChain();
        } while (!isReachable(*widget) || !(widget->focusPolicy() & Qt::TabFocus) || widget->focusProxy() != nullptr);
    }
    EXPECT_EQ(visited, (std::vector<QWidget*>{&page().cmbKind, &page().cmbAddress, &page().cmdConnect}));
}

TEST_F(ConnectPageTest, AForeignAnswerIsShownAsPlainText)
{
    line.onLine = [this](const QByteArray&) { line.say("<b>bold</b><img src=x>\n"); };
    connectScripted();
    clock.advance(2500);
    EXPECT_EQ(page().lblStatus.textFormat(), Qt::PlainText);
    EXPECT_EQ(status(), "load answered, but not as an instrument does. It said: \"<b>bold</b><img src=x>\"");
}

} // namespace orb
