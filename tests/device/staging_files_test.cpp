// SPDX-License-Identifier: GPL-3.0-or-later
#include "staging_files.h"

#include "test_bitmap.h"

#include "orb_ctrl.h"
#include "paths.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gmock/gmock.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unistd.h>

#include <thread>

namespace orb {

namespace {

using testing::ElementsAre;

constexpr qint64 limit = 100;

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no such file");
}

} // namespace

/// The staging folder, made anew for each test.
class StagingFilesTest : public testing::Test {
protected:
    StagingFilesTest() { reset(); }
    ~StagingFilesTest() override { reset(); }

    void reset()
    {
        QFile::remove(folder); // a link or a file in its place
        QDir(folder).removeRecursively();
    }
    /// Puts a file into the folder by other means than the staging files' own.
    void putFile(const QByteArray& content)
    {
        createFolder(staging::folder);
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
    }
    std::string read() const
    {
        const auto content = readStagingFile(literal, limit);
        return content ? content->toStdString() : "nothing";
    }
    static int modeOf(const QString& name)
    {
        struct stat status {};
        return ::stat(QFile::encodeName(name).constData(), &status) == 0 ? static_cast<int>(status.st_mode & 07777)
                                                                         : -1;
    }

    const QString literal = staging::programUpload;
    const QString folder = realPath(staging::folder);
    const QString path = folder + QStringLiteral("/ORBProgUpload.b");
    const QByteArray nativePath = QFile::encodeName(path);
    QTemporaryDir elsewhere;
    QString target = elsewhere.filePath(QStringLiteral("target"));
};

TEST_F(StagingFilesTest, AFileIsReadAsItWasWritten)
{
    ASSERT_TRUE(writeStagingFile(literal, QByteArray("a\n\0b", 4)));
    EXPECT_EQ(read(), std::string("a\n\0b", 4));
    ASSERT_TRUE(writeStagingFile(literal, "short"));
    EXPECT_EQ(contentOf(path), "short");
    ASSERT_TRUE(writeStagingFile(literal, {}));
    EXPECT_EQ(read(), "");
}

TEST_F(StagingFilesTest, AMissingFileIsNotRead)
{
    EXPECT_EQ(read(), "nothing");
}

TEST_F(StagingFilesTest, AFileBeyondTheLimitIsNotRead)
{
    putFile(QByteArray(limit, 'x'));
    EXPECT_EQ(read(), std::string(limit, 'x'));
    putFile(QByteArray(limit + 1, 'x'));
    EXPECT_EQ(read(), "nothing");
}

TEST_F(StagingFilesTest, NoTemporaryFileIsLeft)
{
    ASSERT_TRUE(writeStagingFile(literal, "new"));
    EXPECT_THAT(QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot),
                ElementsAre("ORBProgUpload.b"));
}

TEST_F(StagingFilesTest, AReaderOfTheOldFileKeepsTheOldContent)
{
    putFile("old");
    QFile old(path);
    ASSERT_TRUE(old.open(QIODevice::ReadOnly));
    ASSERT_TRUE(writeStagingFile(literal, "new"));
    EXPECT_EQ(old.readAll(), "old");
    EXPECT_EQ(contentOf(path), "new");
}

TEST_F(StagingFilesTest, TheFolderIsCreatedForItsUserAlone)
{
    ASSERT_TRUE(writeStagingFile(literal, "new"));
    EXPECT_EQ(modeOf(folder), 0700);
}

TEST_F(StagingFilesTest, AFolderThatIsOpenToOthersIsClosedToThem)
{
    putFile("old");
    QFile::setPermissions(folder, QFile::Permissions::fromInt(0x7777));
    EXPECT_EQ(read(), "old");
    EXPECT_EQ(modeOf(folder), 0700);
    QFile::setPermissions(folder, QFile::Permissions::fromInt(0x7777));
    ASSERT_TRUE(writeStagingFile(literal, "new"));
    EXPECT_EQ(modeOf(folder), 0700);
}

TEST_F(StagingFilesTest, ALinkIsNeitherReadNorFollowedByAWrite)
{
    createFolder(staging::folder);
    ASSERT_TRUE(writeStagingFile(literal, "")); // makes the folder
    QFile::remove(path);
    QFile file(target);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write("secret") && file.flush());
    ASSERT_TRUE(QFile::link(target, path));
    EXPECT_EQ(read(), "nothing");
    ASSERT_TRUE(writeStagingFile(literal, "new"));
    EXPECT_EQ(contentOf(target), "secret");
    EXPECT_EQ(read(), "new");
}

TEST_F(StagingFilesTest, ALinkToNothingIsReplaced)
{
    createFolder(staging::folder);
    ASSERT_TRUE(QFile::link(target, path));
    ASSERT_TRUE(writeStagingFile(literal, "new"));
    EXPECT_FALSE(QFile::exists(target));
    EXPECT_EQ(read(), "new");
}

TEST_F(StagingFilesTest, AFolderThatIsALinkIsNotUsed)
{
    putFile("old");
    ASSERT_TRUE(QDir().rename(folder, target));
    QFile::setPermissions(target, QFile::Permissions::fromInt(0x7755));
    const int mode = modeOf(target);
    ASSERT_TRUE(QFile::link(target, folder));
    EXPECT_EQ(read(), "nothing");
    EXPECT_FALSE(writeStagingFile(literal, "new"));
    EXPECT_EQ(contentOf(target + QStringLiteral("/ORBProgUpload.b")), "old");
    EXPECT_EQ(modeOf(target), mode);
    ASSERT_TRUE(QDir(target).removeRecursively()); // now the link leads nowhere
    EXPECT_FALSE(writeStagingFile(literal, "new"));
    EXPECT_FALSE(QFile::exists(target));
}

TEST_F(StagingFilesTest, AFileInThePlaceOfTheFolderIsNotUsed)
{
    QDir().mkpath(QFileInfo(folder).path());
    QFile file(folder);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    EXPECT_EQ(read(), "nothing");
    EXPECT_FALSE(writeStagingFile(literal, "new"));
}

TEST_F(StagingFilesTest, AFolderInThePlaceOfAFileIsLeftAsItIs)
{
    createFolder(staging::folder);
    ASSERT_TRUE(QDir().mkpath(path + QStringLiteral("/inner")));
    EXPECT_EQ(read(), "nothing");
    EXPECT_FALSE(writeStagingFile(literal, "new"));
    EXPECT_TRUE(QFile::exists(path + QStringLiteral("/inner")));
}

TEST_F(StagingFilesTest, APipeIsNotReadAndIsReplaced)
{
    createFolder(staging::folder);
    ASSERT_EQ(::mkfifo(nativePath.constData(), 0600), 0);
    std::thread writer([this] { // a reader of the pipe would get this and go on
        const int descriptor = ::open(nativePath.constData(), O_WRONLY);
        EXPECT_EQ(::write(descriptor, "pipe", 4), 4);
        ::close(descriptor);
    });
    EXPECT_EQ(read(), "nothing");
    const int reader = ::open(nativePath.constData(), O_RDONLY | O_NONBLOCK); // lets the writer end
    writer.join();
    ::close(reader);
    ASSERT_TRUE(writeStagingFile(literal, "new"));
    EXPECT_EQ(read(), "new");
}

TEST_F(StagingFilesTest, ADeviceIsNotReadAndIsReplaced)
{
    createFolder(staging::folder);
    if (::mknod(nativePath.constData(), S_IFCHR | 0600, makedev(1, 3)) != 0)
        GTEST_SKIP() << "this user can't make a device";
    EXPECT_EQ(read(), "nothing");
    ASSERT_TRUE(writeStagingFile(literal, "new"));
    EXPECT_EQ(read(), "new");
}

TEST_F(StagingFilesTest, AFileThatOthersCanWriteToIsNotReadAndIsReplaced)
{
    putFile("old");
    ASSERT_EQ(::chmod(nativePath.constData(), 0602), 0);
    EXPECT_EQ(read(), "nothing");
    ASSERT_TRUE(writeStagingFile(literal, "new"));
    EXPECT_EQ(read(), "new");
}

TEST_F(StagingFilesTest, AFileOfAnotherUserIsNotReadAndIsReplaced)
{
    putFile("old");
    if (::chown(nativePath.constData(), 65534, 65534) != 0)
        GTEST_SKIP() << "this user can't give files away";
    EXPECT_EQ(read(), "nothing");
    ASSERT_TRUE(writeStagingFile(literal, "new"));
    EXPECT_EQ(read(), "new");
}

TEST_F(StagingFilesTest, AFolderOfAnotherUserIsNotUsed)
{
    putFile("old");
    if (::chown(QFile::encodeName(folder).constData(), 65534, 65534) != 0)
        GTEST_SKIP() << "this user can't give folders away";
    EXPECT_EQ(read(), "nothing");
    EXPECT_FALSE(writeStagingFile(literal, "new"));
    EXPECT_EQ(contentOf(path), "old");
}

TEST_F(StagingFilesTest, ABitmapIsWholeWhenItHasTheLengthThatItsHeaderStates)
{
    const QByteArray bitmap = testBitmap(7, 5);
    EXPECT_TRUE(isBitmap(bitmap));
    EXPECT_FALSE(isBitmap(bitmap + '\0'));
    EXPECT_FALSE(isBitmap(bitmap.chopped(1)));
    EXPECT_FALSE(isBitmap(bitmap.left(54)));
    EXPECT_FALSE(isBitmap("BM"));
    EXPECT_FALSE(isBitmap({}));
    EXPECT_FALSE(isBitmap(QByteArray(bitmap).replace(0, 2, "MB")));
}

TEST_F(StagingFilesTest, ABitmapThatHasFewerPixelsThanItsHeaderStatesIsNotWhole)
{
    const QByteArray bitmap = testBitmap(8, 5);
    EXPECT_TRUE(isBitmap(withNumber(bitmap, 18, 7))) << "a row is filled up to whole words";
    EXPECT_FALSE(isBitmap(withNumber(bitmap, 18, 9)));
    EXPECT_FALSE(isBitmap(withNumber(bitmap, 22, 6)));
    EXPECT_FALSE(isBitmap(withNumber(bitmap, 22, -6)));
    EXPECT_TRUE(isBitmap(withNumber(bitmap, 22, -5))) << "from the top down";
    EXPECT_FALSE(isBitmap(withNumber<quint16>(bitmap, 28, 32)));
    EXPECT_FALSE(isBitmap(withNumber(bitmap, 10, 55))) << "the pixels begin too late";
    EXPECT_FALSE(isBitmap(withNumber(bitmap, 10, 53))) << "or in the headers";
}

TEST_F(StagingFilesTest, ABitmapWithoutASideOrWithATooLongOneIsNotTaken)
{
    const QByteArray bitmap = testBitmap(8, 5);
    for (const int side : {0, -1, 4097, 60'000, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()})
        EXPECT_FALSE(isBitmap(withNumber(bitmap, 18, side))) << side;
    for (const int side : {0, 4097, -4097, 60'000, std::numeric_limits<int>::min()})
        EXPECT_FALSE(isBitmap(withNumber(bitmap, 22, side))) << side;
    EXPECT_TRUE(isBitmap(testBitmap(4096, 1)));
    EXPECT_TRUE(isBitmap(testBitmap(1, 4096)));
}

TEST_F(StagingFilesTest, ABitmapThatCanNotBeShownIsNotTaken)
{
    const QByteArray bitmap = testBitmap(8, 5);
    EXPECT_FALSE(isBitmap(withNumber(bitmap, 14, 39))) << "the size of the header";
    EXPECT_FALSE(isBitmap(withNumber<quint16>(bitmap, 26, 2))) << "planes";
    EXPECT_FALSE(isBitmap(withNumber<quint16>(bitmap, 28, 17))) << "bits of a pixel";
    EXPECT_FALSE(isBitmap(withNumber(bitmap, 30, 9))) << "compression";
}

TEST_F(StagingFilesTest, ABitmapWithATableOfColorsIsTaken)
{
    QImage image(9, 5, QImage::Format_Indexed8);
    image.setColorTable({qRgb(0, 0, 0), qRgb(255, 0, 0)});
    image.fill(1);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    ASSERT_TRUE(image.save(&buffer, "BMP"));
    EXPECT_TRUE(isBitmap(bytes));
    EXPECT_FALSE(isBitmap(withNumber(bytes, 46, 100'000))) << "a table of so many colors";
}

} // namespace orb
