// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>

#include <ostream>

/// Lets a failed expectation show texts as texts. QString is in no namespace, and so are these.
inline void PrintTo(const QString& text, std::ostream* out)
{
    *out << '"' << text.toStdString() << '"';
}

inline void PrintTo(const QStringList& texts, std::ostream* out)
{
    *out << '"' << texts.join(QStringLiteral("\", \"")).toStdString() << '"';
}
