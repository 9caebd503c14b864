// SPDX-License-Identifier: GPL-3.0-or-later
#include "database_fixture.h"
#include "directories.h"

#include <QDir>
#include <QProcess>

using namespace orb;

namespace {

/// The columns of a table in their order, each with its type.
class SchemaTest : public DatabaseTest {
protected:
    std::string columns(const QString& table)
    {
        const auto column = database.openRecordset("select name,type from pragma_table_info('" + table + "')");
        QStringList names;
        for (; !column->isEof(); column->moveNext())
            names << column->field(0).asText() + " " + column->field(1).asText();
        return names.join(", ").toStdString();
    }

    const std::string sample =
        "SeqNo INTEGER, RecTime TEXT, PVal1 TEXT, SVal1 TEXT, PVal2 TEXT, SVal2 TEXT, PVal3 TEXT, SVal3 TEXT, "
        "PVal4 TEXT, SVal4 TEXT, PVal5 TEXT, SVal5 TEXT, PVal6 TEXT, SVal6 TEXT, PVal7 TEXT, SVal7 TEXT, PVal8 TEXT, "
        "SVal8 TEXT, Reason3 TEXT, Comment TEXT, TimeTick TEXT, DiffLastTime TEXT";
};

TEST_F(SchemaTest, TheDatabaseHasSevenTables)
{
    EXPECT_EQ(rows("select name from sqlite_schema where type='table' order by name"),
              "DataMeasure\nDataMeasureD\nDataMeasureM\nORBSeqData\nORBSeqHead\nProgramChain\nProgramMemory\n");
}

TEST_F(SchemaTest, TheColumnsStandInTheirOrder)
{
    EXPECT_EQ(columns("DataMeasure"), sample);
    EXPECT_EQ(columns("DataMeasureD"), "LogID TEXT, " + sample);
    EXPECT_EQ(columns("DataMeasureM"), "LogID TEXT, LogDate TEXT, CHNum INTEGER, RecNum INTEGER");
    EXPECT_EQ(columns("ProgramMemory"), "MemCase TEXT, MemNo INTEGER, MemData TEXT");
    EXPECT_EQ(columns("ProgramChain"), "MemCase TEXT, ProgNo INTEGER, ProgData TEXT");
    EXPECT_EQ(columns("ORBSeqHead"), "Item TEXT, The Current Settings NUMERIC, Update NUMERIC");
    EXPECT_EQ(columns("ORBSeqData"), "Index INTEGER, DurTime REAL, Current REAL, SlewrateUp REAL, SlewrateDown REAL");
}

TEST_F(SchemaTest, ALogIsCopiedToTheSavedOnesAndBack)
{
    const QString names = "SeqNo, RecTime,PVal1,SVal1,PVal2,SVal2,PVal3,SVal3,PVal4,SVal4,PVal5,SVal5,PVal6,SVal6,"
                          "PVal7,SVal7,PVal8,SVal8,Reason3,Comment,TimeTick,DiffLastTime";
    database.execute("insert into DataMeasure values(0,'2024/01/31 10:15:09',1.0,2.00,3.0,4.0,5.0,6.0,7.0,8.0,9.0,"
                     "10.0,11.0,12.0,13.0,14.0,15.0,16.10,'r','c','t','d')");
    const std::string before = rows("select * from DataMeasure");
    database.execute("insert into DataMeasureD  select '20240131001' as logID, " + names + " from DataMeasure");
    database.execute("delete * from DataMeasure");
    database.execute("insert into DataMeasure  select " + names + " from DataMeasureD  where logid='20240131001'");
    EXPECT_EQ(rows("select * from DataMeasure"), before);
    EXPECT_EQ(before, "0|2024/01/31 10:15:09|1.0|2.00|3.0|4.0|5.0|6.0|7.0|8.0|9.0|10.0|11.0|12.0|13.0|14.0|15.0|16.10"
                      "|r|c|t|d\n");
}

TEST_F(SchemaTest, ASequenceCanBeInsertedTwice)
{
    for (int i = 0; i < 2; ++i) {
        database.execute("Insert into OrbseqHead values(\"Repeat Count(0:inf)\",3,3)");
        database.execute("insert into ORBSeqData values(1,0.0,0.0,1.6,0.00016)");
    }
    EXPECT_EQ(rows("select * from ORBSeqHead"), "Repeat Count(0:inf)|3|3\nRepeat Count(0:inf)|3|3\n");
    EXPECT_EQ(rows("select * from ORBSeqData"), "1|0|0|1.6|0.00016\n1|0|0|1.6|0.00016\n");
}

/// The rule that makes `orb.mdb` at build time, run in a temporary folder.
class DatabaseRuleTest : public testing::Test {
protected:
    bool make(const QString& statements)
    {
        QProcess cmake;
        cmake.setProcessChannelMode(QProcess::MergedChannels);
        cmake.start("cmake", {"-DSHELL=sqlite3", "-DSCHEMA=" + statements, "-DDATABASE=" + path, "-P",
                              sourceDirectory() + QStringLiteral("/resources/make_database.cmake")});
        return cmake.waitForFinished(-1) && cmake.exitCode() == 0;
    }

    QByteArray content() const
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("missing");
    }

    QTemporaryDir folder;
    const QString path = folder.filePath("bin/orb.mdb");
    const QString schema = sourceDirectory() + QStringLiteral("/resources/orb.sql");
};

TEST_F(DatabaseRuleTest, TheRuleMakesADatabaseThatOpens)
{
    ASSERT_TRUE(make(schema));
    EXPECT_EQ(QDir(folder.filePath("bin")).entryList(QDir::Files), QStringList("orb.mdb"));
    Workspace workspace([] { return QDateTime(); });
    workspace.openDatabase(path).execute("delete * from DataMeasure");
}

TEST_F(DatabaseRuleTest, TheRuleOverwritesNothing)
{
    QDir().mkpath(folder.filePath("bin"));
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("logs");
    file.close();
    EXPECT_TRUE(make(schema));
    EXPECT_EQ(content(), "logs");
}

TEST_F(DatabaseRuleTest, TheRuleLeavesNothingHalfMade)
{
    QFile broken(folder.filePath("broken.sql"));
    ASSERT_TRUE(broken.open(QIODevice::WriteOnly));
    broken.write("create table a(b);\nnonsense;\n");
    broken.close();
    EXPECT_FALSE(make(broken.fileName()));
    EXPECT_EQ(QDir(folder.filePath("bin")).entryList(QDir::Files), QStringList());
}

} // namespace
