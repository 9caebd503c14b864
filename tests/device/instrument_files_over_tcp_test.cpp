// SPDX-License-Identifier: GPL-3.0-or-later
// The sequence file and the program file between the control and a served instrument, over a real socket.
#include "paths.h"
#include "prog_file_record.h"
#include "record_file.h"
#include "seq_file_record.h"
#include "staging_files.h"
#include "tcp_control.h"
#include "test_servers.h"

#include <gmock/gmock.h>

namespace orb {

namespace {

QByteArray contentOf(const QString& literal)
{
    QFile file(realPath(literal));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no such file");
}

template <class Record> QByteArray bytesOf(const Record& record)
{
    const auto image = imageOf(record);
    return {reinterpret_cast<const char*>(image.data()), static_cast<qsizetype>(image.size())};
}

class InstrumentFilesOverTcpTest : public TcpControlTest {
protected:
    InstrumentFilesOverTcpTest()
    {
        EXPECT_TRUE(connectTo(instrument.port())) << status();
        control.PanelActive(false);
    }
    ~InstrumentFilesOverTcpTest() override
    {
        for (const QString& file : {staging::program, staging::programUpload, staging::sequence})
            QFile::remove(realPath(file));
    }

    ProgFileRecord fetchPrograms()
    {
        ProgFileRecord record{};
        control.FetchProgramFile();
        readRecord(staging::program, record);
        return record;
    }

    ServedInstrument instrument;
};

TEST_F(InstrumentFilesOverTcpTest, TheFetchedProgramFileHoldsWhatWasSetByCommands)
{
    send(":PROG:FILE 12;:PROG:CHA P01;:PROG:SEQ 10;:PROG:MEM 7;:PROG:SEQ:MODE AUTO;:PROG:ONT 25.5S");
    const ProgFileRecord file = fetchPrograms();
    EXPECT_EQ(contentOf(staging::program).size(), 5580);
    EXPECT_EQ(file.CheckSum, computedCheckSum(file));
    EXPECT_EQ(file.ChainNext[11], 1);
    EXPECT_EQ(file.programs[11].Memory[9], 6);
    EXPECT_EQ(file.programs[11].RunMode[9], 1);
    EXPECT_EQ(file.programs[11].OnTimer[9], 255);
}

TEST_F(InstrumentFilesOverTcpTest, ASentProgramFileIsWhatTheNextFetchBrings)
{
    // Line feeds, carriage returns and number signs among the reserved bytes.
    ProgFileRecord file = fetchPrograms();
    for (std::size_t i = 0; i < file.reserved4.size(); ++i)
        file.reserved4[i] = static_cast<std::byte>("\n\r#;\"1"[i % 6]);
    file.programs[3].Memory[5] = 119;
    file.ChainStart = 3;
    file.CheckSum = computedCheckSum(file);
    ASSERT_TRUE(writeStagingFile(staging::programUpload, bytesOf(file)));

    control.SendProgramFile();

    EXPECT_EQ(ask(":PROG:STAR?;:PROG:FILE 4;:PROG:SEQ 6;:PROG:MEM?"), "P04;120");
    control.FetchProgramFile();
    EXPECT_TRUE(contentOf(staging::program) == bytesOf(file));
    EXPECT_EQ(ask(":SYST:ERR?"), "0,\"No error\"");
}

TEST_F(InstrumentFilesOverTcpTest, ADamagedProgramFileIsRefusedWithAnError)
{
    const ProgFileRecord before = fetchPrograms();
    ProgFileRecord damaged = before;
    damaged.programs[0].Memory[0] = 99;
    ASSERT_TRUE(writeStagingFile(staging::programUpload, bytesOf(damaged)));

    control.SendProgramFile();

    EXPECT_EQ(ask(":SYST:ERR?"), "-230,\"Data corrupt or stale\"");
    EXPECT_TRUE(bytesOf(fetchPrograms()) == bytesOf(before));
}

TEST_F(InstrumentFilesOverTcpTest, NoByteOfAFileOfAnotherLengthIsACommand)
{
    ASSERT_TRUE(writeStagingFile(staging::programUpload, "a?\n:LOAD:ALL ON\n"));
    control.SendProgramFile();
    EXPECT_EQ(ask(":SYST:ERR?"), "-161,\"Invalid block data\"");
    EXPECT_EQ(ask(":LOAD:ALL?"), "0,0,0,0,0,0,0,0");
}

TEST_F(InstrumentFilesOverTcpTest, ATransferredSequenceIsReadBackByQueryAndByFile)
{
    for (const char* line :
         {":CHAN 3", ":MODE CCH", ":SEQ:VOLT:RANG H", ":SEQ:END:LOAD 1", ":SEQ:REP 3", ":SEQ:LOOP:STAR 1", ":SEQ:END 2",
          ":SEQ:EDIT:POIN 1", ":SEQuence:POINt:TIME 0.02", ":SEQ:POIN:CURR 15", ":SEQ:POIN:RISE 1.6",
          ":SEQ:POIN:FALL 0.64", ":SEQ:EDIT:POIN 2", ":SEQuence:POINt:TIME 1234.568", ":SEQ:POIN:CURR 0.25",
          ":SEQ:POIN:RISE 0.0064", ":SEQ:POIN:FALL 1.6"})
        send(line);
    EXPECT_EQ(ask(":SEQ:VOLT:RANG?;:SEQ:END:LOAD?;:SEQ:REP?;:SEQ:LOOP:STAR?;:SEQ:END?"), "HIGH;1;3;1;2");
    EXPECT_EQ(ask(":SEQ:POIN:TIME?;CURR?;RISE?;FALL?"), "1234.568000;0.2500;0.00640;1.60000");

    SeqFileRecord file{};
    control.FetchSequenceFile();
    readRecord(staging::sequence, file);

    EXPECT_EQ(contentOf(staging::sequence).size(), 4380);
    EXPECT_EQ(file.CheckSum, computedCheckSum(file));
    EXPECT_EQ(file.LoadModuleType, 7) << "channel 3 is a K12B";
    EXPECT_EQ(file.LoadRange, 1);
    EXPECT_EQ(file.VRange, 1);
    EXPECT_EQ(file.OnEndOfSeq, 1);
    EXPECT_EQ(file.RepeatCount, 3);
    EXPECT_EQ(file.LoopEnd, 1);
    EXPECT_EQ(file.Points[0].CurrentRaw, 1500);
    EXPECT_EQ(file.Points[0].SlewUpRaw, 250);
    EXPECT_EQ(file.Points[0].SlewDownRaw, 100);
    EXPECT_EQ(file.Points[0].TimeBaseCode, 9);
    EXPECT_EQ(file.DurationCount[0], 2);
    EXPECT_EQ(file.Points[1].TimeBaseCode, 8);
    EXPECT_EQ(file.DurationCount[1], 1'234'568);
}

} // namespace

} // namespace orb
