// SPDX-License-Identifier: GPL-3.0-or-later
#include "bulk_transfer.h"

#include "orb_ctrl.h"
#include "staging_files.h"

namespace orb {

namespace {

constexpr int limitMs = 2000;
constexpr qint64 longestUpload = 1024 * 1024;

const QByteArray screenQuery = QByteArrayLiteral(":HCOP:SDUM:DATA?");
const QByteArray sequenceFileQuery = QByteArrayLiteral(":MMEM:DATA? \"ORBSeq.a\"");
const QByteArray programFileQuery = QByteArrayLiteral(":MMEM:DATA? \"ORBProg.b\"");
const QByteArray programFileCommand = QByteArrayLiteral(":MMEM:DATA \"ORBProg.b\",");

void fetchInto(Session& session, const QString& stagingFile, const QByteArray& query)
{
    if (const auto content = session.fetchBlock(query, limitMs); content && !content->isEmpty())
        writeStagingFile(stagingFile, *content);
}

} // namespace

bool fetchScreen(Session& session)
{
    const auto picture = session.fetchBlock(screenQuery, limitMs);
    return picture && isBitmap(*picture) && writeStagingFile(staging::screen, *picture);
}

void fetchSequenceFile(Session& session)
{
    fetchInto(session, staging::sequence, sequenceFileQuery);
}

void fetchProgramFile(Session& session)
{
    fetchInto(session, staging::program, programFileQuery);
}

void sendProgramFile(Session& session)
{
    if (const auto content = readStagingFile(staging::programUpload, longestUpload))
        session.sendBlock(programFileCommand, *content, limitMs);
}

} // namespace orb
