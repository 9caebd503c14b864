// SPDX-License-Identifier: GPL-3.0-or-later
#include "system_info.h"

#include "page_test.h"
#include "recorded_system_tools.h"

using namespace orb;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

const QString toolKey = "SOFTWARE\\Microsoft\\Shared Tools\\MSINFO";
const QString folderKey = "SOFTWARE\\Microsoft\\Shared Tools Location";
const QString unavailable = "message \"System Information Is Unavailable At This Time\" none Ok";

/// Bytes that may hold zeros.
QByteArray raw(std::initializer_list<int> values)
{
    QByteArray result;
    for (const int value : values)
        result.append(static_cast<char>(value));
    return result;
}

class SystemInfoTest : public PageTest {
protected:
    void store(const QString& key, const QString& name, const QByteArray& bytes, quint32 type = SystemTools::Text)
    {
        tools.values[key + ":" + name] = {type, bytes};
    }

    /// The value "K:V" after it was stored, "before" where it was left.
    QString read(const QByteArray& bytes, quint32 type)
    {
        store("K", "V", bytes, type);
        QString value = "before";
        isRead = info.GetKeyValue(SystemTools::Root::LocalMachine, "K", "V", value);
        return value;
    }

    RecordedSystemTools tools;
    SystemInfo info{tools, dialogs};
    bool isRead = false;
};

TEST_F(SystemInfoTest, AKeyThatCanNotBeOpenedIsClosedAllTheSameAndTheValueIsEmpty)
{
    QString value = "before";
    EXPECT_FALSE(info.GetKeyValue(SystemTools::Root::LocalMachine, "K", "V", value));
    EXPECT_EQ(value, "");
    EXPECT_THAT(tools.calls, ElementsAre("open K 2003f", "close 7"));
}

TEST_F(SystemInfoTest, AValueThatCanNotBeReadIsEmptyAndTheKeyIsClosed)
{
    store("K", "other", "text");
    QString value = "before";
    EXPECT_FALSE(info.GetKeyValue(SystemTools::Root::LocalMachine, "K", "V", value));
    EXPECT_EQ(value, "");
    EXPECT_THAT(tools.calls, ElementsAre("open K 2003f", "query V 1024", "close 7"));
}

TEST_F(SystemInfoTest, ATextIsReadWithAndWithoutAZeroAtItsEndAndTheKeyIsClosed)
{
    EXPECT_EQ(read("C:\\tool.exe", SystemTools::Text), "C:\\tool.exe");
    EXPECT_TRUE(isRead);
    EXPECT_EQ(tools.calls.last(), "close 7");
    EXPECT_EQ(read(raw({'a', 'b', 0}), SystemTools::Text), "ab");
    EXPECT_EQ(read("", SystemTools::Text), "");
    EXPECT_TRUE(isRead);
}

TEST_F(SystemInfoTest, AValueOf1024BytesIsReadWholeAndALongerOneIsNot)
{
    EXPECT_EQ(read(QByteArray(1024, 'x'), SystemTools::Text), QString(1024, 'x'));
    EXPECT_EQ(read(QByteArray(1025, 'x'), SystemTools::Text), "");
    EXPECT_FALSE(isRead);
}

TEST_F(SystemInfoTest, ANumberIsReadFromTheDigitsOfItsBytesFromTheLastToTheFirst)
{
    EXPECT_EQ(read(raw({0x10, 0x27, 0, 0}), SystemTools::Number), "10000");
    EXPECT_EQ(read(raw({0x78, 0x56, 0x34, 0x12}), SystemTools::Number), "305419896");
    EXPECT_EQ(read(raw({0, 0, 0, 0}), SystemTools::Number), "0");
}

TEST_F(SystemInfoTest, AByteOfOneDigitGetsNoLeadingZero)
{
    EXPECT_EQ(read(raw({0x05, 0x01, 0, 0}), SystemTools::Number), "21") << "0015 and not 000105";
}

TEST_F(SystemInfoTest, AValueOfAnotherTypeIsLeftAsItCame)
{
    EXPECT_EQ(read("binary", 3), "before");
    EXPECT_TRUE(isRead);
}

TEST_F(SystemInfoTest, TheToolOfTheFirstKeyIsStartedWithoutALookAtTheSecond)
{
    store(toolKey, "PATH", "C:\\none\\msinfo32.exe");
    store(folderKey, "MSINFO", "C:\\other");
    info.StartSysInfo();
    EXPECT_THAT(tools.calls, ElementsAre("open " + toolKey + " 2003f", "query PATH 1024", "close 7",
                                         "start C:\\none\\msinfo32.exe"));
    EXPECT_THAT(dialogs.shown, IsEmpty());
}

TEST_F(SystemInfoTest, TheFolderOfTheSecondKeyIsUsedWhereTheToolIsInIt)
{
    QFile tool(application.filePath("MSINFO32.EXE"));
    ASSERT_TRUE(tool.open(QIODevice::WriteOnly));
    store(folderKey, "MSINFO", application.path().toLocal8Bit());
    info.StartSysInfo();
    EXPECT_EQ(tools.calls.last(), "start " + application.path() + "\\MSINFO32.EXE");
    EXPECT_THAT(dialogs.shown, IsEmpty());
}

TEST_F(SystemInfoTest, WithoutTheFirstKeyAndTheToolInTheFolderTheMessageIsShownAndNothingStarted)
{
    store(folderKey, "MSINFO", application.path().toLocal8Bit());
    info.StartSysInfo();
    EXPECT_THAT(journal.lines(), ElementsAre(unavailable));
    EXPECT_THAT(tools.calls, ElementsAre("open " + toolKey + " 2003f", "close 7", "open " + folderKey + " 2003f",
                                         "query MSINFO 1024", "close 7"));
}

TEST_F(SystemInfoTest, WithoutBothKeysTheMessageIsShown)
{
    info.StartSysInfo();
    EXPECT_THAT(journal.lines(), ElementsAre(unavailable));
}

TEST_F(SystemInfoTest, AToolThatCanNotBeStartedEndsInTheMessage)
{
    store(toolKey, "PATH", "C:\\msinfo32.exe");
    tools.canStart = false;
    info.StartSysInfo();
    EXPECT_THAT(journal.lines(), ElementsAre(unavailable));
}

} // namespace
