// SPDX-License-Identifier: GPL-3.0-or-later
#include "served_log_comparison.h"

#include "user_interface.h"

#include <QFile>

namespace orb {

namespace {

/// The values of one line of the record. The comma at the end of the list closes it, no value follows.
QStringList valuesOf(const QString& served, const QString& query)
{
    if (served.section(QLatin1Char('\t'), 0, 0) != query)
        throw TourFailure(QStringLiteral("served is \"%1\" where %2 was expected").arg(served, query));
    QStringList values = served.section(QLatin1Char('\t'), 1).split(QLatin1Char(','));
    if (!values.takeLast().isEmpty())
        throw TourFailure(QStringLiteral("the list is not closed by a comma: ") + served);
    return values;
}

QString measured(const QString& currents, const QString& voltages)
{
    const QStringList a = valuesOf(currents, QStringLiteral(":FETC:ALLC?"));
    const QStringList v = valuesOf(voltages, QStringLiteral(":FETC:ALLV?"));
    QStringList fields;
    for (qsizetype i = 0; i < a.size() && i < v.size(); ++i)
        fields << a[i] << v[i];
    return fields.join(QLatin1Char(','));
}

} // namespace

QStringList linesOf(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw TourFailure(QStringLiteral("can't read ") + path);
    QStringList lines = QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'));
    if (!lines.takeLast().isEmpty())
        throw TourFailure(QStringLiteral("the last line has no end: ") + path);
    return lines;
}

int compareWithServed(const QString& csvPath, const QString& servedPath, int firstServed)
{
    const QStringList csv = linesOf(csvPath);
    const QStringList served = linesOf(servedPath).mid(firstServed);
    if (csv.size() - 1 != served.size() / 2)
        throw TourFailure(QStringLiteral("%1 rows, but %2 answers were served").arg(csv.size() - 1).arg(served.size()));
    for (qsizetype row = 0; row + 1 < csv.size(); ++row) {
        const QString expected = measured(served[2 * row], served[2 * row + 1]) + QLatin1Char('\r');
        const QString& line = csv[row + 1];
        if (line.section(QLatin1Char(','), 0, 0) != QString::number(row) ||
            line.section(QLatin1Char(','), 2) != expected)
            throw TourFailure(QStringLiteral("row %1 is \"%2\", served was \"%3\"").arg(row).arg(line, expected));
    }
    return static_cast<int>(csv.size()) - 1;
}

} // namespace orb
