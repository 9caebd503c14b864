// SPDX-License-Identifier: GPL-3.0-or-later
#include "sequence_statements.h"

#include "values.h"

#include <QStringList>

namespace orb {

QString decimals(double value, int most)
{
    QString text = QString::number(value, 'f', most);
    while (text.endsWith(QLatin1Char('0')) && text.at(text.size() - 2) != QLatin1Char('.'))
        text.chop(1);
    return text;
}

QString headInsert(const QString& label, int value)
{
    return QStringLiteral("Insert into OrbseqHead values(\"%1\",%2,%2)").arg(label).arg(value);
}

QString pointInsert(int index, const PointValues& values)
{
    const QStringList fields{text(index), decimals(values.seconds, 3), decimals(values.amperes, 2), text(values.rise),
                             text(values.fall)};
    return QStringLiteral("insert into ORBSeqData values(") + fields.join(QLatin1Char(',')) + QLatin1Char(')');
}

} // namespace orb
