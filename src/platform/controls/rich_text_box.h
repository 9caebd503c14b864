// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "control.h"

#include <QPlainTextEdit>

namespace orb {

/// A long text that grows at its end. The operator reads and copies it; the program writes it.
class RichTextBox : public Control<QPlainTextEdit> {
public:
    explicit RichTextBox(QWidget* parent = nullptr);

    /// The text as it was assigned, its line ends as they are.
    const QString& text() const { return text_; }
    void setText(const QString& text);
    /// The same as assigning the old text followed by `text`, at a cost that does not depend on the old text's length.
    void appendText(const QString& text);

    void moveCaretToEnd();

    /// Writes the text as a rich text file. Throws as `OutputFile` does.
    void saveFile(const QString& literal) const;

protected:
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;

private:
    QString text_;
};

/// `text` in plain rich text form: ASCII, everything else escaped, a paragraph for each line end.
QByteArray richText(const QString& text);

} // namespace orb
