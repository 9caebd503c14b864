// SPDX-License-Identifier: GPL-3.0-or-later
#include "picture_button.h"

#include "focus_ring.h"
#include "picture.h"

#include <QKeyEvent>
#include <QPainter>
#include <QStyleOptionToolButton>

#include <algorithm>
#include <cmath>

namespace orb {

namespace {
constexpr int markHeight = 4;
constexpr int captionMargin = 2;
constexpr double smallestCaption = 5; // points
} // namespace

PictureButton::PictureButton(const QString& caption, QWidget* parent) : Control<QToolButton>(parent)
{
    setText(caption);
    setFocusPolicy(Qt::StrongFocus);
    setToolButtonStyle(Qt::ToolButtonTextOnly);
    QObject::connect(this, &QToolButton::clicked, this, [this] { enter(onClick); });
    // An assistive tool presses a button that can be marked by changing its mark, without a click, and waits for the
    // reply. The click follows later, as it does for Qt's other buttons: a dialog of its handler must not hold the tool up.
    QObject::connect(this, &QToolButton::toggled, this, [this](bool on) {
        setMarked(!on);
        animateClick();
    });
}

void PictureButton::setPicture(const QString& path)
{
    if (path == picture_)
        return;
    setIcon(path.isEmpty() ? QIcon() : pictureIcon(path));
    picture_ = path;
    setToolButtonStyle(path.isEmpty()        ? Qt::ToolButtonTextOnly
                       : caption().isEmpty() ? Qt::ToolButtonIconOnly
                                             : Qt::ToolButtonTextUnderIcon);
}

void PictureButton::setOnTwoLines(bool onTwoLines)
{
    onTwoLines_ = onTwoLines;
    updateGeometry();
    update();
}

QString PictureButton::shownCaption() const
{
    QString shown = caption();
    qsizetype nearest = -1;
    for (qsizetype blank = shown.indexOf(u' '); blank >= 0; blank = shown.indexOf(u' ', blank + 1))
        if (nearest < 0 || std::abs(2 * blank + 1 - shown.size()) < std::abs(2 * nearest + 1 - shown.size()))
            nearest = blank;
    if (onTwoLines_ && nearest >= 0)
        shown[nearest] = u'\n';
    return shown;
}

QSize PictureButton::sizeHint() const
{
    const QSize onOneLine = Control<QToolButton>::sizeHint();
    if (!onTwoLines_)
        return onOneLine;
    return onOneLine + fontMetrics().size(0, shownCaption()) - fontMetrics().size(0, caption());
}

QFont PictureButton::captionFont() const
{
    QFont fitted = font();
    const double points = QFontInfo(fitted).pointSizeF();
    const int room = width() - 2 * captionMargin;
    for (double smaller = points; smaller > smallestCaption; smaller -= 0.5) {
        if (QFontMetrics(fitted).size(0, shownCaption()).width() <= room)
            break;
        fitted.setPointSizeF(std::max(smaller - 0.5, smallestCaption));
    }
    return fitted;
}

void PictureButton::initStyleOption(QStyleOptionToolButton* option) const
{
    Control<QToolButton>::initStyleOption(option);
    option->text = shownCaption();
    option->font = captionFont();
    option->fontMetrics = QFontMetrics(option->font);
}

void PictureButton::setMarked(bool marked)
{
    const QSignalBlocker quiet(this);
    setCheckable(true); // assistive tools report the mark too
    setChecked(marked);
}

/// The mark is a bar along the lower edge, so that it is seen in any style of the desktop.
void PictureButton::paintEvent(QPaintEvent* event)
{
    Control<QToolButton>::paintEvent(event);
    QPainter painter(this);
    if (marked())
        painter.fillRect(3, height() - markHeight - 2, width() - 6, markHeight, palette().color(QPalette::Highlight));
    if (hasFocus())
        drawFocusRing(painter, rect(), palette());
}

/// Enter presses the button as the space bar does.
void PictureButton::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        click();
    else
        QToolButton::keyPressEvent(event);
}

} // namespace orb
