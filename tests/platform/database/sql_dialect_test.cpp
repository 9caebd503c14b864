// SPDX-License-Identifier: GPL-3.0-or-later
#include "failure.h"
#include "sql_dialect.h"

#include <gmock/gmock.h>
#include <sqlite3.h>

#include <random>

using namespace orb;

namespace {

std::string translated(std::string_view statement)
{
    return translateSql(statement);
}

std::string refusalOf(std::string_view statement)
{
    try {
        return "accepted: " + translateSql(statement);
    } catch (const RuntimeFailure& failure) {
        EXPECT_EQ(failure.number(), failure::StatementFailed);
        return failure.description().toStdString();
    }
}

TEST(SqlDialectTest, ADeleteLosesItsAsterisk)
{
    EXPECT_EQ(translated("delete * from DataMeasure"), "delete from DataMeasure");
    EXPECT_EQ(translated("DELETE*FROM x where a=1"), "DELETE FROM x where a=1");
    EXPECT_EQ(translated("delete from x"), "delete from x");
    EXPECT_EQ(translated("select * from x"), "select * from x");
}

TEST(SqlDialectTest, ATextInDoubleQuotesIsAText)
{
    EXPECT_EQ(translated(R"(select * from x where item like "*Repeat Count*")"),
              "select * from x where item like '*Repeat Count*'");
    EXPECT_EQ(translated(R"(select "it's ""so""")"), R"(select 'it''s "so"')");
    EXPECT_EQ(translated(R"(select "")"), "select ''");
    EXPECT_EQ(translated(R"(select x"41")"), "select x '41'"); // no blob comes of it
}

TEST(SqlDialectTest, TheWordIndexIsAName)
{
    EXPECT_EQ(translated("select * from ORBSeqData where index between 1 and 5 order by index asc"),
              "select * from ORBSeqData where [index] between 1 and 5 order by [index] asc");
    EXPECT_EQ(translated("select Index,INDEX from t"), "select [Index],[INDEX] from t");
    EXPECT_EQ(translated("select 'index', [index] from t"), "select 'index', [index] from t");
}

TEST(SqlDialectTest, TheKeywordIndexStays)
{
    EXPECT_EQ(translated("create index a on t (index)"), "create index a on t ([index])");
    EXPECT_EQ(translated("create unique index a on t (b)"), "create unique index a on t (b)");
    EXPECT_EQ(translated("drop index a"), "drop index a");
}

TEST(SqlDialectTest, ANumberThatStandsAloneInAValuesListIsAText)
{
    EXPECT_EQ(translated("insert into t values(1.2340,-0.0500, + 5 ,.5,1.20E-03)"),
              "insert into t values( '1.2340', '-0.0500', '+5' , '.5', '1.20E-03')");
    EXPECT_EQ(translated("insert into t (a,b)  values(1,2),(-3,'4')"),
              "insert into t (a,b) values( '1', '2'),( '-3','4')");
    EXPECT_EQ(translated("REPLACE INTO t VALUES(7)"), "REPLACE INTO t VALUES( '7')");
}

TEST(SqlDialectTest, AnyOtherNumberStays)
{
    EXPECT_EQ(translated("insert into t values(1+2,abs(-3),- -4,0x1F,null)"),
              "insert into t values(1+2,abs(-3),- -4,0x1F,null)");
    EXPECT_EQ(translated("insert into t select 1, 2 from (values(3))"), "insert into t select 1, 2 from (values(3))");
    EXPECT_EQ(translated("select * from t where a in (1,2)"), "select * from t where a in (1,2)");
    EXPECT_EQ(translated("values(1)"), "values(1)");
    EXPECT_EQ(translated("insert into t values(1) on conflict do update set a=(2)"),
              "insert into t values( '1') on conflict do update set a=(2)");
}

TEST(SqlDialectTest, AMistakeIsLeftToSqlite)
{
    EXPECT_EQ(translated("insert into t values(abc,1.2.3,12V,,"), "insert into t values(abc,1.2.3,12V,,");
    EXPECT_EQ(translated("nonsense 'never closed"), "nonsense 'never closed");
}

TEST(SqlDialectTest, ACommentBecomesABlank)
{
    EXPECT_EQ(translated("delete/* x;y */from-- z\nt"), "delete from t");
}

TEST(SqlDialectTest, OneSemicolonMayStandAtTheEndAndNothingAfterIt)
{
    EXPECT_EQ(translated("delete from t ; -- done\n /* really */ "), "delete from t");
    const std::string after = "Text after the end of the statement";
    EXPECT_EQ(refusalOf("delete from t; delete from u"), after);
    EXPECT_EQ(refusalOf("delete from t;;"), after);
    EXPECT_EQ(refusalOf("delete from t; /* hidden */ drop table u"), after);
    EXPECT_EQ(refusalOf("delete from t; -- hidden\ndrop table u"), after);
    EXPECT_EQ(refusalOf("insert into t values(1); drop table u --,2)"), after);
    EXPECT_EQ(refusalOf("insert into t values('a'); drop table u; --')"), after);
}

TEST(SqlDialectTest, ASemicolonInATextStays)
{
    EXPECT_EQ(translated(R"(insert into t values(';drop table u;--',"; x"))"),
              R"(insert into t values(';drop table u;--', '; x'))");
}

TEST(SqlDialectTest, ATextWithoutAStatementIsRefused)
{
    for (const char* nothing : {"", "  ", ";", "-- comment", "/* comment"})
        EXPECT_EQ(refusalOf(nothing), "There is no statement to run") << nothing;
}

TEST(SqlDialectTest, ANulIsRefusedSinceSqliteWouldEndThere)
{
    using namespace std::string_view_literals;
    EXPECT_EQ(refusalOf("delete from t\0where a=1"sv), "The statement contains a NUL");
    EXPECT_EQ(refusalOf("insert into t values('a\0b')"sv), "The statement contains a NUL");
}

TEST(SqlDialectTest, ANameWithQuotesIsQuoted)
{
    EXPECT_EQ(quotedName("The Current Settings"), R"("The Current Settings")");
    EXPECT_EQ(quotedName(R"(a"b)"), R"("a""b")");
}

/// Whatever is let through, SQLite must reach its end: nothing can stand after a first statement.
TEST(SqlDialectTest, NoSecondStatementIsEverLetThrough)
{
    sqlite3* database = nullptr;
    ASSERT_EQ(sqlite3_open(":memory:", &database), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(database, "create table t(a,b)", nullptr, nullptr, nullptr), SQLITE_OK);
    const std::vector<std::string> tokens{"1.20", "-", "'", "\"",     "--",     "/*",    "*/", "\n",
                                          "[",    "]", "`", "'x'",    "a",      "\"y\"", ".5", "e",
                                          ",",    ";", ")", "delete", "from t", "*",     "("};
    std::mt19937 random(8);
    const auto answer = [&] { // of a faulty instrument
        std::string text;
        for (auto length = 1 + random() % 3; length > 0; --length)
            text += tokens[random() % tokens.size()] + (random() % 2 ? " " : "");
        return text;
    };
    int prepared = 0;
    for (int round = 0; round < 30000; ++round) {
        const std::string statement = "insert into t values(" + answer() + "," + answer() + ")";
        std::string sql;
        try {
            sql = translateSql(statement);
        } catch (const RuntimeFailure&) {
            continue;
        }
        sqlite3_stmt* handle = nullptr;
        const char* rest = nullptr;
        if (sqlite3_prepare_v2(database, sql.c_str(), -1, &handle, &rest) == SQLITE_OK) {
            ++prepared;
            ASSERT_EQ(rest, sql.c_str() + sql.size()) << statement;
            ASSERT_NE(handle, nullptr) << statement;
        }
        sqlite3_finalize(handle);
    }
    EXPECT_GT(prepared, 100);
    sqlite3_close(database);
}

} // namespace
