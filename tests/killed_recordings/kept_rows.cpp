// SPDX-License-Identifier: GPL-3.0-or-later
#include "kept_rows.h"

#include <QFile>

#include <sqlite3.h>

#include <functional>
#include <memory>
#include <stdexcept>

namespace orb {

namespace {

using Row = std::function<void(const char* const* values)>;

void forEachRow(const QDir& folder, const char* query, const Row& row)
{
    sqlite3* opened = nullptr;
    sqlite3_open(folder.filePath(QStringLiteral("orb.mdb")).toUtf8(), &opened);
    const std::unique_ptr<sqlite3, decltype(&sqlite3_close)> database(opened, &sqlite3_close);
    const auto callback = [](void* call, int, char** values, char**) {
        (*static_cast<const Row*>(call))(values);
        return 0;
    };
    if (sqlite3_exec(opened, query, callback, const_cast<Row*>(&row), nullptr) != SQLITE_OK)
        throw std::runtime_error(sqlite3_errmsg(opened));
}

void addFile(const QString& path, KeptRows& rows)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly) || !file.readLine().startsWith("No.,Time,Ch1A,Ch1V"))
        throw std::runtime_error("no file of rows: " + path.toStdString());
    while (!file.atEnd())
        if (const QList<QByteArray> fields = file.readLine().split(','); fields.size() > 3)
            rows[fields[2].toInt()].insert(fields[3].toInt());
}

} // namespace

KeptRows keptRows(const QDir& folder)
{
    KeptRows rows;
    forEachRow(folder, "select PVal1,SVal1 from DataMeasure union all select PVal1,SVal1 from DataMeasureD",
               [&rows](const char* const* values) { rows[std::atoi(values[0])].insert(std::atoi(values[1])); });
    const QDir recovered(folder.filePath(QStringLiteral("recovered")));
    for (const QString& name : recovered.entryList({QStringLiteral("*.csv")}, QDir::Files))
        addFile(recovered.filePath(name), rows);
    return rows;
}

QString integrityOf(const QDir& folder)
{
    QString text;
    forEachRow(folder, "pragma integrity_check",
               [&text](const char* const* values) { text += QString::fromUtf8(values[0]); });
    return text;
}

} // namespace orb
