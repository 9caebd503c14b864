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

bool fetchInto(Session& session, const QString& stagingFile, const QByteArray& query)
{
    const auto content = session.fetchBlock(query, limitMs);
    return content && !content->isEmpty() && writeStagingFile(stagingFile, *content);
}

} // namespace

bool fetchScreen(Session& session)
{
    const auto picture = session.fetchBlock(screenQuery, limitMs);
    return picture && isBitmap(*picture) && writeStagingFile(staging::screen, *picture);
}

bool fetchSequenceFile(Session& session)
{
    return fetchInto(session, staging::sequence, sequenceFileQuery);
}

bool fetchProgramFile(Session& session)
{
    return fetchInto(session, staging::program, programFileQuery);
}

bool sendProgramFile(Session& session)
{
    const auto content = readStagingFile(staging::programUpload, longestUpload);
    return content && session.sendBlock(programFileCommand, *content, limitMs);
}

} // namespace orb
