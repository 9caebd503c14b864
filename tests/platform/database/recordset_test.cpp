// SPDX-License-Identifier: GPL-3.0-or-later
#include "database_fixture.h"

#include <random>

using namespace orb;

namespace {

class RecordsetTest : public DatabaseTest {
protected:
    RecordsetTest()
    {
        database.execute("create table t (id integer, word text, size real)");
        database.execute("insert into t values(7,'12.50',15.0),(8,'',0.25),(9,null,null)");
        record = database.openRecordset("select * from t");
    }

    template <typename Read> std::string refusal(const QString& field, Read read)
    {
        return failureIn([&] { (record->field(field).*read)(); });
    }

    std::unique_ptr<Recordset> record;
    const std::string null = "94: Invalid use of Null";
    const std::string mismatch = "13: Type mismatch";
    const std::string noRecord = "3021: No current record";
    const std::string notFound = "3265: Item not found in this collection";
};

TEST_F(RecordsetTest, AWalkGoesFromTheFirstRowToTheEnd)
{
    std::string ids;
    for (; !record->isEof(); record->moveNext())
        ids += record->field("id").asText().toStdString() + " ";
    EXPECT_EQ(ids, "7 8 9 ");
    EXPECT_EQ(failureIn([&] { record->moveNext(); }), noRecord);
    EXPECT_EQ(failureIn([&] { record->field("id").isNull(); }), noRecord);
}

TEST_F(RecordsetTest, ARecordsetWithoutRowsIsAtItsEnd)
{
    record = database.openRecordset("select * from t where id>9");
    EXPECT_TRUE(record->isEof());
    EXPECT_EQ(failureIn([&] { record->moveNext(); }), noRecord);
    EXPECT_EQ(record->fieldCount(), 3);
}

TEST_F(RecordsetTest, NullIsNotTheEmptyText)
{
    record->moveNext();
    EXPECT_EQ(record->value(1).type, FieldType::Text);
    EXPECT_FALSE(record->field("word").isNull());
    EXPECT_EQ(record->field("word").asText(), "");

    record->moveNext();
    EXPECT_TRUE(record->field("word").isNull());
    EXPECT_EQ(record->field("word").textOrEmpty(), "");
    EXPECT_EQ(refusal("word", &Field::asText), null);
    EXPECT_EQ(refusal("word", &Field::toDouble), null);
}

TEST_F(RecordsetTest, ANumberReadsInItsOrdinaryForm)
{
    QStringList line;
    for (const char* name : {"id", "word", "size"})
        line << record->field(name).asText();
    EXPECT_EQ(line.join('|'), "7|12.50|15");
    EXPECT_EQ(record->value(0).type, FieldType::Integer);
    EXPECT_EQ(record->value(2).type, FieldType::Real);
}

TEST_F(RecordsetTest, ATextThatIsANumberIsConverted)
{
    EXPECT_EQ(record->field("word").toDouble(), 12.5);
    EXPECT_EQ(record->field("size").toDouble(), 15.0);
    EXPECT_EQ(record->field("id").toDouble(), 7.0);
    const auto converted = [&](const char* text) {
        record = database.openRecordset(QString("select '%1'").arg(text));
        return record->field(0).toDouble();
    };
    EXPECT_EQ(converted("-1.20E-03"), -0.0012);
    EXPECT_EQ(converted(" +7 "), 7.0);
    EXPECT_EQ(converted(".5"), 0.5);
    EXPECT_EQ(failureIn([&] { converted("1e999"); }), "6: Overflow");
    for (const char* text : {"", "Off", "12V", "inf", "nan", "0x10", "1,5"})
        EXPECT_EQ(failureIn([&] { converted(text); }), mismatch) << text;
}

TEST_F(RecordsetTest, ATextIsConvertedToTheNearestNumber)
{
    std::mt19937_64 random(3);
    QStringList texts{"-0.0500",
                      "0.1",
                      "999999999999999",
                      "0.000000000000001",
                      "123456.789012345",
                      "12345678901234567",
                      "9999999999999999",
                      "9007199254740993",
                      "9007199254740.993",
                      "0.30000000000000004",
                      "5.",
                      "-.5",
                      "00012.50"};
    for (int i = 0; i < 2000; ++i) {
        QString text = QString::number(random() % 1'000'000'000'000'000 >> random() % 50);
        text.insert(static_cast<qsizetype>(random() % static_cast<quint64>(text.size() + 1)), '.');
        texts << (random() % 2 ? "-" + text : text);
    }
    record = database.openRecordset("values('" + texts.join("'),('") + "')");
    for (const QString& text : texts) {
        ASSERT_EQ(record->field(0).toDouble(), text.toDouble()) << text.toStdString();
        record->moveNext();
    }
}

TEST_F(RecordsetTest, AFieldThatIsNotThereIsRefused)
{
    EXPECT_EQ(failureIn([&] { record->field("nothing"); }), notFound);
    EXPECT_EQ(failureIn([&] { record->field(3); }), notFound);
    EXPECT_EQ(failureIn([&] { record->field(-1); }), notFound);
    EXPECT_EQ(failureIn([&] { record->value(3); }), notFound);
    EXPECT_EQ(failureIn([&] { record->value(-1); }), notFound);
    EXPECT_EQ(record->fieldName(2), "size");
}

TEST_F(RecordsetTest, AFieldFollowsTheCurrentRow)
{
    const Field id = record->field("ID");
    record->moveNext();
    EXPECT_EQ(id.asText(), "8");
}

TEST_F(RecordsetTest, ARecordsetFailsOnceItsWorkspaceIsClosed)
{
    database.close();
    EXPECT_FALSE(record->isEof());
    workspace.close();
    EXPECT_EQ(failureIn([&] { record->isEof(); }), "3420: Object is closed");
    EXPECT_EQ(failureIn([&] { record->value(0); }), "3420: Object is closed");
    EXPECT_EQ(failureIn([&] { record->moveNext(); }), "3420: Object is closed");
}

TEST_F(RecordsetTest, ARecordsetThatIsDestroyedReleasesItsTable)
{
    record.reset();
    database.execute("drop table t");
}

TEST_F(RecordsetTest, ATextBeyondAsciiReadsAsItWasWritten)
{
    database.execute("insert into t values(10,\"ORB Data Log文件\",1)");
    record = database.openRecordset("select word from t where id=10");
    EXPECT_EQ(record->field(0).asText(), QString("ORB Data Log文件"));
}

TEST_F(RecordsetTest, TheGreatestOfTextsIsThatOfTheirOrderAsTexts)
{
    database.execute("insert into DataMeasure (PVal1) values(10.2),(9.5)");
    record = database.openRecordset("Select max(PVal1),min(PVal1) FROM DataMeasure");
    EXPECT_EQ(record->field(0).toDouble(), 9.5);
    database.execute("delete * from DataMeasure");
    record = database.openRecordset("Select max(PVal1),min(PVal1) FROM DataMeasure");
    EXPECT_FALSE(record->isEof());
    EXPECT_TRUE(record->field(0).isNull());
}

} // namespace
