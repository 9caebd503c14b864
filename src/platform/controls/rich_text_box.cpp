// SPDX-License-Identifier: GPL-3.0-or-later
#include "rich_text_box.h"

#include "focus_ring.h"
#include "text_file.h"

#include <QTextCursor>

namespace orb {

RichTextBox::RichTextBox(QWidget* parent) : Control<QPlainTextEdit>(parent)
{
    setReadOnly(true);
    setUndoRedoEnabled(false); // an undo stack would keep every entry twice
}

void RichTextBox::setText(const QString& text)
{
    text_ = text;
    setPlainText(text);
}

void RichTextBox::appendText(const QString& text)
{
    text_ += text;
    QTextCursor end(document());
    end.movePosition(QTextCursor::End);
    end.insertText(QString(text).replace(QStringLiteral("\r\n"), QStringLiteral("\n")));
}

void RichTextBox::moveCaretToEnd()
{
    moveCursor(QTextCursor::End);
}

void RichTextBox::saveFile(const QString& literal) const
{
    OutputFile file(literal);
    const QByteArray content = richText(text_);
    file.write({content.constData(), static_cast<std::size_t>(content.size())});
    file.close();
}

void RichTextBox::focusInEvent(QFocusEvent* event)
{
    QPlainTextEdit::focusInEvent(event);
    viewport()->update();
}

void RichTextBox::focusOutEvent(QFocusEvent* event)
{
    QPlainTextEdit::focusOutEvent(event);
    viewport()->update();
}

void RichTextBox::paintEvent(QPaintEvent* event)
{
    QPlainTextEdit::paintEvent(event);
    drawFocusRing(*this);
}

void RichTextBox::scrollContentsBy(int dx, int dy)
{
    QPlainTextEdit::scrollContentsBy(dx, dy);
    viewport()->update();
}

QByteArray richText(const QString& text)
{
    QByteArray out = "{\\rtf1\\ansi\\deff0{\\fonttbl{\\f0\\fmodern Courier New;}}\r\n\\f0\\fs20 ";
    for (const QChar c : text) {
        const ushort code = c.unicode();
        if (code == '\n')
            out += "\\par\r\n";
        else if (code == '\\' || code == '{' || code == '}')
            out.append('\\').append(static_cast<char>(code));
        else if (code >= 0x80)
            out += "\\u" + QByteArray::number(static_cast<qint16>(code)) + "?";
        else if (code >= ' ' || code == '\t')
            out.append(static_cast<char>(code));
    }
    return out + "}\r\n";
}

} // namespace orb
