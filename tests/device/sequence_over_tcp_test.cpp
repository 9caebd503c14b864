// SPDX-License-Identifier: GPL-3.0-or-later
// The sequence page, the instrument control and a served instrument, over a real socket.
#include "directories.h"
#include "scripted_dialogs.h"
#include "sequence_page.h"
#include "sequence_records.h"
#include "tcp_control.h"
#include "test_servers.h"
#include "virtual_clock.h"

#include <gmock/gmock.h>

namespace orb {

namespace {

class SequenceOverTcpTest : public TcpControlTest {
protected:
    SequenceOverTcpTest()
    {
        dbMain = wsMain.openDatabase(databasePath());
        dbMain.execute(QStringLiteral("pragma synchronous=off"));
        page.setParent(&form);
        pageClock.allow(1'000'000);
        EXPECT_TRUE(connectTo(instrument.port())) << status();
        control.PanelActive(false);
        run.enter([this] { page.ResetSequencePage(); });
        QFile::remove(realPath(staging::sequence));
        ask(":CHAN 3;:CHAN?"); // a K12B
    }
    ~SequenceOverTcpTest() override { QFile::remove(realPath(staging::sequence)); }

    /// Its path, once it has the pictures and an empty database: the page loads the pictures when it is constructed.
    static QString prepared(const QTemporaryDir& application)
    {
        QFile::link(sourceDirectory() + QStringLiteral("/resources/ICON"),
                    application.filePath(QStringLiteral("ICON")));
        QFile::copy(binaryDirectory() + QStringLiteral("/orb.mdb"), application.filePath(QStringLiteral("orb.mdb")));
        return application.path();
    }

    QString databasePath() const { return application.filePath(QStringLiteral("orb.mdb")); }

    void open(const SeqFileRecord& record)
    {
        sPendingSeqFile = application.filePath(QStringLiteral("sequence.a"));
        writeRecord(sPendingSeqFile, record);
        press(page.seqOpen);
    }

    /// The rows of a table, the numbers with so many decimals.
    QStringList rows(const char* select, const std::vector<int>& decimals)
    {
        QStringList lines;
        const auto table = dbMain.openRecordset(QString::fromLatin1(select));
        for (; !table->isEof(); table->moveNext()) {
            QStringList fields;
            for (std::size_t i = 0; i < decimals.size(); ++i)
                fields << QString::number(table->field(static_cast<int>(i)).toDouble(), 'f', decimals[i]);
            lines << fields.join(QLatin1Char(';'));
        }
        return lines;
    }

    /// What the instrument answers for each of the points.
    QStringList answers(int first, int last)
    {
        QStringList lines;
        for (int point = first; point <= last; ++point)
            lines << QString::number(point) + QLatin1Char(';') +
                         ask(QStringLiteral(":SEQ:EDIT:POIN %1;:SEQ:POIN:TIME?;CURR?;RISE?;FALL?")
                                 .arg(point)
                                 .toLatin1()
                                 .constData());
        return lines;
    }

    QStringList points() { return rows("select * from ORBSeqData order by index asc", {0, 6, 4, 5, 5}); }

    ServedInstrument instrument;
    QTemporaryDir application;
    ScriptedDialogs dialogs;
    Paths paths{prepared(application)};
    VirtualClock pageClock{run}; // its pauses take no time
    Workspace wsMain{[] { return QDateTime::currentDateTime(); }};
    Database dbMain;
    QString sPendingSeqFile;
    std::vector<double> plottedValues;
    SequencePage page{pageClock, dialogs, paths, control, wsMain, dbMain, sPendingSeqFile, plottedValues};
};

TEST_F(SequenceOverTcpTest, EveryValueOfASentSequenceIsReadBackByQuery)
{
    SeqFileRecord record = sequenceRecord(120);
    record.LoopStart = 1;
    record.OnEndOfSeq = 1;
    for (std::size_t i = 0; i < record.Points.size(); ++i) {
        record.Points[i].TimeBaseCode = static_cast<qint16>(8 + i % 3);
        record.Points[i].CurrentRaw = static_cast<qint16>(12000 - 7 * static_cast<int>(i)); // no other value twice
        record.Points[i].SlewUpRaw = static_cast<qint16>(1 + i);
        record.Points[i].SlewDownRaw = static_cast<qint16>(200 - i);
    }
    open(withCheckSum(record));

    press(page.seqSend);

    EXPECT_EQ(ask(":SEQ:VOLT:RANG?;:SEQ:END:LOAD?;:SEQ:REP?;:SEQ:LOOP:STAR?;:SEQ:END?"), "HIGH;1;3;2;120");
    EXPECT_EQ(ask(":SYST:ERR?"), "0,\"No error\"");
    QStringList expected = points();
    ASSERT_EQ(expected.size(), 120);
    expected.removeFirst(); // it is not in the loop
    EXPECT_EQ(answers(2, 120), expected);
    EXPECT_NE(answers(1, 1).front(), points().front());
}

TEST_F(SequenceOverTcpTest, AnEditInTheTableIsWhatTheInstrumentHas)
{
    open(sequenceRecord(2));
    dbMain.execute("update ORBSeqHead set [Update]=9 where item like \"Repeat*\"");
    dbMain.execute("update ORBSeqData set Current=2.25, DurTime=0.75 where index=2");

    press(page.seqSend);

    EXPECT_EQ(ask(":SEQ:REP?"), "9");
    EXPECT_EQ(answers(2, 2).front(), "2;0.750000;2.2500;1.60000;0.80000");
}

TEST_F(SequenceOverTcpTest, ASentSequenceIsTheSameWhenItIsLoadedAsAFile)
{
    open(sequenceRecord(120));
    press(page.seqSend);
    const QStringList sentPoints = points();
    const QStringList sentHead = rows("select [Update] from ORBSeqHead", {0});
    const QStringList sentSummary = page.lstSequence.items();
    run.enter([this] { page.ResetSequencePage(); });

    press(page.SeqLoad);

    EXPECT_EQ(points(), sentPoints);
    EXPECT_EQ(rows("select [Update] from ORBSeqHead", {0}), sentHead);
    for (const int line : {1, 4, 5}) // the module, the mode and the range
        EXPECT_EQ(page.lstSequence.list(line), sentSummary[line]);
    EXPECT_TRUE(dialogs.shown.empty());
    EXPECT_TRUE(page.seqPlot.enabled());
}

TEST_F(SequenceOverTcpTest, WithoutALinkTheLastFileIsLoadedAgain)
{
    open(sequenceRecord(2));
    press(page.seqSend);
    press(page.SeqLoad);
    run.enter([this] { page.ResetSequencePage(); });
    instrument.stop();
    waitUntil([this] { return !control.IsConnected(); });
    dialogs.answers = {Answer::Yes};

    press(page.SeqLoad);

    EXPECT_EQ(points().size(), 2);
}

} // namespace

} // namespace orb
