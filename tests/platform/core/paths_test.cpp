// SPDX-License-Identifier: GPL-3.0-or-later
#include "failure.h"
#include "paths.h"
#include "text_file.h"

#include <QDir>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace orb;

namespace {

TEST(PathsTest, TheApplicationDirectoryWithALiteralFindsTheFileInAnyLetterCase)
{
    const QTemporaryDir folder;
    QDir(folder.path()).mkdir("ICON");
    OutputFile(folder.filePath("ICON/B4STOP.JPG")).close();
    const Paths paths(folder.path());

    EXPECT_EQ(realPath(paths.inApplication("\\icon\\b4stop.jpg")), folder.filePath("ICON/B4STOP.JPG"));
    EXPECT_TRUE(fileExists(paths.inApplication("\\ICON\\B4STOP.JPG")));
    EXPECT_FALSE(fileExists(paths.inApplication("\\ICON\\B5STOP.JPG")));
    EXPECT_FALSE(fileExists(paths.inApplication("\\ICON")));
}

TEST(PathsTest, AFileThatIsNotThereWouldBeCreatedUnderTheNameAsWritten)
{
    const QTemporaryDir folder;
    QDir(folder.path()).mkdir("Logs");
    EXPECT_EQ(realPath(folder.path() + "\\LOGS\\Test.A"), folder.filePath("Logs/Test.A"));
}

TEST(PathsTest, OfTwoNamesThatDifferInCaseTheOneAsWrittenIsFound)
{
    const QTemporaryDir folder;
    for (const char* name : {"A.JPG", "a.JPG", "a.jpg"}) {
        QFile file(folder.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    }
    for (const char* name : {"A.JPG", "a.JPG", "a.jpg"})
        EXPECT_EQ(realPath(folder.filePath(name)), folder.filePath(name));
}

TEST(PathsTest, TheStagingFolderIsTheUsersOwn)
{
    createFolder("c:\\temp");

    EXPECT_TRUE(folderExists("C:\\TEMP"));
    const QString path = realPath("c:\\temp\\ORB.bmp");
    EXPECT_TRUE(path.startsWith(qEnvironmentVariable("XDG_CACHE_HOME"))) << path.toStdString();
    EXPECT_TRUE(path.endsWith("/ORB.bmp"));
    const auto others = QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther | QFile::ExeOther;
    EXPECT_FALSE(QFile::permissions(realPath("c:\\temp")) & others);
    EXPECT_FALSE(realPath("c:\\temperature\\a").contains("cache"));
}

TEST(PathsTest, DeletingAFileThatIsNotThereIsFileNotFound)
{
    const QTemporaryDir folder;
    OutputFile(folder.filePath("a")).close();
    deleteFile(folder.filePath("a"));
    EXPECT_FALSE(fileExists(folder.filePath("a")));
    try {
        deleteFile(folder.filePath("a"));
        FAIL();
    } catch (const RuntimeFailure& failure) {
        EXPECT_EQ(failure.number(), failure::FileNotFound);
    }
}

} // namespace
