// SPDX-License-Identifier: GPL-3.0-or-later
#include "record_file.h"

#include "failure.h"
#include "prog_file_record.h"
#include "seq_file_record.h"

#include <QFile>
#include <QTemporaryDir>

#include <gmock/gmock.h>

namespace orb {
namespace {

class RecordFileTest : public testing::Test {
protected:
    void write(const QByteArray& content) const
    {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
    }

    QByteArray written() const
    {
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll();
    }

    QTemporaryDir folder;
    QString path = folder.filePath("record.a");
};

TEST_F(RecordFileTest, AFileOfTheRecordsSizeFillsIt)
{
    QByteArray content(4380, '\1');
    content[0] = '\0';
    content[4379] = '\7';
    write(content);
    SeqFileRecord record{};

    readRecord(path, record);

    EXPECT_EQ(record.CheckSum, 0x00010101U);
    EXPECT_EQ(record.deviceBlock.back(), std::byte{7});
}

TEST_F(RecordFileTest, AShorterFileLeavesTheBytesThatItLacks)
{
    write("\1\2\3\4\5");
    SeqFileRecord record{};
    record.LoadModuleType = 9;
    record.SeqVersion1 = 'V';

    readRecord(path, record);

    EXPECT_EQ(record.LoadModuleType, 5);
    EXPECT_EQ(record.SeqVersion1, 'V');
}

TEST_F(RecordFileTest, ALongerFileIsReadUpToTheEndOfTheRecord)
{
    write(QByteArray(5580, '\3') + QByteArray(100, '\4'));
    ProgFileRecord record{};

    readRecord(path, record);

    EXPECT_EQ(record.reserved5572.back(), std::byte{3});
}

TEST_F(RecordFileTest, AMissingFileFailsAndLeavesTheRecord)
{
    SeqFileRecord record{};
    record.SeqVersion1 = 'V';

    try {
        readRecord(path, record);
        FAIL() << "no failure";
    } catch (const RuntimeFailure& failure) {
        EXPECT_EQ(failure.number(), failure::FileNotFound);
    }
    EXPECT_EQ(record.SeqVersion1, 'V');
}

TEST_F(RecordFileTest, AWrittenFileHoldsTheBytesOfTheRecordAndReplacesALongerOne)
{
    write(QByteArray(9000, 'x'));
    SeqFileRecord record{};
    record.CheckSum = 0x01020304;
    record.OnEndOfSeq = 0x0506;

    writeRecord(path, record);

    QByteArray expected(4380, '\0');
    expected.replace(0, 4, "\1\2\3\4");
    expected.replace(2904, 2, "\6\5");
    EXPECT_EQ(written(), expected);
}

TEST_F(RecordFileTest, TheComputedChecksumIsThePlainSumOfAllBytesAfterTheStoredOne)
{
    ProgFileRecord record{};
    for (std::byte& byte : imageOf(record))
        byte = std::byte{255};

    EXPECT_EQ(computedCheckSum(record), 1'421'880U);
}

} // namespace
} // namespace orb
