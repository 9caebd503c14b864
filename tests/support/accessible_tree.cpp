// SPDX-License-Identifier: GPL-3.0-or-later
#include "accessible_tree.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QGroupBox>
#include <QLabel>
#include <QWidget>

#include <algorithm>

namespace orb {

namespace {

/// Whether it has a text of its own that is read in place of a name, or nothing to be read.
bool isContent(const QAccessibleInterface& control)
{
    switch (control.role()) {
    case QAccessible::ListItem:
    case QAccessible::Cell:
    case QAccessible::ColumnHeader:
    case QAccessible::RowHeader:
        return true;
    case QAccessible::StaticText: {
        const auto* label = qobject_cast<const QLabel*>(control.object());
        return !label || label->pixmap().isNull(); // the name of a label is its text, which may be empty for now
    }
    default:
        return false;
    }
}

bool isRead(const QAccessibleInterface& control)
{
    switch (control.role()) {
    case QAccessible::StaticText:
    case QAccessible::Button:
    case QAccessible::ButtonMenu:
    case QAccessible::CheckBox:
    case QAccessible::RadioButton:
    case QAccessible::ComboBox:
    case QAccessible::EditableText:
    case QAccessible::List:
    case QAccessible::Table:
    case QAccessible::Slider:
    case QAccessible::SpinBox:
    case QAccessible::ProgressBar:
    case QAccessible::Graphic:
    case QAccessible::Chart:
    case QAccessible::PageTab:
        return true;
    default:
        return control.state().focusable;
    }
}

QString lineOf(const QAccessibleInterface& control, const QStringList& containers)
{
    const QObject* object = control.object();
    return QStringLiteral("role %1, %2 '%3' in %4")
        .arg(static_cast<int>(control.role()))
        .arg(QLatin1String(object ? object->metaObject()->className() : "no object"),
             object ? object->objectName() : QString(), containers.join(QStringLiteral(" > ")));
}

/// Whether a label stands for a control.
bool hasLabel(const QAccessibleInterface& control)
{
    const auto relations = control.relations(QAccessible::Label);
    return std::any_of(relations.begin(), relations.end(),
                       [](const auto& relation) { return qobject_cast<const QLabel*>(relation.first->object()); });
}

/// The name of a combo box is its selected text on a Unix desktop; its label or its description says what it is for.
QString nameOfComboBox(const QAccessibleInterface& combo)
{
    return hasLabel(combo) ? QStringLiteral("labeled") : combo.text(QAccessible::Description).trimmed();
}

/// The name of a control. That of the frame around it, which Qt gives to what has none, is no name.
QString nameOf(const QAccessibleInterface& control)
{
    if (control.role() == QAccessible::ComboBox)
        return nameOfComboBox(control);
    const QString name = control.text(QAccessible::Name).trimmed();
    const auto* widget = qobject_cast<const QWidget*>(control.object());
    const auto* frame = widget ? qobject_cast<const QGroupBox*>(widget->parent()) : nullptr;
    const bool hasText = qobject_cast<const QAbstractButton*>(widget) || qobject_cast<const QLabel*>(widget) ||
                         qobject_cast<const QGroupBox*>(widget);
    const bool isOwn = !frame || hasText || !widget->accessibleName().isEmpty() || name != frame->title();
    return isOwn ? name : QString();
}

void addUnnamed(QStringList& lines, const QAccessibleInterface& control, const QStringList& containers)
{
    const QString name = nameOf(control);
    if (isRead(control) && !isContent(control) && name.isEmpty())
        lines << lineOf(control, containers);
    if (control.role() == QAccessible::ComboBox) // one control for the operator, whatever it consists of
        return;
    const QStringList path = name.isEmpty() ? containers : containers + QStringList(name);
    for (int i = 0; i < control.childCount(); ++i)
        if (const QAccessibleInterface* child = control.child(i))
            addUnnamed(lines, *child, path);
}

} // namespace

QStringList unnamedControls(QWidget& widget)
{
    QStringList lines;
    if (const QAccessibleInterface* root = QAccessible::queryAccessibleInterface(&widget))
        addUnnamed(lines, *root, {});
    return lines;
}

} // namespace orb
