// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "data_control.h"
#include "database_fixture.h"
#include "form.h"
#include "recorded_exit.h"

namespace orb {

/// A data control on the live table, on a form.
class DataControlTest : public DatabaseTest {
protected:
    DataControlTest()
    {
        DataLog.setConnectText("Access 2000;");
        DataLog.setDatabaseName(path);
        DataLog.setRecordSource("DataMeasure");
    }

    /// The sample numbers of the snapshot, read by row.
    std::string samples()
    {
        QStringList numbers;
        const int column = DataLog.columnOf("seqno");
        for (std::int64_t row = 0; row < DataLog.rowCount(); ++row)
            numbers << QString::number(DataLog.valueAt(row, column).integer);
        return numbers.join(' ').toStdString();
    }

    std::int64_t sampleAt(std::int64_t row) { return DataLog.valueAt(row, DataLog.columnOf("SeqNo")).integer; }

    /// What a refresh reads, scans or counts in the file.
    std::int64_t rowsReadByRefresh()
    {
        const std::int64_t before = DataLog.rowsRead();
        DataLog.refresh();
        return DataLog.rowsRead() - before;
    }

    RecordedExit processExit;
    orb::Run run{processExit};
    Form form{run};
    DataControl DataLog{workspace};
};

} // namespace orb
