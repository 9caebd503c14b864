// SPDX-License-Identifier: GPL-3.0-or-later
#include "user_interface.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QMouseEvent>
#include <QPrintDialog>
#include <QPrinter>
#include <QTableView>
#include <QWheelEvent>

namespace orb::ui {

namespace {

template <typename Dialog> Dialog* up()
{
    return qobject_cast<Dialog*>(QApplication::activeModalWidget());
}

void typeIntoCell(QTableView& grid, const QString& text)
{
    auto* editor = grid.viewport()->findChild<QLineEdit*>();
    if (!editor)
        throw TourFailure(QStringLiteral("the cell can't be edited"));
    type(*editor, text);
    pressKey(*editor, Qt::Key_Return);
}

QString plain(QString caption)
{
    return caption.remove(QLatin1Char('&'));
}

} // namespace

QAbstractButton* find(const QWidget& where, const QString& caption)
{
    for (auto* button : where.findChildren<QAbstractButton*>())
        if (plain(button->text()) == caption && button->isVisible() && button->isEnabled())
            return button;
    return nullptr;
}

void press(const QWidget& where, const QString& caption)
{
    auto* button = find(where, caption);
    if (!button)
        throw TourFailure(QStringLiteral("nothing to press is called \"%1\"").arg(caption));
    button->click();
}

void pick(const QWidget& where, const QString& item)
{
    for (auto* combo : where.findChildren<QComboBox*>()) {
        const int index = combo->findText(item);
        if (index < 0 || !combo->isVisible() || !combo->isEnabled())
            continue;
        combo->setCurrentIndex(index);
        Q_EMIT combo->activated(index);
        return;
    }
    throw TourFailure(QStringLiteral("no list offers \"%1\"").arg(item));
}

void choose(QListWidget& list, const QString& line)
{
    const auto items = list.findItems(line, Qt::MatchExactly);
    if (items.isEmpty() || !list.isVisible() || !list.isEnabled())
        throw TourFailure(QStringLiteral("no list shows \"%1\"").arg(line));
    list.scrollToItem(items.constFirst());
    const QPointF at = list.visualItemRect(items.constFirst()).center();
    const QPointF onScreen = list.viewport()->mapToGlobal(at);
    for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
        QMouseEvent event(type, at, onScreen, Qt::LeftButton,
                          type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton, Qt::NoModifier);
        QCoreApplication::sendEvent(list.viewport(), &event);
    }
}

void click(QWidget& widget)
{
    if (!widget.isVisible() || !widget.isEnabled())
        throw TourFailure(QStringLiteral("there is nothing to click"));
    const QPointF at = widget.rect().center();
    for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
        QMouseEvent event(type, at, widget.mapToGlobal(at), Qt::LeftButton,
                          type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&widget, &event);
    }
}

void turnWheel(QWidget& widget, const QPoint& at, int notches)
{
    constexpr int notch = 120; // eighths of a degree
    QWheelEvent event(at, widget.mapToGlobal(at), {}, {0, notch * notches}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&widget, &event);
}

void type(QWidget& box, const QString& text)
{
    auto* edit = qobject_cast<QLineEdit*>(&box);
    if (!edit)
        edit = box.findChild<QLineEdit*>();
    if (!edit || !box.isVisible() || !box.isEnabled())
        throw TourFailure(QStringLiteral("there is no field to type \"%1\"").arg(text));
    edit->selectAll();
    for (const QChar c : text) {
        QKeyEvent key(QEvent::KeyPress, 0, Qt::NoModifier, QString(c));
        QCoreApplication::sendEvent(edit, &key);
    }
}

void pressKey(QWidget& widget, Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    if (!widget.isVisible() || !widget.isEnabled())
        throw TourFailure(QStringLiteral("the widget takes no keys"));
    QKeyEvent event(QEvent::KeyPress, key, modifiers);
    QCoreApplication::sendEvent(&widget, &event);
}

void editByMouse(QTableView& grid, int row, int column, const QString& text)
{
    const QModelIndex index = grid.model()->index(row, column);
    grid.scrollTo(index);
    const QPointF at = grid.visualRect(index).center();
    const QPointF onScreen = grid.viewport()->mapToGlobal(at);
    for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease, QEvent::MouseButtonDblClick,
                            QEvent::MouseButtonRelease}) {
        QMouseEvent event(type, at, onScreen, Qt::LeftButton,
                          type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(grid.viewport(), &event);
    }
    typeIntoCell(grid, text);
}

void editByKeys(QTableView& grid, const QString& text)
{
    pressKey(grid, Qt::Key_F2);
    typeIntoCell(grid, text);
}

QString messageUp()
{
    const auto* box = up<QMessageBox>();
    return box ? box->text() : QString();
}

bool fileDialogUp()
{
    return up<QFileDialog>() != nullptr;
}

bool typeFileName(const QString& path)
{
    auto* name = up<QFileDialog>()->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
    if (name->text() == path)
        return true;
    name->setText(path);
    return false;
}

void acceptFile()
{
    auto* name = up<QFileDialog>()->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
    const QString path = name->text();
    for (auto* view : up<QFileDialog>()->findChildren<QAbstractItemView*>())
        view->clearSelection(); // a selected file counts, whatever the text is
    name->clear();              // only a change of the text clears the file that was set beforehand
    name->setText(path);
    const auto* buttons = up<QFileDialog>()->findChild<QDialogButtonBox*>();
    for (auto* button : buttons->buttons())
        if (buttons->buttonRole(button) == QDialogButtonBox::AcceptRole)
            return button->click();
}

bool printDialogUp()
{
    return up<QPrintDialog>() != nullptr;
}

void printTo(const QString& path)
{
    auto* dialog = up<QPrintDialog>();
    if (!dialog)
        throw TourFailure(QStringLiteral("no printer dialog is open"));
    dialog->printer()->setOutputFormat(QPrinter::PdfFormat);
    dialog->printer()->setOutputFileName(path);
    dialog->done(QDialog::Accepted);
}

bool isPdf(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    const QByteArray bytes = file.readAll();
    return bytes.startsWith("%PDF") && bytes.trimmed().endsWith("%%EOF");
}

} // namespace orb::ui
