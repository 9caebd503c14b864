// SPDX-License-Identifier: GPL-3.0-or-later
#include "database_fixture.h"

#include <QCryptographicHash>
#include <QDir>

#include <sys/stat.h>
#include <unistd.h>

using namespace orb;

namespace {

/// Files that are no usable database.
class DatabaseFileTest : public DatabaseTest {
protected:
    DatabaseFileTest() { workspace.close(); }

    void write(const QByteArray& bytes) const
    {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        file.write(bytes);
    }

    QByteArray read() const
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("unreadable");
    }

    std::string opening()
    {
        const std::string failure =
            failureIn([&] { workspace.openDatabase(path).execute("delete * from DataMeasure"); });
        return QString::fromStdString(failure).remove(folder.path()).toStdString();
    }

    QStringList files() const { return QDir(folder.path()).entryList(QDir::Files); }

    /// Opens, and expects that the file keeps its bytes, and that no other file is created.
    std::string openingWithoutAChange()
    {
        const QByteArray before = read();
        const std::string failure = opening();
        EXPECT_EQ(read(), before);
        EXPECT_EQ(files(), QStringList("orb.mdb"));
        return failure;
    }
};

TEST_F(DatabaseFileTest, AMissingFileIsNotCreated)
{
    QFile::remove(path);
    EXPECT_EQ(opening(), "3024: Database not found: /orb.mdb");
    EXPECT_EQ(files(), QStringList());
}

TEST_F(DatabaseFileTest, AnEmptyFileIsNoDatabase)
{
    write("");
    EXPECT_EQ(openingWithoutAChange(), "3343: Unrecognized database format: /orb.mdb");
}

TEST_F(DatabaseFileTest, AFileOfSomethingElseIsNoDatabase)
{
    write(QByteArray(5000, 'x'));
    EXPECT_EQ(openingWithoutAChange(), "3343: Unrecognized database format: /orb.mdb");
    write("SQLite format 3");
    EXPECT_EQ(openingWithoutAChange(), "3343: Unrecognized database format: /orb.mdb");
}

TEST_F(DatabaseFileTest, AHeaderWithGarbageAfterItIsNoDatabase)
{
    write(QByteArray("SQLite format 3\0", 16) + QByteArray(5000, 'x'));
    EXPECT_EQ(openingWithoutAChange(), "3343: file is not a database: /orb.mdb");
}

TEST_F(DatabaseFileTest, AFolderIsNoDatabase)
{
    QFile::remove(path);
    QDir().mkdir(path);
    EXPECT_EQ(opening(), "3343: Unrecognized database format: /orb.mdb");
}

TEST_F(DatabaseFileTest, AFileThatWasCutOffIsDamaged)
{
    const QByteArray whole = read();
    for (const qsizetype size : {whole.size() / 2, qsizetype{4096}, whole.size() - 4096}) {
        write(whole.left(size));
        EXPECT_EQ(openingWithoutAChange(), "3049: database disk image is malformed: /orb.mdb");
    }
}

TEST_F(DatabaseFileTest, ADatabaseWithOtherTablesOpensAndFailsAtTheStatement)
{
    QFile::remove(path);
    OtherProgram(path).run("create table x(y)");
    EXPECT_EQ(opening(), "3075: no such table: DataMeasure");
}

/// Runs as another user than root, for whom the modes of files have no effect.
class WithoutPrivileges {
public:
    explicit WithoutPrivileges(const QString& folder) : wasRoot_(geteuid() == 0)
    {
        if (!wasRoot_)
            return;
        EXPECT_EQ(chmod(folder.toUtf8(), 0755), 0);
        EXPECT_EQ(seteuid(65534), 0);
    }
    ~WithoutPrivileges()
    {
        if (wasRoot_) {
            EXPECT_EQ(seteuid(0), 0);
        }
    }
    WithoutPrivileges(const WithoutPrivileges&) = delete;
    WithoutPrivileges& operator=(const WithoutPrivileges&) = delete;

private:
    bool wasRoot_;
};

TEST_F(DatabaseFileTest, AFileThatCannotBeReadIsNotChanged)
{
    ASSERT_EQ(chmod(path.toUtf8(), 0), 0);
    std::string failure;
    {
        const WithoutPrivileges user(folder.path());
        failure = opening();
    }
    EXPECT_EQ(failure, "70: Permission denied: /orb.mdb");
    EXPECT_EQ(files(), QStringList("orb.mdb"));
}

TEST_F(DatabaseFileTest, AFileThatCannotBeWrittenIsReadOnly)
{
    ASSERT_EQ(chmod(path.toUtf8(), 0444), 0);
    const QByteArray before = read();
    std::string failure;
    {
        const WithoutPrivileges user(folder.path());
        failure = opening();
    }
    EXPECT_EQ(failure, "3027: Database is read-only: /orb.mdb");
    EXPECT_EQ(read(), before);
    EXPECT_EQ(files(), QStringList("orb.mdb"));
}

TEST_F(DatabaseFileTest, AFileInAFolderThatCannotBeWrittenIsReadOnly)
{
    ASSERT_EQ(chmod(path.toUtf8(), 0666), 0);
    ASSERT_EQ(chmod(folder.path().toUtf8(), 0555), 0);
    std::string failure;
    {
        const WithoutPrivileges user(folder.path());
        failure = opening();
    }
    EXPECT_EQ(failure, "3027: attempt to write a readonly database: /orb.mdb");
    ASSERT_EQ(chmod(folder.path().toUtf8(), 0755), 0);
}

TEST_F(DatabaseFileTest, APathThatLooksLikeAnAddressIsAFile)
{
    const QString old = QDir::currentPath();
    QDir::setCurrent(folder.path());
    EXPECT_TRUE(QFile::rename("orb.mdb", "file:orb.mdb?mode=memory"));
    EXPECT_TRUE(workspace.openDatabase("file:orb.mdb?mode=memory").openRecordset("select * from DataMeasure")->isEof());
    QDir::setCurrent(old);
}

TEST_F(DatabaseFileTest, AFileThatIsDamagedInTheMiddleFailsWhereItIsRead)
{
    database = workspace.openDatabase(path);
    addSamples(5000);
    workspace.close();
    QByteArray bytes = read();
    for (qsizetype page = 20; page < bytes.size() / 4096; ++page)
        bytes.replace(page * 4096, 64, QByteArray(64, '\xff'));
    write(bytes);

    database = workspace.openDatabase(path);
    const auto record = database.openRecordset("select * from DataMeasure");
    const auto walk = [&] {
        while (!record->isEof())
            record->moveNext();
    };
    EXPECT_EQ(failureIn(walk), "3049: database disk image is malformed");
    EXPECT_TRUE(record->isEof());
}

} // namespace
