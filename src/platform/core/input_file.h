// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFile>

#include <limits>

namespace orb {

/// The bytes of a file, or only so many of them. Throws `RuntimeFailure` 53 where there is no such file, 75 where it is a
/// folder, 70 where it can't be read, 57 where reading breaks off, 52 for an empty name.
QByteArray readBytes(const QString& literal, qint64 longest = std::numeric_limits<qint64>::max());

/// A text file open for reading, line by line. A line ends in a carriage return and a line feed or in either alone; the
/// last one may have no end. The text is UTF-8; a line that is not keeps its bytes, see `textOf`.
class InputFile {
public:
    /// Throws what `readBytes` throws.
    explicit InputFile(const QString& literal);

    bool isAtEnd() const { return at_ >= content_.size(); }
    /// Throws `RuntimeFailure` 62 at the end of the file.
    QString readLine();

private:
    QByteArray content_;
    qsizetype at_ = 0;
};

} // namespace orb
