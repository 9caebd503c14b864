// SPDX-License-Identifier: GPL-3.0-or-later
#include "text_bytes.h"

namespace orb {

namespace {

constexpr char16_t keptBytes = 0xDC00;

bool isKeptByte(const QString& text, qsizetype at)
{
    const bool isInRange = text[at] >= QChar(keptBytes + 0x80) && text[at] <= QChar(keptBytes + 0xFF);
    return isInRange && (at == 0 || !text[at - 1].isHighSurrogate());
}

} // namespace

QString textOf(const QByteArray& bytes)
{
    QString text = QString::fromUtf8(bytes);
    if (text.toUtf8() == bytes)
        return text;
    text = QString::fromLatin1(bytes);
    for (QChar& c : text)
        if (c.unicode() >= 0x80)
            c = QChar(keptBytes + c.unicode());
    return text;
}

QByteArray bytesOf(const QString& text)
{
    QByteArray bytes;
    qsizetype begin = 0;
    for (qsizetype at = 0; at < text.size(); ++at) {
        if (!isKeptByte(text, at))
            continue;
        bytes += text.mid(begin, at - begin).toUtf8();
        bytes += static_cast<char>(text[at].unicode() - keptBytes);
        begin = at + 1;
    }
    return bytes + text.mid(begin).toUtf8();
}

} // namespace orb
