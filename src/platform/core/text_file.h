// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFile>

#include <string_view>

namespace orb {

/// A text file open for output, which replaces an existing one. Lines end in a carriage return and a line feed, the
/// text is UTF-8. What was written stays, however the writing ends.
class OutputFile {
public:
    /// Throws `RuntimeFailure` 76 where the folder does not exist, 75 where the path is a folder,
    /// 70 where the file can't be written, 52 for an empty name.
    explicit OutputFile(const QString& literal);
    ~OutputFile();
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;

    /// Appends `text` and a line end. Throws `RuntimeFailure` 61 where the disk is full, 57 on any other error.
    void writeLine(std::string_view text);
    void writeLine(const QString& text);
    /// Appends `text` as it is. Fails as `writeLine` does.
    void write(std::string_view text);
    /// Passes what was written to the system. Fails as `writeLine` does.
    void flush();
    /// Throws as `writeLine` does where the rest can't be written. Closing twice does nothing.
    void close();

private:
    QFile file_;
    std::string buffer_;
};

} // namespace orb
