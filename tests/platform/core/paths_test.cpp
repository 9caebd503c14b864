// SPDX-License-Identifier: GPL-3.0-or-later
#include "failure.h"
#include "paths.h"
#include "text_file.h"

#include <QDir>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace orb;

namespace {

QByteArray content(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no such file");
}

int openFailure(const QString& path)
{
    try {
        OutputFile file(path);
    } catch (const RuntimeFailure& failure) {
        return failure.number();
    }
    return 0;
}

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
    EXPECT_THROW(deleteFile(folder.filePath("a")), RuntimeFailure);
}

TEST(OutputFileTest, LinesEndInCarriageReturnAndLineFeedAndReplaceWhatStoodThere)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("log.csv");
    OutputFile(path).write(std::string(1000, 'x'));

    OutputFile file(path);
    file.writeLine(QStringLiteral("No.,Time"));
    file.writeLine(std::string_view("0,Ä"));
    file.close();

    EXPECT_EQ(content(path), "No.,Time\r\n0,Ä\r\n");
}

TEST(OutputFileTest, EachWayOfNotOpeningHasItsNumber)
{
    const QTemporaryDir folder;
    EXPECT_EQ(openFailure(folder.path()), failure::PathFileAccessError);
    EXPECT_EQ(openFailure(folder.filePath("none/log.csv")), failure::PathNotFound);
    EXPECT_EQ(openFailure(""), failure::BadFileName);
}

TEST(OutputFileTest, AFullDiskIsTold)
{
    if (!QFile::exists("/dev/full"))
        GTEST_SKIP() << "no device that is always full";
    OutputFile file("/dev/full");
    file.writeLine(QStringLiteral("No.,Time"));
    try {
        file.close();
        FAIL();
    } catch (const RuntimeFailure& failure) {
        EXPECT_EQ(failure.number(), failure::DiskFull);
    }
}

} // namespace
