// SPDX-License-Identifier: GPL-3.0-or-later
#include "identity.h"

#include <QList>
#include <QStringDecoder>

#include <algorithm>

namespace orb {

namespace {

constexpr qsizetype longestIdentity = 256;
constexpr qsizetype identityFields = 4;
constexpr qsizetype longestShown = 4096; // characters of an answer, blanks among them, that are looked through

bool isPrintable(const QString& text)
{
    return std::ranges::all_of(text.toUcs4(), [](uint c) { return QChar::isPrint(c); });
}

} // namespace

QString answerText(const QByteArray& bytes)
{
    if (std::ranges::all_of(bytes, [](char c) { return static_cast<unsigned char>(c) < 0x80; }))
        return QString::fromLatin1(bytes);
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString text = decoder.decode(bytes);
    return decoder.hasError() ? QString::fromLatin1(bytes) : text;
}

std::optional<Identity> readIdentity(const QByteArray& answer)
{
    const QString text = answerText(answer);
    const QStringList fields = text.split(QLatin1Char(','));
    if (answer.size() > longestIdentity || fields.size() < identityFields || !isPrintable(text))
        return std::nullopt;
    Identity identity{fields[0].trimmed(), fields[1].trimmed(), fields[2].trimmed(),
                      fields.mid(3).join(QLatin1Char(',')).trimmed()};
    if (identity.maker.isEmpty() || identity.model.isEmpty())
        return std::nullopt;
    return identity;
}

QString shownText(const QByteArray& bytes, qsizetype longest)
{
    QString text;
    for (const char32_t c : answerText(bytes).left(longestShown).toUcs4())
        text += QChar::isPrint(c) ? QString::fromUcs4(&c, 1) : QStringLiteral(" ");
    text = text.simplified();
    if (text.size() <= longest)
        return text;
    if (text[longest - 1].isHighSurrogate())
        --longest;
    return text.left(longest) + QChar(0x2026);
}

QList<QByteArray> listFields(const QByteArray& answer)
{
    QList<QByteArray> fields = answer.split(',');
    if (fields.last().trimmed().isEmpty())
        fields.removeLast();
    return fields;
}

} // namespace orb
