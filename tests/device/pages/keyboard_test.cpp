// SPDX-License-Identifier: GPL-3.0-or-later
// The pages of the control by keys alone.
#include "channel_card.h"
#include "device_control_fixture.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>

namespace orb {

namespace {

class EndlessSearch final : public NetworkSearch {
public:
    QList<NetworkInstrument> found() const override { return {}; }
    QString failure() const override { return {}; }
};

} // namespace

class KeyboardTest : public DeviceControlTest {
protected:
    KeyboardTest()
    {
        kinds.back().options = {{QStringLiteral("Baud rate"), {QStringLiteral("1200"), QStringLiteral("9600")}, 1},
                                {QStringLiteral("Parity"), {QStringLiteral("None"), QStringLiteral("Even")}, 0}};
        kinds.back().search = [] { return std::make_unique<EndlessSearch>(); };
        start();
        control->ShowConnectPage();
    }

    ConnectPage& connect() { return control->connectPage; }
    ChannelCard& card(std::size_t index) { return *control->controlPage.cards.at(index); }
    /// Presses a key where the focus is, and releases it.
    void hit(Qt::Key key, const QString& text = {}, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            ASSERT_NE(form.focusWidget(), nullptr);
            QKeyEvent event(type, key, modifiers, text);
            QApplication::sendEvent(form.focusWidget(), &event);
        }
    }
    /// Where the focus is after each of `count` presses of Tab, or of Shift and Tab.
    std::vector<QWidget*> walk(QWidget& from, std::size_t count, bool isBack = false)
    {
        from.setFocus();
        std::vector<QWidget*> visited;
        while (visited.size() < count) {
            hit(isBack ? Qt::Key_Backtab : Qt::Key_Tab, {}, isBack ? Qt::ShiftModifier : Qt::NoModifier);
            visited.push_back(form.focusWidget());
        }
        return visited;
    }
};

TEST_F(KeyboardTest, TabGoesThroughTheConnectPageFromTopToBottomAndBack)
{
    pick(connect().cmbKind, QStringLiteral("Scripted"));
    ConnectPage& page = connect();
    EXPECT_EQ(walk(page.cmbKind, 5), (std::vector<QWidget*>{&page.cmbAddress, &page.cmdSearch, &page.cmbOption[0],
                                                            &page.cmbOption[1], &page.cmdConnect}));
    EXPECT_EQ(walk(page.cmdConnect, 5, true),
              (std::vector<QWidget*>{&page.cmbOption[1], &page.cmbOption[0], &page.cmdSearch, &page.cmbAddress,
                                     &page.cmbKind}));
}

TEST_F(KeyboardTest, ALinkIsChosenMadeAndEndedByKeysAlone)
{
    actAsInstrument(2);
    connect().cmbKind.setFocus();
    hit(Qt::Key_Down);
    ASSERT_EQ(connect().cmbKind.text(), "Scripted");
    hit(Qt::Key_Tab);
    for (const char letter : {'l', 'o', 'a', 'd'})
        hit(Qt::Key_unknown, QString(QLatin1Char(letter)));
    EXPECT_EQ(connect().cmbAddress.text(), "load");
    for (int i = 0; i < 4; ++i)
        hit(Qt::Key_Tab);
    hit(Qt::Key_Space, QStringLiteral(" "));
    clock.advance(100);
    ASSERT_TRUE(control->IsConnected());

    EXPECT_EQ(walk(connect(), 1), std::vector<QWidget*>{&connect().cmdDisconnect});
    hit(Qt::Key_Space, QStringLiteral(" "));
    EXPECT_FALSE(control->IsConnected());
    EXPECT_EQ(form.focusWidget(), &connect().cmdConnect);
}

TEST_F(KeyboardTest, ASearchIsBegunAndStoppedByTheSpaceBar)
{
    pick(connect().cmbKind, QStringLiteral("Scripted"));
    connect().cmdSearch.setFocus();
    hit(Qt::Key_Space, QStringLiteral(" "));
    EXPECT_EQ(status(), "Searching the network for instruments...");
    hit(Qt::Key_Space, QStringLiteral(" "));
    EXPECT_EQ(status(), "The search was stopped.");
}

TEST_F(KeyboardTest, TabGoesThroughEachCardAndThenToTheNext)
{
    connectSimulated();
    control->ShowControlPage();
    clock.advance(3000);
    std::vector<QWidget*> expected;
    for (std::size_t i = 0; i < 6; ++i)
        for (QWidget* widget : std::initializer_list<QWidget*>{&card(i).cmbMode, &card(i).cmbRange,
                                                               &card(i).txtSetValue, &card(i).cmdLoad})
            expected.push_back(widget);
    expected.erase(expected.begin());

    EXPECT_EQ(walk(card(0).cmbMode, expected.size()), expected);
}

TEST_F(KeyboardTest, AnInputIsSwitchedByTheSpaceBarOnItsButtonAlone)
{
    connectSimulated();
    control->ShowControlPage();
    clock.advance(3000);
    ASSERT_EQ(card(1).lblState.caption(), "OFF");
    for (QWidget* other : std::initializer_list<QWidget*>{&card(1).txtSetValue, &*control}) {
        other->setFocus();
        hit(Qt::Key_Space, QStringLiteral(" "));
        clock.advance(1000);
        EXPECT_EQ(card(1).lblState.caption(), "OFF");
    }
    card(1).cmdLoad.setFocus();
    hit(Qt::Key_Space, QStringLiteral(" "));
    clock.advance(1000);
    EXPECT_EQ(card(1).lblState.caption(), "ON");
    EXPECT_EQ(card(0).lblState.caption(), "OFF");
}

TEST_F(KeyboardTest, ASetValueIsTypedAndConfirmedByKeysAlone)
{
    connectSimulated();
    control->ShowControlPage();
    clock.advance(3000);
    walk(card(0).cmbMode, 2);
    ASSERT_EQ(form.focusWidget(), &card(0).txtSetValue);
    hit(Qt::Key_A, QStringLiteral("\x01"), Qt::ControlModifier);
    for (const char each : {'1', '.', '5'})
        hit(Qt::Key_unknown, QString(QLatin1Char(each)));
    hit(Qt::Key_Return, QStringLiteral("\r"));
    clock.advance(2000);
    EXPECT_EQ(card(0).lblNote.caption(), "Read back");
    EXPECT_TRUE(card(0).txtSetValue.text().startsWith(QStringLiteral("1.5")))
        << card(0).txtSetValue.text().toStdString();
}

} // namespace orb
