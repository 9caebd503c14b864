// SPDX-License-Identifier: GPL-3.0-or-later
#include "value_field.h"

#include "values.h"

#include <QKeyEvent>
#include <QLocale>

#include <algorithm>
#include <cmath>
#include <limits>

namespace orb {

namespace {

bool isDark(const QColor& color)
{
    return color.lightness() < 128;
}

QColor editColor(bool isRefused, bool isDark)
{
    if (isRefused)
        return isDark ? QColor(0x6b, 0x1c, 0x1c) : QColor(0xff, 0xd4, 0xd4);
    return isDark ? QColor(0x55, 0x49, 0x12) : QColor(0xff, 0xf3, 0xc4);
}

} // namespace

QString numberText(double value, double range)
{
    const double size = std::abs(range);
    const int decimals = size < 100 ? 4 : size < 1000 ? 3 : size < 10'000 ? 2 : 0;
    return QString::number(value, 'f', decimals);
}

QString outsideText(double value, const SetLimits& limits, const QString& unit)
{
    if (value < limits.lowest)
        return QStringLiteral("At least %1 %2").arg(text(limits.lowest), unit);
    if (value > limits.highest)
        return QStringLiteral("At most %1 %2").arg(text(limits.highest), unit);
    return {};
}

ValueField::ValueField()
{
    QObject::connect(this, &QLineEdit::textEdited, this, [this] { enter([this] { edited(); }); });
}

void ValueField::display(const std::optional<double>& value, const std::optional<SetLimits>& limits,
                         const QString& unit)
{
    const bool isSame = limits == limits_ && unit == unit_;
    limits_ = limits;
    unit_ = unit;
    // In a range of five digits a small value would lose its decimals.
    const bool byRange = limits && limits->highest < 10'000;
    shown_ = value ? numberText(*value, byRange ? limits->highest : *value) : QString();
    if (!isEdited_)
        setText(shown_);
    else if (!isSame)
        takeBack();
    showGround();
}

void ValueField::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return enter([this] { confirm(); });
    case Qt::Key_Escape:
        return enter([this] { takeBack(); });
    case Qt::Key_Up:
        return enter([this] { stepDigit(1); });
    case Qt::Key_Down:
        return enter([this] { stepDigit(-1); });
    default:
        TextBox::keyPressEvent(event);
    }
}

/// A list or another window that comes up in front does not end an edit.
void ValueField::focusOutEvent(QFocusEvent* event)
{
    TextBox::focusOutEvent(event);
    if (event->reason() != Qt::PopupFocusReason && event->reason() != Qt::ActiveWindowFocusReason)
        enter([this] { takeBack(); });
}

void ValueField::edited()
{
    isEdited_ = true;
    refusal_.clear();
    showState();
}

void ValueField::confirm()
{
    if (!isEdited_)
        return;
    const auto number = value();
    if (const QString why = number ? whyNot(*number) : QStringLiteral("Not a number"); !why.isEmpty())
        return refuse(why);
    isEdited_ = false;
    refusal_.clear();
    selectAll();
    showState();
    if (onConfirm)
        onConfirm(*number);
}

void ValueField::takeBack()
{
    if (!isEdited_ && refusal_.isEmpty())
        return;
    isEdited_ = false;
    refusal_.clear();
    setText(shown_);
    showState();
}

void ValueField::refuse(const QString& why)
{
    refusal_ = why;
    showState();
}

void ValueField::showState()
{
    showGround();
    if (onEdit)
        onEdit();
}

/// On a dark card a field has no other frame than its lighter ground.
void ValueField::showGround()
{
    constexpr int lighter = 170;
    const QColor card = (parentWidget() != nullptr ? parentWidget()->palette() : QPalette()).color(QPalette::Base);
    const bool isPlain = !isEdited_ && refusal_.isEmpty();
    const QColor ground = !isPlain       ? editColor(!refusal_.isEmpty(), isDark(card))
                          : isDark(card) ? card.lighter(lighter)
                                         : card;
    if (ground != backColor())
        setBackColor(ground);
}

/// The unit may be typed too.
std::optional<double> ValueField::value() const
{
    QString number = text().trimmed();
    if (!unit_.isEmpty() && number.endsWith(unit_, Qt::CaseInsensitive))
        number.chop(unit_.size());
    bool isNumber = false;
    const double value = QLocale::c().toDouble(number.trimmed(), &isNumber);
    return isNumber && std::isfinite(value) ? std::optional(value) : std::nullopt;
}

QString ValueField::whyNot(double value) const
{
    return outsideText(value, limits_.value_or(SetLimits{0, std::numeric_limits<double>::infinity()}), unit_);
}

/// The one that is selected, or stands after the cursor; at the end of the number its last one. -1 where there is none.
qsizetype ValueField::digitUnderCursor() const
{
    const QString number = text();
    const auto isDigit = [&](qsizetype at) { return at >= 0 && at < number.size() && number[at].isDigit(); };
    const qsizetype at = selectedText().size() == 1 ? selectionStart() : cursorPosition();
    return isDigit(at) ? at : isDigit(at - 1) ? at - 1 : -1;
}

/// The number keeps its length, with zeros before it, so that the cursor stays on its digit.
void ValueField::stepDigit(int by)
{
    const QString number = text();
    const qsizetype at = digitUnderCursor();
    bool isNumber = false;
    const double before = QLocale::c().toDouble(number, &isNumber);
    if (isReadOnly() || at < 0 || !isNumber || number.contains(QLatin1Char('e'), Qt::CaseInsensitive))
        return;
    const qsizetype point = number.contains(QLatin1Char('.')) ? number.indexOf(QLatin1Char('.')) : number.size();
    const int decimals = static_cast<int>(std::max<qsizetype>(number.size() - point - 1, 0));
    const int place = static_cast<int>(at < point ? point - at - 1 : point - at);
    const double unit = std::pow(10.0, decimals);
    const double after = (std::round(before * unit) + by * std::pow(10.0, place + decimals)) / unit;
    if (const QString why = whyNot(after); !why.isEmpty() && whyNot(before).isEmpty())
        return refuse(why);
    const QString stepped = QString::number(after, 'f', decimals).rightJustified(number.size(), QLatin1Char('0'));
    setText(stepped);
    setSelection(static_cast<int>(at + stepped.size() - number.size()), 1);
    edited();
}

} // namespace orb
