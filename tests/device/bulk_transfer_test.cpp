// SPDX-License-Identifier: GPL-3.0-or-later
// The bulk transfers: the screen and the files of the instrument.
#include "definite_length_block.h"
#include "device_control_fixture.h"
#include "paths.h"
#include "staging_files.h"
#include "test_bitmap.h"

#include <QDir>
#include <QFile>

namespace orb {

namespace {
using testing::ElementsAre;

QByteArray contentOf(const QString& literal)
{
    QFile file(realPath(literal));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no such file");
}
} // namespace

class BulkTransferTest : public DeviceControlTest {
protected:
    ~BulkTransferTest() override
    {
        for (const QString& file : {staging::screen, staging::program, staging::programUpload, staging::sequence})
            QFile::remove(realPath(file));
    }
};

TEST_F(BulkTransferTest, TheScreenIsFetchedIntoItsFile)
{
    const QByteArray picture = testBitmap(30, 30);
    connectInstrument([&](const QByteArray&) { return asBlock(picture) + '\n'; });
    EXPECT_TRUE(control->GrabScreen());
    EXPECT_EQ(contentOf(staging::screen), picture);
}

TEST_F(BulkTransferTest, AnAnswerThatIsNoBitmapLeavesThePictureAsItWas)
{
    QByteArray answer = asBlock(testBitmap(30, 30)) + '\n';
    connectInstrument([&](const QByteArray&) { return answer; });
    ASSERT_TRUE(control->GrabScreen());
    for (const QByteArray& bad :
         {QByteArray("#43000BM truncated"), QByteArray("no block\n"), asBlock("no bitmap") + '\n',
          asBlock(testBitmap(30, 30).left(2000)) + '\n', QByteArray("#10\n"), QByteArray()}) {
        answer = bad;
        EXPECT_FALSE(control->GrabScreen());
        EXPECT_EQ(contentOf(staging::screen), testBitmap(30, 30));
        clock.sleep(3000);
    }
}

/// Each is refused by its head alone: what it claims is neither reserved nor waited for beyond the limit of a transfer.
TEST_F(BulkTransferTest, ABlockOrABitmapThatClaimsTooMuchLeavesThePictureAsItWas)
{
    const QByteArray good = testBitmap(30, 30);
    QByteArray answer = asBlock(good) + '\n';
    connectInstrument([&](const QByteArray&) { return answer; });
    ASSERT_TRUE(control->GrabScreen());
    for (const QByteArray& bad : {QByteArray("#92147483647BM"), QByteArray("#9999999999BM") + good,
                                  asBlock(withNumber(withNumber(good, 18, 60'000), 22, 60'000)) + '\n',
                                  asBlock(withNumber(withNumber(good, 18, 4'000), 22, 4'000)) + '\n'}) {
        answer = bad;
        EXPECT_FALSE(control->GrabScreen()) << bad.left(16).toStdString();
        EXPECT_EQ(contentOf(staging::screen), good);
        clock.sleep(3000);
    }
    answer = asBlock(good) + '\n';
    EXPECT_TRUE(control->GrabScreen()) << "the session finds its place again";
}

TEST_F(BulkTransferTest, TheFilesOfTheInstrumentAreFetched)
{
    connectInstrument([](const QByteArray& text) {
        return asBlock(text.contains("Seq") ? QByteArray(4380, 's') : QByteArray(5580, 'p')) + '\n';
    });
    control->FetchProgramFile();
    control->FetchSequenceFile();
    EXPECT_EQ(contentOf(staging::program), QByteArray(5580, 'p'));
    EXPECT_EQ(contentOf(staging::sequence), QByteArray(4380, 's'));
}

TEST_F(BulkTransferTest, AFailedFetchLeavesTheStagingFilesAsTheyWere)
{
    connectInstrument([](const QByteArray&) { return QByteArray("#45580truncated\n"); });
    control->FetchProgramFile();
    EXPECT_FALSE(fileExists(staging::program));
    ASSERT_TRUE(writeStagingFile(staging::sequence, "old"));
    clock.sleep(3000);
    control->FetchSequenceFile();
    EXPECT_EQ(contentOf(staging::sequence), "old");
}

TEST_F(BulkTransferTest, TheProgramFileIsSentAsABlock)
{
    connectInstrument();
    ASSERT_TRUE(writeStagingFile(staging::programUpload, "a?\nb"));
    control->SendProgramFile();
    EXPECT_THAT(line.sent, ElementsAre(":MMEM:DATA \"ORBProg.b\",#14a?\nb"));
}

TEST_F(BulkTransferTest, TheSimulatedInstrumentHasAScreen)
{
    connectSimulated();
    control->PanelActive(false);
    EXPECT_TRUE(control->GrabScreen());
    EXPECT_EQ(QImage(realPath(staging::screen)).size(), QSize(320, 240));
}

TEST_F(BulkTransferTest, TheSimulatedInstrumentHasBothFiles)
{
    connectSimulated();
    control->PanelActive(false);
    control->FetchProgramFile();
    control->FetchSequenceFile();
    EXPECT_EQ(contentOf(staging::program).size(), 5580);
    EXPECT_EQ(contentOf(staging::sequence).size(), 4380);
}

TEST_F(BulkTransferTest, ATransferThatTheInstrumentDoesNotHaveFailsQuietly)
{
    connectSimulated();
    control->PanelActive(false);
    ASSERT_TRUE(writeStagingFile(staging::programUpload, "a?\n:LOAD:ALL ON\n"));
    control->SendProgramFile();
    EXPECT_TRUE(control->IsConnected());
    EXPECT_THAT(clock.sleeps, testing::IsEmpty());
    control->SendCommand(QStringLiteral(":LOAD:ALL?"));
    EXPECT_EQ(control->Reply(), "0,0,0,0,0,0");
}

TEST_F(BulkTransferTest, TransfersWithoutAnAnswerEndWithinTwoSeconds)
{
    connectInstrument();
    line.onLine = nullptr;
    const std::function<void()> transfers[] = {[this] { EXPECT_FALSE(control->GrabScreen()); },
                                               [this] { control->FetchProgramFile(); },
                                               [this] { control->FetchSequenceFile(); }};
    for (const auto& transfer : transfers) {
        const qint64 begin = clock.elapsed();
        transfer();
        EXPECT_EQ(clock.elapsed() - begin, 2000);
    }
    EXPECT_FALSE(fileExists(staging::program));
    EXPECT_FALSE(fileExists(staging::sequence));
}

TEST_F(BulkTransferTest, AProgramFileThatIsMissingOrTooLongIsNotSent)
{
    connectInstrument();
    control->SendProgramFile();
    ASSERT_TRUE(writeStagingFile(staging::programUpload, QByteArray(1024 * 1024 + 1, 'x')));
    control->SendProgramFile();
    EXPECT_EQ(line.sent.size(), 0);
    ASSERT_TRUE(writeStagingFile(staging::programUpload, QByteArray(1024 * 1024, 'x')));
    control->SendProgramFile();
    ASSERT_EQ(line.sent.size(), 1);
    EXPECT_EQ(line.sent.front(), ":MMEM:DATA \"ORBProg.b\"," + asBlock(QByteArray(1024 * 1024, 'x')));
}

TEST_F(BulkTransferTest, AnEmptyBlockLeavesTheOldFile)
{
    connectInstrument([](const QByteArray&) { return asBlock({}) + '\n'; });
    ASSERT_TRUE(writeStagingFile(staging::sequence, "old"));
    control->FetchSequenceFile();
    EXPECT_EQ(contentOf(staging::sequence), "old");
}

TEST_F(BulkTransferTest, APictureThatCanNotBeWrittenIsAFailure)
{
    connectInstrument([](const QByteArray&) { return asBlock(testBitmap(30, 30)) + '\n'; });
    QDir().mkpath(realPath(staging::screen) + QStringLiteral("/inner")); // a folder in its place
    EXPECT_FALSE(control->GrabScreen());
    QDir(realPath(staging::screen)).removeRecursively();
    EXPECT_TRUE(control->GrabScreen());
}

TEST_F(BulkTransferTest, ATransferInTheMiddleOfARoundDoesNotStopThePolling)
{
    connectInstrument([](const QByteArray&) { return QByteArray(); });
    control->ShowControlPage();
    clock.advance(100); // the first query of the page is under way
    EXPECT_FALSE(control->GrabScreen());
    line.sent.clear();
    clock.advance(5000);
    EXPECT_THAT(line.sent, testing::Contains("*OPT?"));
}

TEST_F(BulkTransferTest, ATransferIsNoReply)
{
    connectInstrument([](const QByteArray& text) { return text == "a?" ? QByteArray("1\n") : asBlock("x") + '\n'; });
    control->SendCommand(QStringLiteral("a?"));
    control->GrabScreen();
    EXPECT_EQ(control->Reply(), "1");
}

} // namespace orb
