// SPDX-License-Identifier: GPL-3.0-or-later
// The bulk transfers: the screen and the files of the instrument.
#include "control_fixture.h"
#include "definite_length_block.h"
#include "paths.h"
#include "staging_files.h"

#include <QFile>

namespace orb {

namespace {
using testing::ElementsAre;

QByteArray contentOf(const QString& literal)
{
    QFile file(realPath(literal));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no such file");
}

/// A bitmap as far as its head goes.
QByteArray bitmap(int size)
{
    QByteArray bytes("BM", 2);
    for (int shift = 0; shift < 32; shift += 8)
        bytes += static_cast<char>(size >> shift & 0xff);
    return bytes.leftJustified(size, '\n');
}
} // namespace

class TransferTest : public ControlTest {
protected:
    ~TransferTest() override
    {
        for (const QString& file : {staging::screen, staging::program, staging::programUpload, staging::sequence})
            QFile::remove(realPath(file));
    }
};

TEST_F(TransferTest, GrabsTheScreen)
{
    const QByteArray picture = bitmap(3000);
    connectInstrument([&](const QByteArray&) { return asBlock(picture) + '\n'; });
    EXPECT_TRUE(control->GrabScreen());
    EXPECT_EQ(contentOf(staging::screen), picture);
}

TEST_F(TransferTest, LeavesThePictureAsItWasWhenTheScreenCanNotBeGrabbed)
{
    QByteArray answer = asBlock(bitmap(3000)) + '\n';
    connectInstrument([&](const QByteArray&) { return answer; });
    ASSERT_TRUE(control->GrabScreen());
    for (const QByteArray& bad :
         {QByteArray("#43000BM truncated"), QByteArray("no block\n"), asBlock("no bitmap") + '\n',
          asBlock(bitmap(3000).left(2000)) + '\n', QByteArray("#10\n"), QByteArray()}) {
        answer = bad;
        EXPECT_FALSE(control->GrabScreen());
        EXPECT_EQ(contentOf(staging::screen), bitmap(3000));
        clock.sleep(3000);
    }
}

TEST_F(TransferTest, FetchesTheFilesOfTheInstrument)
{
    connectInstrument([](const QByteArray& text) {
        return asBlock(text.contains("Seq") ? QByteArray(4380, 's') : QByteArray(5580, 'p')) + '\n';
    });
    control->FetchProgramFile();
    control->FetchSequenceFile();
    EXPECT_EQ(contentOf(staging::program), QByteArray(5580, 'p'));
    EXPECT_EQ(contentOf(staging::sequence), QByteArray(4380, 's'));
}

TEST_F(TransferTest, LeavesNoFileBehindAFailedFetchAndKeepsAnOldOne)
{
    connectInstrument([](const QByteArray&) { return QByteArray("#45580truncated\n"); });
    control->FetchProgramFile();
    EXPECT_FALSE(fileExists(staging::program));
    ASSERT_TRUE(writeStagingFile(staging::sequence, "old"));
    clock.sleep(3000);
    control->FetchSequenceFile();
    EXPECT_EQ(contentOf(staging::sequence), "old");
}

TEST_F(TransferTest, SendsTheProgramFileAsABlock)
{
    connectInstrument();
    ASSERT_TRUE(writeStagingFile(staging::programUpload, "a?\nb"));
    control->SendProgramFile();
    EXPECT_THAT(line.sent, ElementsAre(":MMEM:DATA \"ORBProg.b\",#14a?\nb"));
}

TEST_F(TransferTest, DoesNotTakeATransferForAnAnswerOfTheApplication)
{
    connectInstrument([](const QByteArray& text) { return text == "a?" ? QByteArray("1\n") : asBlock("x") + '\n'; });
    control->SendCommand(QStringLiteral("a?"));
    control->GrabScreen();
    EXPECT_EQ(control->Reply(), "1");
}

} // namespace orb
