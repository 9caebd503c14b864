// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "page_test.h"
#include "sequence_page.h"
#include "sequence_records.h"

namespace orb {

/// The sequence page on a form, set up beside an instrument that is connected.
class SequencePageTest : public PageTest {
protected:
    SequencePageTest()
    {
        page.setParent(&form);
        instrument.connected = true;
        dbMain = wsMain.openDatabase(databasePath());
        dbMain.execute("pragma synchronous=off"); // durability is not what is tested here, and takes half a minute
        reset();
        EXPECT_THAT(processExit.reports, testing::IsEmpty());
        journal.watch(page.seqOpen, "seqOpen");
        journal.watch(page.seqSend, "seqSend");
        journal.watch(page.SeqLoad, "SeqLoad");
        journal.watch(page.seqPlot, "seqPlot");
        journal.watch(page.graphSeq, "graphSeq");
        journal.clear();
    }

    void reset()
    {
        run.enter([this] { page.ResetSequencePage(); });
    }

    QString file(const char* name) const { return application.filePath(QLatin1String(name)); }

    /// Writes a file beside the program and returns its path.
    QString write(const char* name, const QByteArray& content) const
    {
        QFile out(file(name));
        EXPECT_TRUE(out.open(QIODevice::WriteOnly));
        out.write(content);
        return out.fileName();
    }

    /// The operator opens a file of these bytes.
    void open(const QByteArray& content)
    {
        dialogs.files = {write("sequence.a", content)};
        press(page.seqOpen);
    }
    void open(const SeqFileRecord& record) { open(bytesOf(record)); }
    /// A change of the good record, with the checksum that it then has.
    void openWith(const std::function<void(SeqFileRecord&)>& change)
    {
        SeqFileRecord record = sequenceRecord(2);
        change(record);
        open(withCheckSum(record));
    }

    void send() { press(page.seqSend); }

    QString heads() const { return table("select * from ORBSeqHead"); }
    QString points() const { return table("select * from ORBSeqData"); }
    QString pointCount() const { return table("select count(*) from ORBSeqData"); }
    QString headCount() const { return table("select count(*) from ORBSeqHead"); }

    std::vector<QString> messages() const
    {
        std::vector<QString> texts;
        for (const Shown& shown : dialogs.shown)
            texts.push_back(shown.text);
        return texts;
    }

    Form form{run};
    Workspace wsMain{[this] { return clock.now(); }};
    Database dbMain;
    QString sPendingSeqFile;
    std::vector<double> plottedValues;
    SequencePage page{clock, dialogs, paths, instrument, wsMain, dbMain, sPendingSeqFile, plottedValues};
};

} // namespace orb
