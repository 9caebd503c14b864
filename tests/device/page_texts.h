// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAbstractButton>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>

#include <string>

namespace orb {

/// The caption of a control; the list of a combo box with its placeholder.
inline QString captionOf(const QWidget& widget)
{
    if (const auto* label = qobject_cast<const QLabel*>(&widget))
        return label->text();
    if (const auto* button = qobject_cast<const QAbstractButton*>(&widget))
        return button->text();
    if (const auto* group = qobject_cast<const QGroupBox*>(&widget))
        return group->title();
    const auto* combo = qobject_cast<const QComboBox*>(&widget);
    if (combo == nullptr)
        return {};
    QStringList texts;
    for (int i = 0; i < combo->count(); ++i)
        texts += combo->itemText(i);
    if (combo->lineEdit() != nullptr)
        texts += combo->lineEdit()->placeholderText();
    return QLatin1Char('[') + texts.join(QLatin1Char(',')) + QLatin1Char(']');
}

/// A line for each control of a page that is not hidden and has a text, in the order of the page: caption, tool tip, accessible name.
inline std::string textsOf(const QWidget& page)
{
    QStringList lines{QString()};
    for (const QWidget* widget : page.findChildren<QWidget*>()) {
        if (!widget->isVisibleTo(&page))
            continue;
        QStringList texts{captionOf(*widget), widget->toolTip(), widget->accessibleName()};
        texts.removeAll(QString());
        texts.removeDuplicates(); // a frame is named by its caption
        if (!texts.isEmpty())
            lines += texts.join(QStringLiteral(" | "));
    }
    return (lines.join(QLatin1Char('\n')) + QLatin1Char('\n')).toStdString();
}

} // namespace orb
