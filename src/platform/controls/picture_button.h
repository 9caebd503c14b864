// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "control.h"

#include <QToolButton>

namespace orb {

/// A push button with a caption and, above it, a picture.
class PictureButton : public Control<QToolButton> {
public:
    std::function<void()> onClick;

    explicit PictureButton(const QString& caption = {}, QWidget* parent = nullptr);

    QString caption() const { return text(); }
    void setCaption(const QString& caption) { setText(caption); }

    /// The path of the picture as it was set, empty while there is none.
    const QString& picture() const { return picture_; }
    /// Throws as `loadPicture` does; the button keeps its picture then. The empty path removes the picture.
    void setPicture(const QString& path);

    /// Shows the caption on two lines, broken at the blank that is nearest to its middle.
    void setOnTwoLines(bool onTwoLines);
    /// The caption with the line end of two lines.
    QString shownCaption() const;

    /// A marked button shows that what it stands for is in force. A press does not change the mark.
    void setMarked(bool marked);
    bool marked() const { return isChecked(); }

    /// The font in which the caption is drawn: smaller than the button's own where the caption would be cut off.
    QFont captionFont() const;

    QSize sizeHint() const override;

protected:
    void nextCheckState() override {}
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void initStyleOption(QStyleOptionToolButton* option) const override;

private:
    QString picture_;
    bool onTwoLines_ = false;
};

} // namespace orb
