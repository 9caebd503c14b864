// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>

#include <optional>

namespace orb {

/// Cuts what an instrument sends into answers. An answer ends in a line feed, or a carriage return and a line feed. One
/// that begins with a definite-length block (#<n><length>) keeps every byte of the block, line feeds among them. No
/// input makes it grow without a bound.
class Framer {
public:
    static constexpr qsizetype longestText = 64 * 1024;
    static constexpr qsizetype longestBlock = 4 * 1024 * 1024;

    void take(QByteArray bytes);

    /// The next whole answer without its line end; a block comes with its head. An answer beyond the bounds comes as
    /// an empty one. Nothing when no answer is whole yet.
    std::optional<QByteArray> next();

    /// True when a part of an answer is in.
    bool isMidAnswer() const { return !buffer_.isEmpty() || skipping_; }
    /// What of an unfinished answer is in.
    const QByteArray& part() const { return buffer_; }
    /// True after a block that is too long to be one: where the next answer begins can't be told any more. Everything
    /// is thrown away until `forget`.
    bool isLost() const { return lost_; }
    /// Forgets the part that is in; the next byte begins an answer.
    void forget();

private:
    /// Where a line end may first stand: behind the block. Nothing while the head or the block is not whole.
    std::optional<qsizetype> textBegin();
    std::optional<QByteArray> cut(qsizetype textBegin, qsizetype lineEnd);
    std::optional<QByteArray> skip();

    QByteArray buffer_;
    qsizetype searched_ = 0; // no line end before this position
    bool skipping_ = false;  // inside of a text that is too long
    bool lost_ = false;
};

/// The data of an answer that is one whole definite-length block and nothing else; nothing for any other answer.
std::optional<QByteArray> blockData(const QByteArray& answer);

/// `data` as a definite-length block.
QByteArray asBlock(const QByteArray& data);

} // namespace orb
