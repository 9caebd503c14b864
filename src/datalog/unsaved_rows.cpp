// SPDX-License-Identifier: GPL-3.0-or-later
#include "unsaved_rows.h"

#include "csv_export.h"
#include "database.h"
#include "failure.h"
#include "paths.h"
#include "recovered_folder.h"
#include "sample_columns.h"
#include "text_file.h"
#include "wait_pointer.h"
#include "wait_window.h"
#include "workspace.h"

#include <QDir>
#include <QFileInfo>
#include <QLocale>

#include <optional>

namespace orb {

namespace {

constexpr int mostChannels = 8;

/// A whole number that a query returns, 0 for Null.
std::int64_t numberFrom(const Database& database, const QString& query)
{
    const auto rows = database.openRecordset(query);
    return rows->isEof() ? 0 : rows->value(0).integer;
}

QString rowOf(const QString& table, const QString& id)
{
    return QStringLiteral("(select %1 from %2 where rowid=%3)").arg(sampleColumns, table, id);
}

/// How many of the first rows of the table are in one saved log.
std::int64_t savedRows(const Database& database, std::int64_t first)
{
    const QString logs =
        QStringLiteral("select RecNum,(select min(rowid) from DataMeasureD where LogID=m.LogID) as head,"
                       "(select max(rowid) from DataMeasureD where LogID=m.LogID) as tail "
                       "from DataMeasureM m");
    const auto same = [](const QString& saved, const QString& live) {
        return rowOf(QStringLiteral("DataMeasureD"), saved) + QStringLiteral(" is ") +
               rowOf(QStringLiteral("DataMeasure"), live);
    };
    return numberFrom(database, QStringLiteral("select max(RecNum) from (%1) where head is not null and %2 and %3")
                                    .arg(logs, same(QStringLiteral("head"), QString::number(first)),
                                         same(QStringLiteral("tail"), QStringLiteral("%1+RecNum-1").arg(first))));
}

/// A row has a value of a channel that the file has no columns for.
struct FurtherChannel {};

/// The rows in their order, `columns` of each.
QString selectUnsaved(const QString& columns, const UnsavedRows& rows)
{
    return QStringLiteral("select %1 from DataMeasure where rowid>=%2 order by rowid").arg(columns).arg(rows.first);
}

/// The channels that the first row has a value for, at least one.
int channelsOf(const Database& database, const UnsavedRows& rows)
{
    QString highest;
    for (int n = mostChannels; n > 1; --n)
        highest += QStringLiteral(" when PVal%1 is not null or SVal%1 is not null then %1").arg(n);
    return static_cast<int>(
        numberFrom(database, selectUnsaved(QStringLiteral("case%1 else 1 end").arg(highest), rows)));
}

QString firstTime(const Database& database, const UnsavedRows& rows)
{
    const auto first = database.openRecordset(selectUnsaved(QStringLiteral("RecTime"), rows));
    return first->isEof() ? QString() : first->field(0).textOrEmpty();
}

/// A column that is Null where a row has no value of a channel beyond these.
QString furtherColumn(int channels)
{
    QString values = QStringLiteral("null");
    for (int n = channels + 1; n <= mostChannels; ++n)
        values += QStringLiteral(",PVal%1,SVal%1").arg(n);
    return QStringLiteral(",coalesce(null,%1)").arg(values);
}

/// The rows up to the one that can't be read. False where there is such a one. Throws `FurtherChannel`.
bool writeRows(const Database& database, const UnsavedRows& rows, int channels, OutputFile& file)
{
    file.writeLine(unsavedCsvHeader(channels));
    try {
        const auto records =
            database.openRecordset(selectUnsaved(csvColumns(channels) + furtherColumn(channels), rows));
        writeCsvRows(*records, channels, file, [&records, channels] {
            if (records->value(2 * channels + 2).type != FieldType::Null)
                throw FurtherChannel();
        });
        return true;
    } catch (const RuntimeFailure& failure) {
        if (failure.number() != failure::DatabaseDamaged)
            throw;
        return false;
    }
}

/// Where the file is, in the words of the sentence.
QString addFile(const Database& database, const UnsavedRows& rows, int channels, const QString& folder)
{
    bool whole = true;
    const QString file = addRecoveredFile(folder, firstTime(database, rows),
                                          [&](OutputFile& out) { whole = writeRows(database, rows, channels, out); });
    return QStringLiteral("in ") + QDir::toNativeSeparators(file) +
           (whole ? QString() : QStringLiteral(", as far as the database could be read"));
}

/// Rows with more channels than the first one are rare: only they make the file be written twice.
QString addFile(const Database& database, const UnsavedRows& rows, const QString& folder)
{
    try {
        return addFile(database, rows, channelsOf(database, rows), folder);
    } catch (const FurtherChannel&) {
        return addFile(database, rows, mostChannels, folder);
    }
}

QString sentence(std::int64_t rows, const QString& fate, const QStringList& reasons)
{
    const QString subject = rows == 1 ? QStringLiteral("1 row of a recording that was not saved is ")
                                      : QLocale(QLocale::English).toString(static_cast<qlonglong>(rows)) +
                                            QStringLiteral(" rows of a recording that was not saved are ");
    const QString why = reasons.isEmpty() ? QString() : QStringLiteral(" (%1)").arg(reasons.join(QStringLiteral("; ")));
    return subject + fate + why;
}

} // namespace

UnsavedRows findUnsavedRows(const Database& database)
{
    UnsavedRows rows;
    try {
        rows.last = numberFrom(database, QStringLiteral("select max(rowid) from DataMeasure"));
        rows.first = numberFrom(database, QStringLiteral("select ifnull(min(rowid),1) from DataMeasure"));
        rows.first += savedRows(database, rows.first);
    } catch (const RuntimeFailure&) { // what can't be read is not known to be saved
    }
    return rows;
}

QStringList recoveredFolders(const QString& database)
{
    const QString name = QStringLiteral("/recovered");
    QStringList folders{QFileInfo(realPath(database)).path() + name, userDataFolder() + name};
    folders.removeDuplicates(); // the database may be in the user's folder
    return folders;
}

QString putAside(const Database& database, const UnsavedRows& rows, const QStringList& folders)
{
    const WaitPointer wait;
    QStringList reasons;
    for (const QString& folder : folders) {
        try {
            return sentence(rows.count(), addFile(database, rows, folder), reasons);
        } catch (const RuntimeFailure& failure) {
            reasons << QDir::toNativeSeparators(folder) + QStringLiteral(": ") + failure.description();
        }
    }
    return sentence(rows.count(), QStringLiteral("lost"), reasons);
}

QString keepUnsavedRows(Workspace& workspace, const QString& path)
{
    constexpr std::int64_t manyRows = 50'000; // fewer take no time that could be noticed
    const Database database = workspace.openDatabase(path);
    const UnsavedRows rows = findUnsavedRows(database);
    if (rows.isEmpty())
        return {};
    std::optional<WaitWindow> window;
    if (rows.count() > manyRows)
        window.emplace(QStringLiteral("Keeping the rows of a recording that was not saved..."));
    return putAside(database, rows, recoveredFolders(path));
}

} // namespace orb
