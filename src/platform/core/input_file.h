// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFile>

namespace orb {

/// A text file open for reading, line by line. A line ends in a carriage return and a line feed or in either alone; the
/// last one may have no end. The text is UTF-8; a line that is not keeps its bytes, see `textOf`.
class InputFile {
public:
    /// Throws `RuntimeFailure` 53 where there is no such file, 75 where it is a folder, 70 where it can't
    /// be read, 52 for an empty name.
    explicit InputFile(const QString& literal);

    bool isAtEnd() const { return at_ >= content_.size(); }
    /// Throws `RuntimeFailure` 62 at the end of the file.
    QString readLine();

private:
    QByteArray content_;
    qsizetype at_ = 0;
};

} // namespace orb
