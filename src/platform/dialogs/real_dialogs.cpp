// SPDX-License-Identifier: GPL-3.0-or-later
#include "real_dialogs.h"

#include "paths.h"
#include "real_printer.h"

#include <QApplication>
#include <QFileDialog>
#include <QMessageBox>
#include <QPrintDialog>

#include <cstdio>
#include <cstdlib>

namespace orb {

namespace {

QMessageBox::Icon qtIcon(Icon icon)
{
    switch (icon) {
    case Icon::Critical:
        return QMessageBox::Critical;
    case Icon::Information:
        return QMessageBox::Information;
    case Icon::None:
        break;
    }
    return QMessageBox::NoIcon;
}

/// "A|*.a;*.b|C|*.c" as Qt writes it: a list of "A (*.a *.b)".
QStringList nameFilters(const QString& filter)
{
    const QStringList parts = filter.split(QLatin1Char('|'));
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        QString patterns = parts[i + 1];
        patterns.replace(QLatin1Char(';'), QLatin1Char(' '));
        const QString words = parts[i].section(QLatin1Char('('), 0, 0).trimmed();
        filters << QStringLiteral("%1 (%2)").arg(words, patterns);
    }
    return filters;
}

QString defaultSuffix(const QString& filter)
{
    const QString pattern = filter.section(QLatin1Char('|'), 1, 1).section(QLatin1Char(';'), 0, 0);
    return pattern.section(QStringLiteral("*."), 1, 1);
}

} // namespace

RealDialogs::RealDialogs(const QString& title) : title_(title) {}

RealDialogs::~RealDialogs() = default;

Answer RealDialogs::message(const QString& text, Icon icon, Buttons buttons)
{
    QMessageBox box(QApplication::activeWindow());
    box.setWindowTitle(title_);
    box.setText(QString(text).replace(QStringLiteral("\r\n"), QStringLiteral("\n")));
    box.setTextFormat(Qt::PlainText);
    box.setTextInteractionFlags(Qt::TextSelectableByMouse);
    box.setIcon(qtIcon(icon));
    if (buttons == Buttons::Ok) {
        box.setStandardButtons(QMessageBox::Ok);
        box.exec();
        return Answer::Ok;
    }
    box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
    box.setEscapeButton(QMessageBox::No);
    return box.exec() == QMessageBox::Yes ? Answer::Yes : Answer::No;
}

void RealDialogs::prepare(QFileDialog& dialog) const
{
    if (!CommonDialog1.title.isEmpty())
        dialog.setWindowTitle(CommonDialog1.title);
    dialog.setDirectory(realPath(CommonDialog1.initialDirectory));
    dialog.setNameFilters(nameFilters(CommonDialog1.filter));
    if (!CommonDialog1.fileName.isEmpty())
        dialog.selectFile(CommonDialog1.fileName);
}

bool RealDialogs::take(QFileDialog& dialog)
{
    prepare(dialog);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return false;
    CommonDialog1.fileName = dialog.selectedFiles().constFirst();
    return true;
}

bool RealDialogs::showOpen()
{
    QFileDialog dialog(QApplication::activeWindow());
    dialog.setAcceptMode(QFileDialog::AcceptOpen);
    dialog.setFileMode(QFileDialog::ExistingFile);
    return take(dialog);
}

bool RealDialogs::showSave()
{
    QFileDialog dialog(QApplication::activeWindow());
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(defaultSuffix(CommonDialog1.filter));
    return take(dialog);
}

Printer& RealDialogs::printer()
{
    if (!printer_)
        printer_ = std::make_unique<RealPrinter>();
    return *printer_;
}

bool RealDialogs::showPrinter()
{
    printer();
    QPrintDialog dialog(&printer_->device(), QApplication::activeWindow());
    return dialog.exec() == QDialog::Accepted;
}

void RealProcessExit::report(const QString& text)
{
    std::fprintf(stderr, "%s\n", text.toLocal8Bit().constData());
    dialogs_.message(text, Icon::Critical);
    std::_Exit(EXIT_FAILURE);
}

void RealProcessExit::exit()
{
    std::_Exit(EXIT_SUCCESS);
}

} // namespace orb
