// SPDX-License-Identifier: GPL-3.0-or-later
#include "definite_length_block.h"

#include <algorithm>

namespace orb {

namespace {

constexpr qsizetype longestHead = 11; // "#9" and nine digits

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

} // namespace

BlockHead readBlockHead(const QByteArray& bytes, qsizetype at)
{
    const QByteArray start = bytes.mid(at, longestHead);
    if (start.isEmpty() || start == "#")
        return {BlockHead::Kind::Incomplete};
    if (start.front() != '#' || start.at(1) < '1' || start.at(1) > '9')
        return {};
    const qsizetype size = 2 + (start.at(1) - '0');
    const QByteArray digits = start.mid(2, size - 2);
    if (!std::ranges::all_of(digits, isDigit))
        return {};
    if (start.size() < size)
        return {BlockHead::Kind::Incomplete};
    const qsizetype length = digits.toInt();
    return length > BlockHead::longestData ? BlockHead{} : BlockHead{BlockHead::Kind::Complete, size, length};
}

bool startsAsBlock(const QByteArray& answer)
{
    return answer.startsWith('#') && answer.size() > 1 && isDigit(answer.at(1));
}

std::optional<QByteArray> blockData(const QByteArray& answer)
{
    const BlockHead head = readBlockHead(answer);
    if (head.kind != BlockHead::Kind::Complete || answer.size() != head.size + head.length)
        return std::nullopt;
    return answer.mid(head.size);
}

QByteArray asBlock(const QByteArray& data)
{
    const QByteArray length = QByteArray::number(data.size());
    return '#' + QByteArray::number(length.size()) + length + data;
}

} // namespace orb
