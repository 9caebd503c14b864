// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace orb {

/// The text of a line from a file, and the bytes of a text: UTF-8. In a line that is no UTF-8 each byte from 0x80 on becomes
/// one of the lone surrogates U+DC80 to U+DCFF, so that the line is written to a file and sent to the instrument with the
/// bytes that it came with.
QString textOf(const QByteArray& bytes);
QByteArray bytesOf(const QString& text);

} // namespace orb
