// SPDX-License-Identifier: GPL-3.0-or-later
#include "command_catalogue.h"

#include "failure.h"
#include "values.h"

namespace orb {

void clsCommands::setQueryCmd(bool isQuery)
{
    toDouble(QString());
    queryCmd_ = isQuery;
}

void CommandCollection::add(const clsCommands& row, const QString& key)
{
    const QString folded = key.toCaseFolded();
    if (rows_.contains(folded))
        throw RuntimeFailure(failure::KeyAlreadyAssociated);
    rows_.insert(folded, row);
}

const clsCommands& CommandCollection::item(const QString& key) const
{
    const auto row = rows_.constFind(key.toCaseFolded());
    if (row == rows_.constEnd())
        throw RuntimeFailure(failure::InvalidProcedureCall);
    return *row;
}

CatalogueLine catalogueLine(const QString& line)
{
    CatalogueLine result;
    const QStringList fields = line.split(QLatin1Char('^'));
    if (fields.size() == 1 || fields.size() == 3) {
        result.entry = fields[0];
        result.row.setCommand(fields[0]);
    } else {
        result.entry = line;
    }
    if (fields.size() == 3) {
        result.row.setDesc(fields[1]);
        result.row.setFormat(fields[2]);
    }
    return result;
}

} // namespace orb
