// SPDX-License-Identifier: GPL-3.0-or-later
// The search of the network on the Connect page, with a network that the test makes up.
#include "device_control_fixture.h"

#include <QLineEdit>

namespace orb {

namespace {

/// What a search finds, and how many of them are going on.
struct MadeUpNetwork {
    QList<NetworkInstrument> instruments;
    QString failure;
    int begun = 0;
    int running = 0;
};

class MadeUpSearch final : public NetworkSearch {
public:
    explicit MadeUpSearch(MadeUpNetwork& network) : network_(network)
    {
        ++network_.begun;
        ++network_.running;
    }
    ~MadeUpSearch() override { --network_.running; }
    MadeUpSearch(const MadeUpSearch&) = delete;
    MadeUpSearch& operator=(const MadeUpSearch&) = delete;

    QList<NetworkInstrument> found() const override { return network_.instruments; }
    QString failure() const override { return network_.failure; }

private:
    MadeUpNetwork& network_;
};

} // namespace

class NetworkSearchTest : public DeviceControlTest {
protected:
    NetworkSearchTest()
    {
        kinds.back().search = [this] { return std::make_unique<MadeUpSearch>(network); };
        start();
        control->ShowConnectPage();
        pick(page().cmbKind, QStringLiteral("Scripted"));
    }

    ConnectPage& page() { return control->connectPage; }
    QStringList addresses()
    {
        QStringList items;
        for (int i = 0; i < page().cmbAddress.listCount(); ++i)
            items += page().cmbAddress.list(i);
        return items;
    }
    StatusLine note() { return page().lblStatus.status(); }
    static StatusLine line(const char* text, Tone tone) { return {QString::fromLatin1(text), tone}; }

    const NetworkInstrument one{QStringLiteral("SCRIPT::one"), QStringLiteral("Load of the workshop")};
    const NetworkInstrument two{QStringLiteral("SCRIPT::two"), QStringLiteral("Load 2")};
    MadeUpNetwork network;
};

TEST_F(NetworkSearchTest, OnlyAKindThatCanSearchOffersIt)
{
    EXPECT_TRUE(isReachable(page().cmdSearch));
    pick(page().cmbKind, QStringLiteral("Simulated instrument"));
    EXPECT_FALSE(isReachable(page().cmdSearch));
    EXPECT_EQ(network.begun, 0) << "nothing searches by itself";
}

TEST_F(NetworkSearchTest, WhatIsFoundIsInTheListOfAddressesWithItsTitle)
{
    press(page().cmdSearch);
    EXPECT_EQ(note(), line("Searching the network for instruments...", Tone::Busy));
    EXPECT_EQ(page().cmdSearch.caption(), "Stop search");
    clock.advance(1000);
    network.instruments = {one};
    clock.advance(1000);
    EXPECT_EQ(addresses(), QStringList{"SCRIPT::one"}) << "while the search goes on";
    network.instruments = {one, two};
    clock.advance(4000);

    EXPECT_EQ(addresses(), (QStringList{"SCRIPT::one", "SCRIPT::two"}));
    EXPECT_EQ(page().cmbAddress.itemData(0, Qt::ToolTipRole), "Load of the workshop");
    EXPECT_EQ(page().cmbAddress.itemData(1, Qt::ToolTipRole), "Load 2");
    EXPECT_EQ(note(), line("2 instruments announced themselves. They are in the list of addresses.", Tone::Good));
}

TEST_F(NetworkSearchTest, ASearchEndsByItselfAfterFiveSeconds)
{
    press(page().cmdSearch);
    clock.advance(4900);
    EXPECT_EQ(network.running, 1);
    clock.advance(200);
    EXPECT_EQ(network.running, 0);
    EXPECT_EQ(page().cmdSearch.caption(), "Search network");
    EXPECT_EQ(note(), line("No instrument announced itself within 5 seconds. Type the address.", Tone::Neutral));
}

TEST_F(NetworkSearchTest, TheFirstThatIsFoundFillsAnEmptyAddressAndConnects)
{
    actAsInstrument(2);
    network.instruments = {one};
    press(page().cmdSearch);
    clock.advance(6000);
    EXPECT_EQ(page().cmbAddress.text(), "SCRIPT::one");
    EXPECT_EQ(note(), line("One instrument announced itself. It is in the list of addresses.", Tone::Good));

    press(page().cmdConnect);
    clock.advance(100);
    EXPECT_TRUE(control->IsConnected());
    EXPECT_EQ(page().lblResource.caption(), "SCRIPT::one");
}

TEST_F(NetworkSearchTest, ATypedAddressStays)
{
    page().cmbAddress.setText(QStringLiteral("mine"));
    network.instruments = {one};
    press(page().cmdSearch);
    clock.advance(6000);
    EXPECT_EQ(page().cmbAddress.text(), "mine");
}

TEST_F(NetworkSearchTest, ARecentAddressIsNotListedTwice)
{
    actAsInstrument(2);
    connectScripted(QStringLiteral("one"));
    clock.advance(100);
    press(page().cmdDisconnect);
    network.instruments = {one, two};
    press(page().cmdSearch);
    clock.advance(6000);
    EXPECT_EQ(addresses(), (QStringList{"one", "SCRIPT::two"}));
}

TEST_F(NetworkSearchTest, ASecondPressStopsTheSearchAndKeepsWhatWasFound)
{
    network.instruments = {one};
    press(page().cmdSearch);
    clock.advance(1000);
    press(page().cmdSearch);
    EXPECT_EQ(network.running, 0);
    EXPECT_EQ(page().cmdSearch.caption(), "Search network");
    EXPECT_EQ(note(), line("The search was stopped.", Tone::Neutral));
    EXPECT_EQ(addresses(), QStringList{"SCRIPT::one"});
}

TEST_F(NetworkSearchTest, ANewSearchForgetsWhatTheLastOneFound)
{
    network.instruments = {one};
    press(page().cmdSearch);
    clock.advance(6000);
    network.instruments.clear();
    press(page().cmdSearch);
    EXPECT_EQ(addresses(), QStringList());
}

TEST_F(NetworkSearchTest, AFailureIsShownInItsOwnWordsAndEndsTheSearch)
{
    network.failure = QStringLiteral("No daemon.");
    press(page().cmdSearch);
    clock.advance(100);
    EXPECT_EQ(note(), line("No daemon.", Tone::Bad));
    EXPECT_EQ(network.running, 0);
    EXPECT_EQ(page().cmdSearch.caption(), "Search network");
}

TEST_F(NetworkSearchTest, ConnectEndsTheSearch)
{
    actAsInstrument(2);
    page().cmbAddress.setText(QStringLiteral("load"));
    press(page().cmdSearch);
    press(page().cmdConnect);
    EXPECT_EQ(network.running, 0);
    clock.advance(6000);
    EXPECT_TRUE(control->IsConnected());
    EXPECT_EQ(status(), "Connected to load.");
    EXPECT_FALSE(isReachable(page().cmdSearch)) << "not while a link stands";
}

TEST_F(NetworkSearchTest, AnotherKindEndsTheSearch)
{
    press(page().cmdSearch);
    pick(page().cmbKind, QStringLiteral("Simulated instrument"));
    EXPECT_EQ(network.running, 0);
    clock.advance(6000);
    EXPECT_EQ(status(), "Not connected. Choose the link and press Connect.");
}

TEST_F(NetworkSearchTest, LeavingThePageEndsTheSearch)
{
    press(page().cmdSearch);
    control->ShowControlPage();
    clock.advance(100);
    EXPECT_EQ(network.running, 0);

    control->ShowConnectPage();
    press(page().cmdSearch);
    ASSERT_EQ(network.running, 1);
    control->PanelActive(false);
    EXPECT_EQ(network.running, 0);
    EXPECT_EQ(status(), "Not connected. Choose the link and press Connect.");
}

} // namespace orb
