// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>

#include <optional>

namespace orb {

/// The head of a definite-length block, "#<n><length>": how many bytes it has itself, and how many the data.
struct BlockHead {
    /// A longer block is not taken for one.
    static constexpr qsizetype longestData = 4 * 1024 * 1024;

    enum class Kind { None, Incomplete, Complete };

    Kind kind = Kind::None;
    qsizetype size = 0;
    qsizetype length = 0;
};

/// Reads the head at the position `at` of `bytes`. `Incomplete`: what is there may become one.
BlockHead readBlockHead(const QByteArray& bytes, qsizetype at = 0);

/// True where the answer begins with a block, whole or not, of a length given or not.
bool startsAsBlock(const QByteArray& answer);

/// The data of an answer that is one whole block and nothing else; nothing for any other answer.
std::optional<QByteArray> blockData(const QByteArray& answer);

/// `data` as a definite-length block.
QByteArray asBlock(const QByteArray& data);

} // namespace orb
