// SPDX-License-Identifier: GPL-3.0-or-later
#include "link_settings.h"

#include <QFile>
#include <QTemporaryDir>

#include <gmock/gmock.h>

namespace orb {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

void writeFile(const QString& name, const QByteArray& content)
{
    QFile file(name);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(content);
}

} // namespace

class LinkSettingsTest : public testing::Test {
protected:
    QTemporaryDir folder;
    QString file = folder.filePath(QStringLiteral("sub/link.ini"));
};

TEST_F(LinkSettingsTest, SettingsAreEmptyOnAFirstStart)
{
    const LinkSettings settings(file);
    EXPECT_EQ(settings.last(), "");
    EXPECT_THAT(settings.recent(), IsEmpty());
}

TEST_F(LinkSettingsTest, TheLatestLinkComesFirstAndNoneTwice)
{
    LinkSettings settings(file);
    for (const char* name : {"a", "b", "a", "c"})
        settings.use(QString::fromLatin1(name), {});
    const LinkSettings again(file);
    EXPECT_EQ(again.last(), "c");
    EXPECT_THAT(again.recent(), ElementsAre("c", "a", "b"));
}

TEST_F(LinkSettingsTest, EachRecentLinkKeepsTheChoicesThatItWasUsedWith)
{
    LinkSettings settings(file);
    settings.use(QStringLiteral("a"), {QStringLiteral("9600"), QStringLiteral("RTS/CTS")});
    settings.use(QStringLiteral("b"), {});
    settings.use(QStringLiteral("c"), {QStringLiteral("1200"), QStringLiteral("None")});

    const LinkSettings again(file);

    EXPECT_THAT(again.choices(QStringLiteral("a")), ElementsAre("9600", "RTS/CTS"));
    EXPECT_THAT(again.choices(QStringLiteral("b")), IsEmpty());
    EXPECT_THAT(again.choices(QStringLiteral("c")), ElementsAre("1200", "None"));
    EXPECT_THAT(again.choices(QStringLiteral("d")), IsEmpty());
}

TEST_F(LinkSettingsTest, SettingsAreBounded)
{
    LinkSettings settings(file);
    for (int i = 0; i < 20; ++i)
        settings.use(QString::number(i), {});
    EXPECT_EQ(LinkSettings(file).recent().size(), LinkSettings::mostRecent);
    settings.use(QString(10'000, QLatin1Char('x')), {});
    EXPECT_EQ(LinkSettings(file).last().size(), LinkSettings::longestName);
    EXPECT_EQ(LinkSettings(file).recent().first(), "19"); // the long name is not among them
    settings.use(QString(LinkSettings::longestName, QLatin1Char('y')), {});
    EXPECT_EQ(LinkSettings(file).recent().first().size(), LinkSettings::longestName);
}

TEST_F(LinkSettingsTest, AFileOverItsLimitIsNotRead)
{
    file = folder.filePath(QStringLiteral("link.ini"));
    const QByteArray content = "[link]\nlast=a\n;";
    writeFile(file, content.leftJustified(64 * 1024, ' '));
    EXPECT_EQ(LinkSettings(file).last(), "a");
    writeFile(file, content.leftJustified(64 * 1024 + 1, ' '));
    EXPECT_EQ(LinkSettings(file).last(), "");
}

TEST_F(LinkSettingsTest, ADamagedFileIsOverwritten)
{
    file = folder.filePath(QStringLiteral("link.ini"));
    for (const QByteArray& garbage :
         {QByteArray("[link\nlast=\\x\n=\xff\x00"), QByteArray("[link]\nlast=@Variant(\\0\\0)\nrecent=@Invalid()\n"),
          QByteArray(100'000, '['), QByteArray("[link]\nrecent=") + QByteArray(20'000, ',')}) {
        writeFile(file, garbage);
        LinkSettings settings(file);
        settings.use(QStringLiteral("SIM::INSTR"), {});
        EXPECT_EQ(LinkSettings(file).last(), "SIM::INSTR") << garbage.left(20).toStdString();
    }
}

TEST_F(LinkSettingsTest, AFileThatCanNotBeWrittenIsIgnored)
{
    LinkSettings settings(QStringLiteral("/proc/no/such/place.ini"));
    settings.use(QStringLiteral("SIM::INSTR"), {});
    EXPECT_EQ(settings.last(), "SIM::INSTR");
}

} // namespace orb
