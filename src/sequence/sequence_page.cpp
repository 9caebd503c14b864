// SPDX-License-Identifier: GPL-3.0-or-later
#include "sequence_page.h"

#include "attempt.h"
#include "graph_seq.h"
#include "record_file.h"
#include "save_picture.h"

namespace orb {

SequencePage::SequencePage(Clock& clock, Dialogs& dialogs, const Paths& paths, ORBCtrl& CORB, Workspace& wsMain,
                           Database& dbMain, QString& sPendingSeqFile, std::vector<double>& plottedValues)
    : Frame(QStringLiteral("Sequence")),
      deviceValues(dialogs),
      datORBSeqSet(wsMain),
      datORB(wsMain),
      graphSeq(graphSeqPlan()),
      clock_(clock),
      dialogs_(dialogs),
      paths_(paths),
      CORB_(CORB),
      dbMain_(dbMain),
      sPendingSeqFile_(sPendingSeqFile),
      plottedValues_(plottedValues)
{
    createLayout();
    wire();
}

void SequencePage::wire()
{
    seqOpen.onClick = [this] { seqOpenClick(); };
    seqSave.onClick = [this] { seqSaveClick(); };
    seqDelete.onClick = [this] { seqDeleteClick(); };
    seqSend.onClick = [this] { seqSendClick(); };
    SeqLoad.onClick = [this] { SeqLoadClick(); };
    seqPlot.onClick = [this] { seqPlotClick(); };
    graphSeq.onClick = [this] { graphSeqClick(); };
    graphSeq.onSavePicture = [this] { savePicture(dialogs_, graphSeq.ControlImage()); };
}

void SequencePage::ResetSequencePage()
{
    lstSequence.clear();
    DBGridHead.setCaption(1, QStringLiteral("The current settings"));
    DBGridHead.setCaption(2, QStringLiteral("Set"));
    DBGridHead.setWidthTwips(0, 2700);
    dbMain_.execute(QStringLiteral("delete * from ORBSeqHead"));
    rebind(datORBSeqSet, QStringLiteral("ORBSeqHead"));
    DBGridSequence.setCaption(1, QStringLiteral("Duration Time(S)"));
    DBGridSequence.setCaption(2, QStringLiteral("Current(A)"));
    DBGridSequence.setWidthTwips(4, 1400);
    DBGridSequence.setWidthTwips(3, 1400);
    dbMain_.execute(QStringLiteral("delete * from ORBSeqData"));
    rebind(datORB, QStringLiteral("ORBSeqData"));
    preventSimulation();
    graphSeq.setVisible(false);
    setTransferPictures();
    SeqLoad.setEnabled(CORB_.IsConnected());
}

void SequencePage::rebind(DataControl& control, const QString& table)
{
    control.setDatabaseName(paths_.inApplication(QStringLiteral("\\orb.mdb")));
    control.setRecordSource(table);
    control.refresh();
}

/// While connected the picture of `seqSend` stays as it is: only an opened file enables that button.
void SequencePage::setTransferPictures()
{
    if (CORB_.IsConnected())
        return SeqLoad.setPicture(icon("\\ICON\\SEQOUT.JPG"));
    seqSend.setPicture(icon("\\ICON\\SEQINTOSTOP.JPG"));
    SeqLoad.setPicture(icon("\\ICON\\SEQOUTSTOP.JPG"));
}

void SequencePage::allowSimulation()
{
    seqPlot.setPicture(icon("\\ICON\\SEQSimulate.JPG"));
    seqPlot.setEnabled(true);
}

void SequencePage::preventSimulation()
{
    seqPlot.setEnabled(false);
    seqPlot.setPicture(icon("\\ICON\\SEQSimulateStop.JPG"));
}

void SequencePage::seqSaveClick()
{
    const QString path = paths_.toWrite(QStringLiteral("\\test.a"));
    attemptEach([&] { deleteFile(path); }, [&] { writeRecord(path, record); });
}

void SequencePage::seqDeleteClick()
{
    attemptEach([this] { deleteFile(sSeqFileName); }, [this] { ResetSequencePage(); });
}

} // namespace orb
