// SPDX-License-Identifier: GPL-3.0-or-later
#include "save_refusal.h"

#include "printing.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace orb;

namespace {

constexpr qint64 plenty = 1'000'000'000;
constexpr qint64 unknown = -1;

class SaveRefusalTest : public testing::Test {
protected:
    QString create(const QString& name, qint64 size)
    {
        QFile file(folder.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.resize(size));
        return file.fileName();
    }

    QTemporaryDir folder;
    QString newFile = folder.filePath("log.csv");
};

TEST_F(SaveRefusalTest, AFileThatCanBeWrittenIsNotRefusedAndNothingIsLeftOfTheTrial)
{
    EXPECT_EQ(saveRefusal(newFile, plenty), "");
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden), QStringList());

    const QString existing = create("old.csv", 10);
    EXPECT_EQ(saveRefusal(existing, plenty), "");
    EXPECT_EQ(QFile(existing).size(), 10) << "its content stays until it is replaced";
}

TEST_F(SaveRefusalTest, AFolderIsNoFile)
{
    EXPECT_EQ(saveRefusal(folder.path(), plenty),
              "This is a folder. Please enter the name of a file:\n" + folder.path());
}

TEST_F(SaveRefusalTest, AFolderThatIsNotThereIsNamed)
{
    EXPECT_EQ(saveRefusal(folder.filePath("none/log.csv"), plenty),
              "There is no such folder:\n" + folder.filePath("none"));
}

TEST_F(SaveRefusalTest, AFolderThatTakesNoFileIsNamedWhateverItsPermissionsAre)
{
    EXPECT_EQ(saveRefusal("/proc/sys/log.csv", plenty), "No file can be written in this folder:\n/proc/sys");
}

TEST_F(SaveRefusalTest, AFileThatCannotBeOpenedIsNamed)
{
    const QString running = QCoreApplication::applicationFilePath(); // the system lets no one write it now
    EXPECT_EQ(saveRefusal(running, plenty), "This file can't be written:\n" + running);
}

TEST_F(SaveRefusalTest, ADiskWithNextToNoSpaceIsFull)
{
    EXPECT_EQ(saveRefusal(newFile, 0), "The disk is full:\n" + folder.path());
    EXPECT_EQ(saveRefusal(newFile, 65'535), "The disk is full:\n" + folder.path());
    EXPECT_EQ(saveRefusal(newFile, 65'536), "");
    EXPECT_EQ(saveRefusal(newFile, unknown), "");
}

TEST_F(SaveRefusalTest, TheSpaceOfTheFileThatIsReplacedCounts)
{
    EXPECT_EQ(saveRefusal(create("old.csv", 65'536), 0), "");
    EXPECT_EQ(saveRefusal(create("small.csv", 65'535), 0), "The disk is full:\n" + folder.path());
}

TEST_F(SaveRefusalTest, TheSpaceOfAFolderIsKnownWhereItHasADisk)
{
    EXPECT_GT(bytesAvailableIn(folder.path()), 0);
    EXPECT_EQ(bytesAvailableIn("/proc"), unknown);
    EXPECT_EQ(bytesAvailableIn(folder.filePath("none")), unknown);
}

} // namespace
