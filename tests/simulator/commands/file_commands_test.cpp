// SPDX-License-Identifier: GPL-3.0-or-later
#include "instrument_fixture.h"
#include "record_file.h"
#include "seq_file_record.h"

#include <QtEndian>

#include <random>

namespace orb {
namespace {

/// The same record with its checksum.
template <class Record> Record sealed(Record record)
{
    record.CheckSum = computedCheckSum(record);
    return record;
}

std::string bytesOf(const ProgFileRecord& file)
{
    const auto image = imageOf(file);
    return {reinterpret_cast<const char*>(image.data()), image.size()};
}

std::string blockOf(const std::string& bytes)
{
    const std::string length = std::to_string(bytes.size());
    return '#' + std::to_string(length.size()) + length + bytes;
}

/// A file of random bytes, as far as the instrument can hold them.
ProgFileRecord randomFile(std::mt19937& noise)
{
    const auto below = [&](unsigned bound) { return static_cast<int>(noise() % bound); };
    ProgFileRecord file{};
    for (std::byte& byte : imageOf(file))
        byte = static_cast<std::byte>(below(256));
    for (ProgramBlock& block : file.programs) {
        for (std::size_t step = 0; step < ProgramBlock::stepCount; ++step) {
            block.Memory[step] = static_cast<quint8>(below(120));
            block.RunMode[step] = static_cast<quint8>(below(3));
            block.ShortCH[step] = static_cast<qint16>(below(256));
            block.OnTimer[step] = static_cast<qint16>(below(601));
            block.OffTime[step] = static_cast<qint16>(below(601));
            block.PFTime[step] = static_cast<qint16>(below(1200));
            block.ShortTime[step] = static_cast<qint16>(below(601));
        }
    }
    for (quint8& next : file.ChainNext)
        next = static_cast<quint8>(below(13));
    file.ChainStart = static_cast<quint8>(below(12));
    return sealed(file);
}

class FileCommandsTest : public InstrumentFixture {
protected:
    /// The record in the answer to the query for a file.
    template <class Record> Record fetch(const std::string& name)
    {
        Record record{};
        const std::string answer = query(":MMEM:DATA? \"" + name + '"');
        const std::string head = "#4" + std::to_string(sizeof(Record));
        EXPECT_EQ(answer.substr(0, head.size()), head);
        EXPECT_EQ(answer.size(), head.size() + sizeof(Record));
        if (answer.size() == head.size() + sizeof(Record))
            std::memcpy(&record, answer.data() + head.size(), sizeof(Record));
        return record;
    }
    ProgFileRecord fetchPrograms() { return fetch<ProgFileRecord>("ORBProg.b"); }
    void sendPrograms(const std::string& bytes) { send(":MMEM:DATA \"ORBProg.b\"," + blockOf(bytes)); }
    /// Sends bytes that are refused with `error` and change nothing.
    void expectRefused(const std::string& bytes, const char* error)
    {
        const std::string before = bytesOf(fetchPrograms());
        sendPrograms(bytes);
        EXPECT_EQ(errors(), error);
        EXPECT_EQ(bytesOf(fetchPrograms()), before);
    }
};

TEST_F(FileCommandsTest, AFreshProgramFileHoldsTheStepsAndNoReservedByteOfZero)
{
    const ProgFileRecord file = fetchPrograms();
    EXPECT_EQ(file.CheckSum, computedCheckSum(file));
    EXPECT_EQ(file.programs[0].Memory[0], 0);
    EXPECT_EQ(file.programs[11].Memory[9], 119);
    EXPECT_EQ(file.programs[11].RunMode[9], 0);
    EXPECT_EQ(file.programs[11].OnTimer[9], 0);
    EXPECT_EQ(file.ChainStart, 0);
    EXPECT_EQ(file.ChainNext[11], 0);
    EXPECT_THAT(file.reserved4, testing::Each(testing::Ne(std::byte{0})));
    EXPECT_THAT(file.reserved4112, testing::Each(testing::Ne(std::byte{0})));
    EXPECT_NE(file.reserved5556[0], std::byte{0});
    EXPECT_NE(file.ChainNext[13], 0);
    EXPECT_NE(file.reserved5572.back(), std::byte{0});
}

TEST_F(FileCommandsTest, AProgramFileHoldsWhatTheCommandsSet)
{
    send(":PROG:STAR P03;:PROG:FILE 3;:PROG:CHA P12;:PROG:SEQ 4;:PROG:MEM 17;:PROG:SEQ:MODE MANUAL;:PROG:ONT 60S;"
         ":PROG:OFFT 0.4S;:PROG:PFT 119.9S;:PROG:SEQ:SHOR:CHAN 130;:PROG:SEQ:SHOR:TIME 2S");
    const ProgFileRecord file = fetchPrograms();
    const ProgramBlock& block = file.programs[2];
    EXPECT_EQ(file.ChainStart, 2);
    EXPECT_EQ(file.ChainNext[2], 12);
    EXPECT_EQ(block.Memory[3], 16);
    EXPECT_EQ(block.RunMode[3], 2);
    EXPECT_EQ(block.OnTimer[3], 600);
    EXPECT_EQ(block.OffTime[3], 4);
    EXPECT_EQ(block.PFTime[3], 1199);
    EXPECT_EQ(block.ShortCH[3], 130);
    EXPECT_EQ(block.ShortTime[3], 20);
}

TEST_F(FileCommandsTest, ATimeInAProgramFileIsRoundedToATenthOfASecond)
{
    for (const auto& [seconds, tenths] : {std::pair{"0.01", 0}, {"0.04", 0}, {"0.06", 1}, {"59.99", 600}}) {
        send(std::string(":PROG:ONT ") + seconds);
        EXPECT_EQ(fetchPrograms().programs[0].OnTimer[0], tenths) << seconds;
    }
}

TEST_F(FileCommandsTest, AStepWithoutAMemoryIsASkippedStepInTheFile)
{
    send(":PROG:MEM 0;:PROG:SEQ:MODE AUTO;:PROG:ONT 1S");
    const ProgramBlock block = fetchPrograms().programs[0];
    EXPECT_EQ(block.Memory[0], 0);
    EXPECT_EQ(block.RunMode[0], 0);
    EXPECT_EQ(block.OnTimer[0], 10);
}

TEST_F(FileCommandsTest, ASentProgramFileComesBackByteForByte)
{
    std::mt19937 noise(7);
    for (int i = 0; i < 50; ++i) {
        const std::string sent = bytesOf(randomFile(noise));
        sendPrograms(sent);
        ASSERT_EQ(errors(), noError);
        ASSERT_TRUE(bytesOf(fetchPrograms()) == sent) << i;
    }
}

TEST_F(FileCommandsTest, ASentProgramFileIsReadByTheCommandsAndSaved)
{
    ProgFileRecord file{};
    file.ChainStart = 1;
    file.ChainNext[1] = 5;
    file.programs[1].Memory[2] = 119;
    file.programs[1].RunMode[2] = 1;
    file.programs[1].OnTimer[2] = 15;
    file.programs[1].OffTime[2] = 600;
    file.programs[1].PFTime[2] = 1199;
    file.programs[1].ShortCH[2] = 255;
    file.programs[1].ShortTime[2] = 1;
    sendPrograms(bytesOf(sealed(file)));
    for (const char* state : {"sent", "after a reset"}) {
        send(":PROG:FILE 2;:PROG:SEQ 3");
        EXPECT_EQ(query(":PROG:STAR?;:PROG:CHA?;:PROG:SEQ:DATA?"), "P02;P05;120,AUTO,1.5,255,60.0,119.9,0.1") << state;
        send("*RST");
    }
}

TEST_F(FileCommandsTest, AProgramFileThatIsNotGoodIsRefusedAndChangesNothing)
{
    send(":PROG:MEM 99;:PROG:SAVE");
    std::mt19937 noise(8);
    const ProgFileRecord good = randomFile(noise);
    const std::string bytes = bytesOf(good);

    expectRefused("", "-161,\"Invalid block data\"");
    expectRefused(bytes.substr(0, 5579), "-161,\"Invalid block data\"");
    expectRefused(bytes + 'x', "-161,\"Invalid block data\"");
    std::string changed = bytes;
    ++changed[5579];
    expectRefused(changed, "-230,\"Data corrupt or stale\"");
    changed = bytes;
    ++changed[0];
    expectRefused(changed, "-230,\"Data corrupt or stale\"");
}

TEST_F(FileCommandsTest, AProgramFileWithAValueThatTheInstrumentDoesNotHaveIsRefused)
{
    send(":PROG:MEM 99;:PROG:SAVE");
    constexpr void (*changes[])(ProgFileRecord&) = {
        [](ProgFileRecord& file) { file.programs[0].Memory[0] = 120; },
        [](ProgFileRecord& file) { file.programs[11].RunMode[9] = 3; },
        [](ProgFileRecord& file) { file.programs[5].ShortCH[1] = 256; },
        [](ProgFileRecord& file) { file.programs[5].ShortCH[1] = -1; },
        [](ProgFileRecord& file) { file.programs[0].OnTimer[2] = 601; },
        [](ProgFileRecord& file) { file.programs[0].OffTime[2] = -1; },
        [](ProgFileRecord& file) { file.programs[0].PFTime[2] = 1200; },
        [](ProgFileRecord& file) { file.programs[0].ShortTime[2] = 601; },
        [](ProgFileRecord& file) { file.ChainStart = 12; },
        [](ProgFileRecord& file) { file.ChainNext[11] = 13; },
    };
    for (const auto change : changes) {
        ProgFileRecord file{};
        change(file);
        expectRefused(bytesOf(sealed(file)), "-222,\"Data out of range\"");
    }
    ProgFileRecord unread{};
    unread.ChainNext[12] = 255;
    sendPrograms(bytesOf(sealed(unread)));
    EXPECT_EQ(errors(), noError) << "the last two entries of the chain belong to no program";
}

TEST_F(FileCommandsTest, ASaveIsCountedInAReservedByteThatASentFileSets)
{
    const ProgFileRecord first = fetchPrograms();
    send(":PROG:SAVE");
    const ProgFileRecord second = fetchPrograms();
    EXPECT_EQ(static_cast<int>(second.reserved5572[0]), static_cast<int>(first.reserved5572[0]) + 1);
    EXPECT_EQ(second.CheckSum, first.CheckSum + 1U);

    ProgFileRecord sent{};
    sent.reserved5572[0] = std::byte{200};
    sendPrograms(bytesOf(sealed(sent)));
    send(":PROG:SAVE");
    EXPECT_EQ(fetchPrograms().reserved5572[0], std::byte{201});
}

TEST_F(FileCommandsTest, ARunningProgramGoesOnWhenAFileIsSent)
{
    send(":PROG:SEQ:MODE AUTO;:PROG:ONT 10S;:LOAD1 ON;:PROG:RUN");
    sendPrograms(bytesOf(sealed(ProgFileRecord{})));
    time.advance(std::chrono::seconds(5));
    EXPECT_EQ(query(":PROG:STAT?;:LOAD1?;:PROG:SEQ:MODE?"), "RUN,1,1,ON;1;SKIP");
}

TEST_F(FileCommandsTest, FilesHaveNamesInAnyLetterCaseAndNoOthers)
{
    EXPECT_EQ(query(":MMEM:DATA? 'ORBPROG.B'").size(), 6U + 5580U);
    EXPECT_EQ(query(":MMEMory:DATA? \"orbseq.a\"").size(), 6U + 4380U);
    for (const char* bad : {":MMEM:DATA? \"ORB.bmp\"", ":MMEM:DATA? \"\"", ":MMEM:DATA \"x\",#10"}) {
        send(bad);
        EXPECT_EQ(errors(), "-256,\"File name not found\"") << bad;
    }
    send(":MMEM:DATA \"ORBSeq.a\",#10");
    EXPECT_EQ(errors(), "-258,\"Media protected\"");
    for (const char* bad : {":MMEM:DATA? ORBProg", ":MMEM:DATA? 5", ":MMEM:DATA \"ORBProg.b\",5",
                            ":MMEM:DATA \"ORBProg.b\",\"text\"", ":MMEM:DATA #11x,#11x"}) {
        send(bad);
        EXPECT_EQ(errors(), "-104,\"Data type error\"") << bad;
    }
    for (const char* bad : {":MMEM:DATA \"ORBProg.b\",#45580short", ":MMEM:DATA \"ORBProg.b\",#9999999999x"}) {
        send(bad);
        EXPECT_EQ(errors(), "-161,\"Invalid block data\"") << bad;
    }
}

TEST_F(FileCommandsTest, TheSequenceFileEndsInTheLastSectionOfTheProgramFile)
{
    const SeqFileRecord sequence = fetch<SeqFileRecord>("ORBSeq.a");
    EXPECT_EQ(sequence.CheckSum, computedCheckSum(sequence));
    const ProgFileRecord programs = fetchPrograms();
    EXPECT_TRUE(std::ranges::equal(sequence.deviceBlock, imageOf(programs).subspan(4112)));
}

TEST_F(FileCommandsTest, TheSequenceFileIsForTheSelectedChannel)
{
    build(quietConfiguration({"K12B", "K14", "K13"}));
    send(":SEQ:POIN:DATA 1,1.5,0,0;:CHAN 2");
    EXPECT_EQ(fetch<SeqFileRecord>("ORBSeq.a").LoadModuleType, 3);
    send(":CHAN 3;:MODE CCL");
    const SeqFileRecord file = fetch<SeqFileRecord>("ORBSeq.a");
    EXPECT_EQ(file.LoadModuleType, 2);
    EXPECT_EQ(file.LoadRange, 0);
    EXPECT_EQ(file.Points[0].CurrentRaw, 1500);
}

TEST_F(FileCommandsTest, RandomFilesNeverBreakTheInstrument)
{
    std::mt19937 noise(9);
    int taken = 0;
    for (int i = 0; i < 2000; ++i) {
        ProgFileRecord file = randomFile(noise);
        const auto image = imageOf(file);
        for (unsigned changes = noise() % 4; changes > 0; --changes)
            image[noise() % image.size()] = static_cast<std::byte>(noise() % 256);
        std::string bytes = bytesOf(noise() % 4 == 0 ? file : sealed(file));
        if (noise() % 8 == 0)
            bytes.resize(noise() % 6000, 'x');
        sendPrograms(bytes);
        const bool isGood = errors() == noError;
        taken += isGood ? 1 : 0;
        ASSERT_EQ(bytesOf(fetchPrograms()) == bytes, isGood) << i;
        send(":LOAD1 ON;:PROG:RUN;:PROG:STOP;*CLS");
    }
    EXPECT_GT(taken, 100);
    EXPECT_LT(taken, 1900);
}

} // namespace
} // namespace orb
