// SPDX-License-Identifier: GPL-3.0-or-later
#include "panel_map.h"

#include "failure.h"
#include "input_file.h"
#include "values.h"

#include <QStringList>

#include <cmath>

namespace orb {

namespace {

const QString& field(const QStringList& fields, int number)
{
    if (number > fields.size())
        throw RuntimeFailure(failure::SubscriptOutOfRange);
    return fields[number - 1];
}

/// The whole number at or below the field's.
std::int16_t edge(const QStringList& fields, int number)
{
    return toInteger(std::floor(toDouble(field(fields, number))));
}

void readRow(DevButton& button, const QStringList& fields)
{
    button.sName = field(fields, 1);
    button.nLeft = edge(fields, 2);
    button.nTop = edge(fields, 3);
    button.nRight = edge(fields, 4);
    button.nBottom = edge(fields, 5);
}

} // namespace

void PanelMap::InitDevButton(const Paths& paths)
{
    nDevButton = 0;
    InputFile file(paths.inApplication(QStringLiteral("\\ORBScrBtn.dat")));
    while (!file.isAtEnd()) {
        const QString line = file.readLine();
        if (line.isEmpty())
            continue;
        if (static_cast<std::size_t>(nDevButton) == aDevButton.size())
            throw RuntimeFailure(failure::SubscriptOutOfRange);
        readRow(aDevButton[static_cast<std::size_t>(nDevButton)], line.split(QLatin1Char(',')));
        ++nDevButton;
    }
}

const DevButton* PanelMap::hit(float x, float y) const
{
    for (std::size_t row = 0; row < static_cast<std::size_t>(nDevButton); ++row)
        if (aDevButton[row].contains(x, y))
            return &aDevButton[row];
    return nullptr;
}

} // namespace orb
