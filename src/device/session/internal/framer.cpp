// SPDX-License-Identifier: GPL-3.0-or-later
#include "framer.h"

#include "definite_length_block.h"

#include <algorithm>

namespace orb {

void Framer::append(const QByteArray& bytes)
{
    buffer_.remove(0, begin_);
    searched_ -= begin_;
    begin_ = 0;
    buffer_ += bytes;
}

/// Where the line end may first stand: after the block. Nothing while the head or the block is not complete.
std::optional<qsizetype> Framer::textBegin(bool mayBeBlock) const
{
    const BlockHead head = mayBeBlock && !isSkipping_ ? readBlockHead(buffer_, begin_) : BlockHead{};
    if (head.kind == BlockHead::Kind::Incomplete || buffer_.size() - begin_ < head.size + head.length)
        return std::nullopt;
    return begin_ + head.size + head.length;
}

std::optional<Framer::Answer> Framer::next(bool mayBeBlock)
{
    while (const auto text = textBegin(mayBeBlock)) {
        const qsizetype lineEnd = buffer_.indexOf('\n', std::max(*text, searched_));
        if (lineEnd < 0) {
            searched_ = buffer_.size();
            skipLongText(*text);
            break;
        }
        if (Answer answer = cut(*text, lineEnd); !answer.text.isEmpty())
            return answer;
    }
    return std::nullopt;
}

Framer::Answer Framer::cut(qsizetype textBegin, qsizetype lineEnd)
{
    Answer answer{buffer_.mid(begin_, lineEnd - begin_), !isMixed_};
    if (lineEnd > textBegin && answer.text.endsWith('\r'))
        answer.text.chop(1);
    if (isSkipping_ || lineEnd - textBegin > longestText)
        answer.text = tooLong;
    begin_ = searched_ = lineEnd + 1;
    isSkipping_ = isMixed_ = false;
    return answer;
}

void Framer::skipLongText(qsizetype textBegin)
{
    if (!isSkipping_ && buffer_.size() - textBegin <= longestText)
        return;
    isSkipping_ = true;
    buffer_.clear();
    begin_ = searched_ = 0;
}

} // namespace orb
