// SPDX-License-Identifier: GPL-3.0-or-later
#include "framer.h"

namespace orb {

namespace {

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

/// The head of a definite-length block: how many bytes it has itself, and how many the data.
struct BlockHead {
    qsizetype size = 0;
    qint64 length = 0;
};

enum class Begin { Text, Block, TooShortToTell };

/// What the answer that begins like this is.
Begin beginOf(const QByteArray& bytes, BlockHead& head)
{
    if (bytes.isEmpty() || bytes[0] != '#')
        return bytes.isEmpty() ? Begin::TooShortToTell : Begin::Text;
    if (bytes.size() < 2)
        return Begin::TooShortToTell;
    if (!isDigit(bytes[1]) || bytes[1] == '0')
        return Begin::Text;
    head.size = 2 + (bytes[1] - '0');
    head.length = 0;
    for (qsizetype i = 2; i < head.size; ++i) {
        if (i == bytes.size())
            return Begin::TooShortToTell;
        if (!isDigit(bytes[i]))
            return Begin::Text;
        head.length = head.length * 10 + (bytes[i] - '0'); // nine digits at most
    }
    return Begin::Block;
}

} // namespace

void Framer::take(QByteArray bytes)
{
    if (buffer_.isEmpty())
        buffer_ = std::move(bytes);
    else
        buffer_.append(bytes);
}

std::optional<qsizetype> Framer::textBegin()
{
    BlockHead head;
    switch (beginOf(buffer_, head)) {
    case Begin::TooShortToTell:
        return std::nullopt;
    case Begin::Text:
        return 0;
    case Begin::Block:
        break;
    }
    if (head.length > longestBlock) {
        lost_ = true;
        return std::nullopt;
    }
    const qsizetype end = head.size + static_cast<qsizetype>(head.length);
    return buffer_.size() < end ? std::nullopt : std::optional(end);
}

std::optional<QByteArray> Framer::next()
{
    if (lost_)
        buffer_.clear();
    if (skipping_)
        return skip();
    const auto begin = textBegin();
    if (!begin) {
        if (lost_)
            buffer_.clear();
        return std::nullopt;
    }
    const qsizetype lineEnd = buffer_.indexOf('\n', std::max(*begin, searched_));
    if (lineEnd >= 0)
        return cut(*begin, lineEnd);
    searched_ = buffer_.size();
    if (buffer_.size() - *begin > longestText) {
        skipping_ = true;
        return skip();
    }
    return std::nullopt;
}

std::optional<QByteArray> Framer::cut(qsizetype textBegin, qsizetype lineEnd)
{
    searched_ = 0;
    QByteArray answer;
    if (lineEnd + 1 == buffer_.size()) { // the usual case, and the cheap one
        answer.swap(buffer_);
        answer.truncate(lineEnd);
    } else {
        answer = buffer_.left(lineEnd);
        buffer_.remove(0, lineEnd + 1);
    }
    if (answer.size() > textBegin && answer.endsWith('\r'))
        answer.chop(1);
    return answer.size() - textBegin > longestText ? QByteArray("") : answer;
}

/// Throws away a text that is too long, up to its line end, which makes it an empty answer.
std::optional<QByteArray> Framer::skip()
{
    const qsizetype lineEnd = buffer_.indexOf('\n');
    searched_ = 0;
    if (lineEnd < 0) {
        buffer_.clear();
        return std::nullopt;
    }
    buffer_.remove(0, lineEnd + 1);
    skipping_ = false;
    return QByteArray("");
}

void Framer::forget()
{
    buffer_.clear();
    searched_ = 0;
    skipping_ = false;
    lost_ = false;
}

std::optional<QByteArray> blockData(const QByteArray& answer)
{
    BlockHead head;
    if (beginOf(answer, head) != Begin::Block || answer.size() != head.size + head.length)
        return std::nullopt;
    return answer.mid(head.size);
}

QByteArray asBlock(const QByteArray& data)
{
    const QByteArray length = QByteArray::number(data.size());
    return '#' + QByteArray::number(length.size()) + length + data;
}

} // namespace orb
