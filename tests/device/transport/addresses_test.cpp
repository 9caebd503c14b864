// SPDX-License-Identifier: GPL-3.0-or-later
#include "identity.h"
#include "link_kind.h"
#include "link_settings.h"
#include "recorded_exit.h"
#include "tcp_address.h"
#include "virtual_clock.h"

#include <QFile>
#include <QTemporaryDir>

#include <gmock/gmock.h>

namespace orb {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

QString resourceOf(const char* typed)
{
    const auto address = readTcpAddress(QString::fromUtf8(typed));
    return address ? address->resourceName() : QStringLiteral("none");
}

void writeFile(const QString& path, const QByteArray& content)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(content);
}

} // namespace

TEST(TcpAddress, IsReadFromWhatOperatorsType)
{
    EXPECT_EQ(resourceOf("192.168.0.7"), "TCPIP0::192.168.0.7::5025::SOCKET");
    EXPECT_EQ(resourceOf("  load-3.lab:5026 "), "TCPIP0::load-3.lab::5026::SOCKET");
    EXPECT_EQ(resourceOf("localhost:65535"), "TCPIP0::localhost::65535::SOCKET");
    EXPECT_EQ(resourceOf("::1"), "TCPIP0::[::1]::5025::SOCKET");
    EXPECT_EQ(resourceOf("[fe80::1]:1"), "TCPIP0::[fe80::1]::1::SOCKET");
    EXPECT_EQ(resourceOf("[::1]"), "TCPIP0::[::1]::5025::SOCKET");
    EXPECT_EQ(resourceOf("TCPIP0::192.168.0.7::5025::SOCKET"), "TCPIP0::192.168.0.7::5025::SOCKET");
    EXPECT_EQ(resourceOf("tcpip::load::99::socket"), "TCPIP0::load::99::SOCKET");
    EXPECT_EQ(resourceOf("TCPIP0::[::1]::5025::SOCKET"), "TCPIP0::[::1]::5025::SOCKET");
}

TEST(TcpAddress, IsNoneOfAnythingElse)
{
    for (const char* typed : {"",
                              " ",
                              ":",
                              ":5025",
                              "host:",
                              "host:0",
                              "host:65536",
                              "host:-1",
                              "host:5 25",
                              "host:5025x",
                              "host:000005025",
                              "two words",
                              "a/b",
                              "a@b",
                              "host;rm",
                              "[::1",
                              "::1]:5",
                              "[host]:5",
                              "1:2:3",
                              "TCPIP0::::5025::SOCKET",
                              "TCPIP0::host::0::SOCKET",
                              "SIM::INSTR",
                              "\x01",
                              "%1"})
        EXPECT_EQ(resourceOf(typed), "none") << typed;
    EXPECT_EQ(readTcpAddress(QString(254, QLatin1Char('a'))), std::nullopt);
}

TEST(TcpAddress, IsShownAsItIsTyped)
{
    EXPECT_EQ((TcpAddress{QStringLiteral("host"), 5025}).shown(), "host:5025");
    EXPECT_EQ((TcpAddress{QStringLiteral("::1"), 7}).shown(), "[::1]:7");
}

TEST(LinkKinds, ClaimTheirOwnResourceNamesAlone)
{
    RecordedExit processExit;
    orb::Run run(processExit);
    VirtualClock clock(run);
    const auto kinds = standardLinkKinds(clock);
    const auto titleOf = [&](const char* resourceName) {
        const LinkKind* kind = kindOf(kinds, QString::fromLatin1(resourceName));
        return kind != nullptr ? kind->title : QStringLiteral("none");
    };
    EXPECT_EQ(titleOf("SIM::INSTR"), "Simulated instrument");
    EXPECT_EQ(titleOf("TCPIP0::host::5025::SOCKET"), "Network (TCP)");
    EXPECT_EQ(titleOf("host"), "none"); // typed, not a resource name
    EXPECT_EQ(titleOf(""), "none");
    EXPECT_EQ(titleOf("ASRL/dev/ttyUSB0::INSTR"), "none");
}

TEST(Identity, IsReadFromFourFieldsOrMore)
{
    EXPECT_EQ(readIdentity("ZN,ORB3000, SIM0001 ,1.0"), (Identity{QStringLiteral("ZN"), QStringLiteral("ORB3000"),
                                                                  QStringLiteral("SIM0001"), QStringLiteral("1.0")}));
    EXPECT_EQ(readIdentity("ZN,ORB3000,,1.0,rev B")->firmware, "1.0,rev B");
    EXPECT_EQ(readIdentity("ZN,ORB3000,0,"),
              (Identity{QStringLiteral("ZN"), QStringLiteral("ORB3000"), QStringLiteral("0"), {}}));
}

TEST(Identity, IsNotReadFromAnythingElse)
{
    EXPECT_EQ(readIdentity(""), std::nullopt);
    EXPECT_EQ(readIdentity("SSH-2.0-server_9"), std::nullopt);
    EXPECT_EQ(readIdentity("a,b,c"), std::nullopt);
    EXPECT_EQ(readIdentity(",,,"), std::nullopt);
    EXPECT_EQ(readIdentity("a,b\x07,c,d"), std::nullopt);
    EXPECT_EQ(readIdentity("a,b,c," + QByteArray(300, 'd')), std::nullopt);
}

TEST(ShownText, IsOneLineWithoutControlCharacters)
{
    EXPECT_EQ(shownText("HTTP/1.1 400\r\n\x1b[31mBad\x07 \tRequest"), "HTTP/1.1 400 [31mBad Request");
    EXPECT_EQ(shownText("caf\xc3\xa9"), QString::fromUtf8("caf\xc3\xa9"));
    EXPECT_EQ(shownText("caf\xe9"), QString::fromUtf8("caf\xc3\xa9"));
    EXPECT_EQ(shownText("a\xe2\x80\xae"
                        "b"),
              "a b"); // text direction is no business of a peer's
    EXPECT_EQ(shownText(QByteArray(1000, 'x'), 10), QString(10, QLatin1Char('x')) + QChar(0x2026));
    EXPECT_EQ(shownText(""), "");
}

TEST(ListFields, AddNoneForAClosingComma)
{
    EXPECT_THAT(listFields("1,2,"), ElementsAre("1", "2"));
    EXPECT_THAT(listFields("1,2"), ElementsAre("1", "2"));
    EXPECT_THAT(listFields(""), IsEmpty());
    EXPECT_THAT(listFields(",,"), ElementsAre("", ""));
}

class LinkSettingsTest : public testing::Test {
protected:
    QTemporaryDir folder;
    QString file = folder.filePath(QStringLiteral("sub/link.ini"));
};

TEST_F(LinkSettingsTest, AreEmptyOnAFirstStart)
{
    const LinkSettings settings(file);
    EXPECT_EQ(settings.last(), "");
    EXPECT_THAT(settings.recent(), IsEmpty());
}

TEST_F(LinkSettingsTest, RememberTheLatestFirstAndNoneTwice)
{
    LinkSettings settings(file);
    for (const char* name : {"a", "b", "a", "c"})
        settings.use(QString::fromLatin1(name));
    const LinkSettings again(file);
    EXPECT_EQ(again.last(), "c");
    EXPECT_THAT(again.recent(), ElementsAre("c", "a", "b"));
}

TEST_F(LinkSettingsTest, AreBounded)
{
    LinkSettings settings(file);
    for (int i = 0; i < 20; ++i)
        settings.use(QString::number(i));
    EXPECT_EQ(LinkSettings(file).recent().size(), LinkSettings::mostRecent);
    settings.use(QString(10'000, QLatin1Char('x')));
    EXPECT_LE(LinkSettings(file).last().size(), LinkSettings::longestName);
}

TEST_F(LinkSettingsTest, TakeNoHarmFromGarbageAndOverwriteIt)
{
    file = folder.filePath(QStringLiteral("link.ini"));
    for (const QByteArray& garbage :
         {QByteArray("[link\nlast=\\x\n=\xff\x00"), QByteArray("[link]\nlast=@Variant(\\0\\0)\nrecent=@Invalid()\n"),
          QByteArray(100'000, '['), QByteArray("[link]\nrecent=") + QByteArray(20'000, ',')}) {
        writeFile(file, garbage);
        LinkSettings settings(file);
        settings.use(QStringLiteral("SIM::INSTR"));
        EXPECT_EQ(LinkSettings(file).last(), "SIM::INSTR") << garbage.left(20).toStdString();
    }
}

TEST_F(LinkSettingsTest, DoWithoutAFileThatCanNotBeWritten)
{
    LinkSettings settings(QStringLiteral("/proc/no/such/place.ini"));
    settings.use(QStringLiteral("SIM::INSTR"));
    EXPECT_EQ(settings.last(), "SIM::INSTR");
}

} // namespace orb
