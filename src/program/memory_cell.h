// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "control.h"

namespace orb {

/// One cell of the grid of steps: a short text on a color. The color of a run mode is drawn with the mode's letter. The
/// operator opens the cell and types nothing into it; it is no line edit, of which 120 would slow the start down.
class MemoryCell final : public Control<QWidget> {
public:
    /// A mouse button was pressed on the cell, or Enter or the space bar while it had the focus.
    std::function<void()> onMouseDown;
    /// An arrow key: so many rows down and columns to the right.
    std::function<void(int rows, int columns)> onArrow;

    explicit MemoryCell(QWidget* parent = nullptr);

    const QString& text() const { return text_; }
    void setText(const QString& text);
    QColor backColor() const { return backColor_; }
    void setBackColor(const QColor& color);
    QColor foreColor() const { return foreColor_; }
    void setForeColor(const QColor& color);
    /// In points.
    int fontSize() const { return font().pointSize(); }
    void setFontSize(int points);
    Qt::Alignment alignment() const { return alignment_; }
    void setAlignment(Qt::Alignment alignment);

    /// True for the cell whose step is open in a frame. It has a ring in a color that neither a run mode nor the focus has.
    bool isEdited() const { return isEdited_; }
    void setEdited(bool edited);

    /// The letter that is drawn beside the text, empty while the color is that of no run mode.
    QString mark() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void drawTexts(QPainter& painter) const;
    void drawBorder(QPainter& painter) const;
    QColor ground() const;
    QColor readableColor() const;

    QString text_;
    QColor backColor_ = Qt::white;
    QColor foreColor_ = Qt::black;
    Qt::Alignment alignment_ = Qt::AlignLeft;
    bool isEdited_ = false;
};

} // namespace orb
