// SPDX-License-Identifier: GPL-3.0-or-later
#include "sample_statement.h"

#include "failure.h"

#include <QRegularExpression>

namespace orb {

QString recordTime(const QDateTime& time)
{
    return time.toString(QStringLiteral("yyyy/MM/dd HH:mm:ss"));
}

bool isNumericLiteral(const QString& field)
{
    static const QRegularExpression number(QRegularExpression::anchoredPattern(
        QStringLiteral("[ \t\r\n]*[+-]?(([0-9]+\\.?[0-9]*|\\.[0-9]+)([eE][+-]?[0-9]+)?|0[xX][0-9a-fA-F]{1,16})"
                       "[ \t\r\n]*")));
    return number.match(field).hasMatch();
}

SampleStatement::SampleStatement(std::int32_t recordNo, const QDateTime& time, int channels)
{
    if (channels < 1) // the list of columns has no last comma to cut off
        throw RuntimeFailure(failure::InvalidProcedureCall);
    QStringList columns;
    for (int n = 1; n <= channels; ++n)
        columns << QStringLiteral("PVal%1,SVal%1").arg(n);
    start_ = QStringLiteral("insert into DataMeasure (SeqNo,RecTime,%1)  values(%2,'%3',")
                 .arg(columns.join(QLatin1Char(',')))
                 .arg(recordNo)
                 .arg(recordTime(time));
}

QString SampleStatement::sql() const
{
    if (!std::all_of(fields_.begin(), fields_.end(), isNumericLiteral))
        throw RuntimeFailure(failure::UnknownName);
    return start_ + fields_.join(QLatin1Char(',')) + QLatin1Char(')');
}

} // namespace orb
