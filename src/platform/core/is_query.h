// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArrayView>
#include <QStringView>

namespace orb {

/// True when a command line asks for an answer: it holds a question mark anywhere, inside of quotes or not.
inline bool isQuery(QByteArrayView line)
{
    return line.contains('?');
}

inline bool isQuery(QStringView line)
{
    return line.contains(u'?');
}

} // namespace orb
