// SPDX-License-Identifier: GPL-3.0-or-later
#include "failure.h"
#include "paths.h"
#include "printing.h"
#include "text_file.h"
#include "watched_sync.h"

#include <QDir>
#include <QDirIterator>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <csignal>
#include <sys/resource.h>

using namespace orb;

namespace {

/// While it lives no file of this process grows beyond `bytes`, as on a disk that is full.
class FullDisk {
public:
    explicit FullDisk(rlim_t bytes) : handler_(std::signal(SIGXFSZ, SIG_IGN))
    {
        getrlimit(RLIMIT_FSIZE, &before_);
        const rlimit limit{bytes, before_.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FullDisk()
    {
        setrlimit(RLIMIT_FSIZE, &before_);
        std::signal(SIGXFSZ, handler_);
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

private:
    rlimit before_{};
    void (*handler_)(int);
};

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

/// A program that is installed, and the home of a user who never started it.
class InstalledPathsTest : public testing::Test {
protected:
    InstalledPathsTest()
    {
        qputenv("XDG_DATA_HOME", home.filePath("data").toUtf8());
        write(executable.filePath("orb.mdb"), "empty tables");
        QDir(executable.path()).mkdir("examples");
        write(executable.filePath("examples/stair.a"), "points");
    }
    ~InstalledPathsTest() override { qunsetenv("XDG_DATA_HOME"); }

    static void write(const QString& path, const QByteArray& content)
    {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << path.toStdString();
        file.write(content);
    }
    static QByteArray read(const QString& path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no such file");
    }
    void makeDatabaseReadOnly() const
    {
        ASSERT_TRUE(QFile::setPermissions(executable.filePath("orb.mdb"), QFile::ReadOwner | QFile::ReadOther));
    }
    QString own(const QString& name) const { return home.filePath("data/orb/" + name); }
    static int numberOf(const std::function<void()>& action)
    {
        try {
            action();
        } catch (const RuntimeFailure& failure) {
            return failure.number();
        }
        return 0;
    }
    /// All files of the user's folder.
    QStringList ownFiles() const
    {
        QStringList files;
        QDirIterator all(own(""), QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
        while (all.hasNext())
            files << QDir(own("")).relativeFilePath(all.next());
        files.sort();
        return files;
    }

    QTemporaryDir executable;
    QTemporaryDir home;
};

TEST_F(InstalledPathsTest, WhereTheExecutablesFolderCanBeWrittenEverythingStandsThere)
{
    const Paths paths = Paths::forUser(executable.path());
    paths.createOwnDirectory();

    EXPECT_EQ(paths.applicationDirectory(), executable.path());
    EXPECT_EQ(paths.inApplication("\\orb.mdb"), executable.path() + "\\orb.mdb");
    EXPECT_EQ(paths.toWrite("\\test.a"), executable.path() + "\\test.a");
    EXPECT_FALSE(QFileInfo::exists(home.filePath("data")));
}

TEST_F(InstalledPathsTest, AFolderThatCanBeWrittenNeedsNoDatabaseToBeInForce)
{
    ASSERT_TRUE(QFile::remove(executable.filePath("orb.mdb")));
    EXPECT_EQ(Paths::forUser(executable.path()).applicationDirectory(), executable.path());
}

TEST_F(InstalledPathsTest, WithAReadOnlyDatabaseTheUsersFolderIsTheOneToWriteTo)
{
    makeDatabaseReadOnly();
    const Paths paths = Paths::forUser(executable.path());

    EXPECT_EQ(paths.applicationDirectory(), home.filePath("data/orb"));
    EXPECT_EQ(realPath(paths.toWrite("\\test.a")), own("test.a"));
    EXPECT_FALSE(QFileInfo::exists(own(""))) << "nothing is created before it is asked for";
}

TEST_F(InstalledPathsTest, AFolderThatCanNotBeWrittenLeavesTheUsersFolderToWriteTo)
{
    const QString none = executable.filePath("none"); // can't be written by anyone, the administrator included
    EXPECT_EQ(Paths::forUser(none).applicationDirectory(), home.filePath("data/orb"));
}

TEST_F(InstalledPathsTest, TheFirstStartCopiesTheDatabaseAndTheExamples)
{
    makeDatabaseReadOnly();
    const Paths paths = Paths::forUser(executable.path());

    paths.createOwnDirectory();

    EXPECT_EQ(ownFiles(), (QStringList{"examples/stair.a", "orb.mdb"}));
    EXPECT_EQ(read(own("orb.mdb")), "empty tables");
    EXPECT_EQ(read(own("examples/stair.a")), "points");
    EXPECT_TRUE(QFile::permissions(own("orb.mdb")) & QFile::WriteOwner);
    const auto others = QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther | QFile::ExeOther;
    EXPECT_FALSE(QFile::permissions(own("")) & others);
    EXPECT_EQ(realPath(paths.inApplication("\\orb.mdb")), own("orb.mdb"));
}

TEST_F(InstalledPathsTest, LaterStartsOverwriteNothingAndBringNothingBack)
{
    makeDatabaseReadOnly();
    const Paths paths = Paths::forUser(executable.path());
    paths.createOwnDirectory();
    write(own("orb.mdb"), "logs");
    ASSERT_TRUE(QFile::remove(own("examples/stair.a")));
    ASSERT_TRUE(QFile::setPermissions(own(""), QFile::permissions(own("")) | QFile::ReadOther));

    paths.createOwnDirectory();

    EXPECT_EQ(read(own("orb.mdb")), "logs");
    EXPECT_EQ(ownFiles(), QStringList{"orb.mdb"});
    EXPECT_TRUE(QFile::permissions(own("")) & QFile::ReadOther) << "the user's choice";
}

TEST_F(InstalledPathsTest, AStartAfterAnUnfinishedFirstOneCopiesWhatIsMissing)
{
    makeDatabaseReadOnly();
    const Paths paths = Paths::forUser(executable.path());
    QDir().mkpath(own("examples"));
    write(own("examples/stair.a"), "edited");
    write(executable.filePath("examples/ramp.a"), "more points");
    const auto permissions = QFile::permissions(own("examples")) | QFile::ReadOther;
    ASSERT_TRUE(QFile::setPermissions(own("examples"), permissions));

    paths.createOwnDirectory();

    EXPECT_EQ(ownFiles(), (QStringList{"examples/ramp.a", "examples/stair.a", "orb.mdb"}));
    EXPECT_EQ(read(own("examples/stair.a")), "edited");
    EXPECT_EQ(QFile::permissions(own("examples")), permissions) << "the user's choice";
}

TEST_F(InstalledPathsTest, ACopyHasItsNameOnlyOnceTheDiskHoldsIt)
{
    makeDatabaseReadOnly();
    QStringList synced;
    const WatchedSync watch([&](const QString& path) {
        const QString name =
            QDir(home.filePath("data")).relativeFilePath(path).replace(QRegularExpression("\\.\\w{6}$"), ".new");
        synced << QString("%1: %2").arg(name, ownFiles().filter(QRegularExpression("(\\.a|\\.mdb)$")).join(' '));
    });

    Paths::forUser(executable.path()).createOwnDirectory();

    EXPECT_EQ(synced, (QStringList{"orb/examples/stair.a.new: ", "orb/examples: examples/stair.a",
                                   "orb/orb.mdb.new: examples/stair.a", "orb: examples/stair.a orb.mdb"}));
}

TEST_F(InstalledPathsTest, AFullDiskLeavesNoPartOfAFileAndTheNextStartCompletesTheCopy)
{
    for (const int size : {10, 100'000}) { // of which one write is buffered, the other is not
        const QByteArray content(size, 'x');
        QFile::remove(executable.filePath("orb.mdb"));
        QFile::remove(own("orb.mdb"));
        write(executable.filePath("orb.mdb"), content);
        makeDatabaseReadOnly();
        const Paths paths = Paths::forUser(executable.path());
        {
            const FullDisk full(8);
            EXPECT_EQ(numberOf([&] { paths.createOwnDirectory(); }), failure::PathFileAccessError) << size;
        }
        EXPECT_EQ(ownFiles(), QStringList{"examples/stair.a"}) << size;

        paths.createOwnDirectory();

        EXPECT_EQ(ownFiles(), (QStringList{"examples/stair.a", "orb.mdb"})) << size;
        EXPECT_TRUE(read(own("orb.mdb")) == content) << size;
    }
}

TEST_F(InstalledPathsTest, AFileThatCanNotBeReadToItsEndIsNotCopiedBeforeItCan)
{
    makeDatabaseReadOnly();
    const Paths paths = Paths::forUser(executable.path());
    const QString example = executable.filePath("examples/stair.a");
    ASSERT_TRUE(QFile::remove(example) && QFile::link("/proc/self/mem", example)); // its first byte is an error
    EXPECT_EQ(numberOf([&] { paths.createOwnDirectory(); }), failure::PathFileAccessError);
    EXPECT_EQ(ownFiles(), QStringList());

    ASSERT_TRUE(QFile::remove(example));
    write(example, "points");
    paths.createOwnDirectory();

    EXPECT_EQ(ownFiles(), (QStringList{"examples/stair.a", "orb.mdb"}));
    EXPECT_EQ(read(own("examples/stair.a")), "points");
}

TEST_F(InstalledPathsTest, WhatAKilledStartLeftIsNotTakenForACopy)
{
    makeDatabaseReadOnly();
    QDir().mkpath(own(""));
    write(own("orb.mdb.x7Yz12"), "empty ta");

    Paths::forUser(executable.path()).createOwnDirectory();

    EXPECT_EQ(read(own("orb.mdb")), "empty tables");
    EXPECT_EQ(read(own("examples/stair.a")), "points");
}

TEST_F(InstalledPathsTest, WithoutExamplesToCopyThereIsNoFolderForThem)
{
    makeDatabaseReadOnly();
    ASSERT_TRUE(QDir(executable.filePath("examples")).removeRecursively());

    Paths::forUser(executable.path()).createOwnDirectory();

    EXPECT_EQ(ownFiles(), QStringList{"orb.mdb"});
    EXPECT_FALSE(QFileInfo::exists(own("examples")));
}

TEST_F(InstalledPathsTest, TheExecutablesFolderIsNeverCreated)
{
    Paths(executable.filePath("none")).createOwnDirectory();
    EXPECT_FALSE(QFileInfo::exists(executable.filePath("none")));
}

TEST_F(InstalledPathsTest, WithoutADatabaseToCopyTheMissingOneIsThatBesideTheExecutable)
{
    const Paths paths(executable.path(), own("."));
    ASSERT_TRUE(QFile::remove(executable.filePath("orb.mdb")));

    paths.createOwnDirectory();

    EXPECT_EQ(ownFiles(), QStringList{"examples/stair.a"});
    EXPECT_EQ(paths.inApplication("\\orb.mdb"), executable.path() + "\\orb.mdb");
}

TEST_F(InstalledPathsTest, AFolderThatCanNotBeCreatedIsAPathError)
{
    makeDatabaseReadOnly();
    write(home.filePath("data"), "a file in the way");
    EXPECT_EQ(numberOf([&] { Paths::forUser(executable.path()).createOwnDirectory(); }), failure::PathFileAccessError);
}

TEST_F(InstalledPathsTest, AFileOfTheUsersFolderIsReadBeforeTheOneBesideTheExecutable)
{
    const Paths paths(executable.path(), own("."));
    write(executable.filePath("orbCommands.dat"), "all");
    QDir(executable.path()).mkdir("ICON");
    write(executable.filePath("ICON/Save.png"), "disk");
    QDir().mkpath(own("icon"));
    write(own("icon/save.PNG"), "own disk");
    write(executable.filePath("ICON/Open.png"), "folder");

    EXPECT_EQ(read(realPath(paths.inApplication("\\ICON\\Save.png"))), "own disk");
    EXPECT_EQ(read(realPath(paths.inApplication("\\icon\\open.png"))), "folder");
    EXPECT_EQ(read(realPath(paths.inApplication("\\orbCommands.dat"))), "all");
    write(own("orbcommands.dat"), "some");
    EXPECT_EQ(read(realPath(paths.inApplication("\\orbCommands.dat"))), "some");
}

TEST_F(InstalledPathsTest, TheFolderOfTheFileDialogsIsTheUsersOwn)
{
    makeDatabaseReadOnly();
    const Paths paths = Paths::forUser(executable.path());
    paths.createOwnDirectory();
    EXPECT_EQ(QDir(realPath(paths.inApplication("\\"))), QDir(own("")));
}

} // namespace
