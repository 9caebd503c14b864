// SPDX-License-Identifier: GPL-3.0-or-later
#include "durable_file.h"

#include "failure.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace orb;

namespace {

class DurableFileTest : public testing::Test {
protected:
    QString create(const QString& name, const QByteArray& text)
    {
        QFile file(folder.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(text) == text.size());
        return file.fileName();
    }

    static QByteArray contentOf(const QString& path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : "none";
    }

    QTemporaryDir folder;
};

TEST_F(DurableFileTest, ARenamedFileHasItsNewNameAlone)
{
    const QString from = create("a", "1");

    EXPECT_TRUE(renameDurably(from, folder.filePath("b")));

    EXPECT_EQ(contentOf(folder.filePath("b")), "1");
    EXPECT_FALSE(QFile::exists(from));
}

TEST_F(DurableFileTest, ANameThatIsTakenStays)
{
    const QString from = create("a", "1");
    const QString taken = create("b", "2");

    EXPECT_FALSE(renameDurably(from, taken));

    EXPECT_EQ(contentOf(from), "1");
    EXPECT_EQ(contentOf(taken), "2");
}

TEST_F(DurableFileTest, AFileThatIsNotThereCanBeNeitherWaitedForNorRenamed)
{
    const QString none = folder.filePath("none");
    const auto numberOf = [](const std::function<void()>& action) {
        try {
            action();
        } catch (const RuntimeFailure& failure) {
            return failure.number();
        }
        return 0;
    };
    EXPECT_EQ(numberOf([&] { syncFile(none); }), failure::DeviceIOError);
    EXPECT_EQ(numberOf([&] { renameDurably(none, folder.filePath("b")); }), failure::DeviceIOError);
    EXPECT_EQ(numberOf([&] { syncFile(create("a", "1")); }), 0);
}

} // namespace
