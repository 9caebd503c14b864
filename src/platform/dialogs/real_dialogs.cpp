// SPDX-License-Identifier: GPL-3.0-or-later
#include "real_dialogs.h"

#include "paths.h"
#include "real_printer.h"
#include "save_dialog.h"
#include "save_refusal.h"

#include <QApplication>
#include <QDesktopServices>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QPrintDialog>
#include <QTimer>
#include <QUrl>

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

/// "A(*.a)|*.a;*.b|C|*.c" in Qt's form: "A(*.a)(*.a *.b)" and "C(*.c)". Qt shows what precedes the last parenthesis.
QStringList nameFilters(const QString& filter)
{
    const QStringList parts = filter.split(QLatin1Char('|'));
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2)
        filters << QStringLiteral("%1(%2)").arg(parts[i],
                                                QString(parts[i + 1]).replace(QLatin1Char(';'), QLatin1Char(' ')));
    return filters;
}

/// The suffix of the filter's first pattern; empty for a pattern such as "*.*".
QString defaultSuffix(const QString& filter)
{
    const QString pattern = filter.section(QLatin1Char('|'), 1, 1).section(QLatin1Char(';'), 0, 0);
    const QString suffix = pattern.section(QStringLiteral("*."), 1, 1);
    return suffix.contains(QLatin1Char('*')) ? QString() : suffix;
}

} // namespace

RealDialogs::RealDialogs(const QString& title) : title_(title) {}

RealDialogs::~RealDialogs() = default;

void RealDialogs::prepare(QMessageBox& box, const QString& text, Icon icon) const
{
    box.setWindowTitle(title_);
    box.setText(QString(text).replace(QStringLiteral("\r\n"), QStringLiteral("\n")));
    box.setTextFormat(Qt::PlainText);
    box.setTextInteractionFlags(Qt::TextSelectableByMouse);
    box.setIcon(qtIcon(icon));
    box.setStandardButtons(QMessageBox::Ok);
}

void RealDialogs::notice(const QString& text, int ms)
{
    QMessageBox box(QApplication::activeWindow());
    prepare(box, text, Icon::Information);
    QTimer::singleShot(ms, &box, &QDialog::accept);
    box.exec();
}

Answer RealDialogs::message(const QString& text, Icon icon, Buttons buttons)
{
    QMessageBox box(QApplication::activeWindow());
    prepare(box, text, icon);
    if (buttons == Buttons::Ok) {
        box.exec();
        return Answer::Ok;
    }
    box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
    box.setDefaultButton(QMessageBox::No);
    box.setEscapeButton(QMessageBox::No);
    return box.exec() == QMessageBox::Yes ? Answer::Yes : Answer::No;
}

void RealDialogs::prepare(QFileDialog& dialog) const
{
    if (!CommonDialog1.title.isEmpty())
        dialog.setWindowTitle(CommonDialog1.title);
    dialog.setOption(QFileDialog::HideNameFilterDetails);
    dialog.setDirectory(realPath(CommonDialog1.initialDirectory));
    dialog.setNameFilters(nameFilters(CommonDialog1.filter));
    if (!CommonDialog1.fileName.isEmpty())
        dialog.selectFile(CommonDialog1.fileName);
}

bool RealDialogs::show(QFileDialog& dialog)
{
    prepare(dialog);
    while (dialog.exec() == QDialog::Accepted && !dialog.selectedFiles().isEmpty()) {
        const QString file = dialog.selectedFiles().constFirst();
        if (dialog.acceptMode() == QFileDialog::AcceptOpen || !refuse(file)) {
            CommonDialog1.fileName = file;
            return true;
        }
    }
    return false;
}

/// Says why the file can't be saved. False where it can.
bool RealDialogs::refuse(const QString& file)
{
    const QString why = saveRefusal(file, bytesAvailableIn(QFileInfo(file).path()));
    if (!why.isEmpty())
        message(why, Icon::Critical, Buttons::Ok);
    return !why.isEmpty();
}

bool RealDialogs::showOpen()
{
    QFileDialog dialog(QApplication::activeWindow());
    dialog.setAcceptMode(QFileDialog::AcceptOpen);
    dialog.setFileMode(QFileDialog::ExistingFile);
    return show(dialog);
}

bool RealDialogs::showSave()
{
    SaveDialog dialog(QApplication::activeWindow(), [this](const QString& file) { return refuse(file); });
    dialog.setDefaultSuffix(defaultSuffix(CommonDialog1.filter));
    return show(dialog);
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
    printer_->offerFile();
    QPrintDialog dialog(&printer_->device(), QApplication::activeWindow());
    return dialog.exec() == QDialog::Accepted;
}

bool RealDialogs::showDocument(const QString& path)
{
    return QDesktopServices::openUrl(QUrl::fromLocalFile(path));
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
