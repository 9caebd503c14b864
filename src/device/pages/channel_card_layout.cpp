// SPDX-License-Identifier: GPL-3.0-or-later
#include "channel_card.h"

#include <QFontDatabase>
#include <QFontMetrics>
#include <QGridLayout>

#include <algorithm>

namespace orb {

namespace {

constexpr int sideMargin = 7;
constexpr int rowSpacing = 4;
constexpr int narrow = 170; // the limits stand below the field
constexpr int smallest = 11;
constexpr int largest = 34;
constexpr int largestReading = 400;

void setPixelSize(QWidget& widget, int size, bool isBold = false)
{
    QFont font = widget.font();
    font.setPixelSize(size);
    font.setBold(isBold);
    widget.setFont(font);
}

/// Figures of one width, so that a reading stands still while it changes.
QFont readingFont(int pixelSize)
{
    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    font.setPixelSize(pixelSize);
    font.setBold(true);
    return font;
}

QHBoxLayout* row(std::initializer_list<std::pair<QWidget*, int>> widgets)
{
    auto* layout = new QHBoxLayout;
    layout->setSpacing(rowSpacing);
    for (const auto& [widget, stretch] : widgets) {
        if (stretch > 0)
            widget->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
        layout->addWidget(widget, stretch);
    }
    return layout;
}

} // namespace

void ChannelCard::createLayout()
{
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored); // all cards of a row have the same width
    setFrameStyle(QFrame::Box | QFrame::Plain);
    setLineWidth(2);
    setForegroundRole(QPalette::BrightText); // of the frame
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::Base);
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(sideMargin, 5, sideMargin, 6);
    grid->setHorizontalSpacing(4);
    grid->setVerticalSpacing(2);
    grid->setColumnStretch(0, 1);
    grid->addLayout(titleRow(), 0, 0, 1, 2);
    int line = 1;
    for (Label* reading : readings()) {
        reading->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        reading->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
        reading->setForegroundRole(QPalette::WindowText);
        grid->addWidget(reading, line, 0);
        grid->addWidget(&units_[static_cast<std::size_t>(line - 1)], line, 1);
        grid->setRowStretch(line++, 1);
    }
    grid->addLayout(modeRow(), 4, 0, 1, 2);
    grid->addLayout(setValueRow(), 5, 0, 1, 2);
    lblNote.setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    lblNote.setForegroundRole(QPalette::WindowText);
    grid->addWidget(&lblNote, 6, 0, 1, 2);
    cmdLoad.setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    cmdLoad.setFocusPolicy(Qt::TabFocus); // after a click the focus is elsewhere, so that no key switches a load
    grid->addWidget(&cmdLoad, 7, 0, 1, 2);
    setTabOrder(&cmbMode, &cmbRange);
    setTabOrder(&cmbRange, &txtSetValue);
    setTabOrder(&txtSetValue, &cmdLoad);
}

QLayout* ChannelCard::titleRow()
{
    // Without roles of its own the label takes those of the card.
    lblState.setBackgroundRole(QPalette::Window);
    lblState.setForegroundRole(QPalette::WindowText);
    lblState.setAlignment(Qt::AlignCenter);
    lblState.setAutoFillBackground(true);
    lblState.setContentsMargins(6, 1, 6, 1);
    return row({{&lblNumber, 0}, {&lblModule, 1}, {&lblState, 0}});
}

QLayout* ChannelCard::modeRow()
{
    return row({{&cmbMode, 1}, {&cmbRange, 1}});
}

QLayout* ChannelCard::setValueRow()
{
    txtSetValue.setAlignment(Qt::AlignRight);
    setValueRow_ = new QBoxLayout(QBoxLayout::LeftToRight);
    setValueRow_->setSpacing(rowSpacing);
    setValueRow_->addLayout(row({{&txtSetValue, 1}, {&lblUnit, 0}}), 1);
    setValueRow_->addWidget(&lblLimits, 0, Qt::AlignRight);
    return setValueRow_;
}

void ChannelCard::nameControls()
{
    const QString channel = QStringLiteral(", channel ") + lblNumber.caption();
    setAccessibleName(QStringLiteral("Channel ") + lblNumber.caption());
    cmbMode.setAccessibleName(QStringLiteral("Mode") + channel);
    cmbRange.setAccessibleName(QStringLiteral("Range") + channel);
    txtSetValue.setAccessibleName(QStringLiteral("Set value") + channel);
    cmbMode.setToolTip(QStringLiteral("Mode. A change switches the input off first."));
    cmbRange.setToolTip(QStringLiteral("Range. A change switches the input off first."));
    txtSetValue.setToolTip(QStringLiteral("Set value. Enter sends it, Escape takes an edit back; the arrow keys step "
                                          "the digit under the cursor."));
    lblLimits.setToolTip(QStringLiteral("The lowest and the highest set value in this mode and range"));
}

/// The readings grow with the card; the other texts keep a readable size.
void ChannelCard::resizeEvent(QResizeEvent* event)
{
    Control<QFrame>::resizeEvent(event);
    const int small = std::clamp(std::min(width() / 12, height() / 20), smallest, largest);
    setSizes(small);
    setValueRow_->setDirection(width() < narrow ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight);
    setValueRow_->setSpacing(width() < narrow ? 0 : std::max(rowSpacing, small / 2));
    const QFont font = readingFont(readingSize(small));
    for (Label* reading : readings())
        reading->setFont(font);
    layout()->activate(); // the new sizes show with the next painting and not with the one after it
}

void ChannelCard::setSizes(int small)
{
    for (QWidget* widget :
         std::initializer_list<QWidget*>{&lblModule, &lblUnit, &lblNote, &cmdLoad, &cmbMode, &cmbRange, &txtSetValue})
        setPixelSize(*widget, small);
    for (Label& unit : units_)
        setPixelSize(unit, small);
    setPixelSize(lblNumber, small + 2, true);
    setPixelSize(lblState, small - 1, true);
    setPixelSize(lblLimits, small - 1);
    for (QWidget* widget : std::initializer_list<QWidget*>{&cmbMode, &cmbRange, &txtSetValue, &cmdLoad})
        widget->setFixedHeight(2 * small);
    lblNote.setFixedHeight(3 * small / 2);
}

/// The largest size at which the longest reading fits beside its unit, and three of them below each other.
int ChannelCard::readingSize(int small) const
{
    constexpr int probe = 100;
    const int longest = QFontMetrics(readingFont(probe)).horizontalAdvance(QStringLiteral("-00.0000"));
    const int room = width() - 2 * sideMargin - small - 14;
    const int rest = (width() < narrow ? 11 : 10) * small + 34; // title, settings, note and button
    return std::clamp(std::min(room * probe / longest, (height() - rest) * 10 / 36), smallest, largestReading);
}

} // namespace orb
