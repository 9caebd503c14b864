// SPDX-License-Identifier: GPL-3.0-or-later
#include "system_tools.h"

#include "failure.h"
#include "printing.h"

#include <QFile>
#include <QTemporaryDir>

#include <gmock/gmock.h>

using namespace orb;

#ifndef Q_OS_WIN

namespace {

/// A system whose only programs are those that a test puts there.
class SystemToolsTest : public testing::Test {
protected:
    SystemToolsTest() { qputenv("PATH", folder.path().toLocal8Bit()); }
    ~SystemToolsTest() override { qputenv("PATH", path); }

    void install(const QString& name) const
    {
        QFile file(folder.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }

    bool open(const QString& name) { return tools.openKey(SystemTools::Root::LocalMachine, name, 0, key); }

    const QByteArray path = qgetenv("PATH");
    QTemporaryDir folder;
    RealSystemTools tools;
    SystemTools::Key key = 0;
    SystemTools::Value value;
};

const QString toolKey = "SOFTWARE\\Microsoft\\Shared Tools\\MSINFO";

TEST_F(SystemToolsTest, ADesktopWithoutAToolHasNoKey)
{
    EXPECT_FALSE(open(toolKey));
}

TEST_F(SystemToolsTest, TheToolOfTheDesktopIsTheValueOfItsKey)
{
    install("hardinfo");
    ASSERT_TRUE(open(toolKey));
    QByteArray buffer(1024, 'x');
    ASSERT_TRUE(tools.queryValue(key, "PATH", buffer, value));
    EXPECT_EQ(value.type, quint32(SystemTools::Text));
    EXPECT_EQ(buffer.left(value.length), folder.filePath("hardinfo").toLocal8Bit() + '\0');
    EXPECT_FALSE(tools.queryValue(key, "MSINFO", buffer, value));
}

TEST_F(SystemToolsTest, AValueLongerThanTheBufferIsNotRead)
{
    install("hardinfo");
    ASSERT_TRUE(open(toolKey));
    const auto length = folder.filePath("hardinfo").size() + 1;
    QByteArray exact(length, 'x');
    QByteArray tooShort(length - 1, 'x');
    EXPECT_TRUE(tools.queryValue(key, "PATH", exact, value));
    EXPECT_FALSE(tools.queryValue(key, "PATH", tooShort, value));
}

TEST_F(SystemToolsTest, NoOtherKeyExists)
{
    install("hardinfo");
    EXPECT_FALSE(open("SOFTWARE\\Microsoft\\Shared Tools Location"));
    QByteArray buffer(1024, 'x');
    EXPECT_FALSE(tools.queryValue(key, "PATH", buffer, value));
}

TEST_F(SystemToolsTest, AProgramThatDoesNotExistCanNotBeStarted)
{
    EXPECT_THROW(tools.start(folder.filePath("none")), RuntimeFailure);
}

} // namespace

#endif
