// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>

#include <optional>

namespace orb {

/// Cuts what an instrument sends into answers. An answer ends in a line feed, or a carriage return and a line feed; an
/// empty line is none. Where a definite-length block may come, the answer keeps every byte of it. No input makes the
/// framer grow beyond the longest answer.
class Framer {
public:
    static constexpr qsizetype longestText = 64 * 1024;
    /// What stands in the place of a text that is longer.
    static constexpr const char* tooLong = "(an answer of more than 64 KiB)";

    struct Answer {
        QByteArray text;
        /// False where the line may hold the beginning of one answer and the end of another.
        bool isWhole = true;
    };

    void append(const QByteArray& bytes);

    /// The next answer without its line end; nothing while none is complete. `mayBeBlock`: it may begin with a block.
    std::optional<Answer> next(bool mayBeBlock);

    /// True when a part of an answer is in.
    bool isMidAnswer() const { return isSkipping_ || begin_ < buffer_.size(); }
    /// What of an unfinished answer is kept.
    QByteArray part() const { return buffer_.mid(begin_); }
    /// Another query goes out: if the rest of the part that is in never comes, the next answer continues its line.
    void distrustPart() { isMixed_ = isMidAnswer(); }

private:
    std::optional<qsizetype> textBegin(bool mayBeBlock) const;
    Answer cut(qsizetype textBegin, qsizetype lineEnd);
    void skipLongText(qsizetype textBegin);

    QByteArray buffer_;
    qsizetype begin_ = 0;     // of the next answer
    qsizetype searched_ = 0;  // no line end before this position
    bool isSkipping_ = false; // inside of a text that is too long
    bool isMixed_ = false;    // a query went out while the line was incomplete
};

} // namespace orb
