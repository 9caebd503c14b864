// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "dialogs.h"
#include "run.h"

#include <memory>

class QFileDialog;
class QMessageBox;

namespace orb {

class RealPrinter;

/// The dialogs that the operator sees, above the active window of the program. The save dialog accepts only a file that
/// can be written, and says what is wrong with another one. Without a printer the print dialog offers a PDF file in the
/// user's documents folder.
class RealDialogs final : public Dialogs {
public:
    /// `title` is the application's title, which every message box shows.
    explicit RealDialogs(const QString& title);
    ~RealDialogs() override;

    Answer message(const QString& text, Icon icon, Buttons buttons) override;
    bool showOpen() override;
    bool showSave() override;
    bool showPrinter() override;
    bool showDocument(const QString& path) override;
    Printer& printer() override;

    /// A message that needs no answer: it closes after `ms` milliseconds, unless the operator closes it before.
    void notice(const QString& text, int ms);

private:
    void prepare(QMessageBox& box, const QString& text, Icon icon) const;
    void prepare(QFileDialog& dialog) const;
    bool show(QFileDialog& dialog);
    bool refuse(const QString& file);

    QString title_;
    std::unique_ptr<RealPrinter> printer_; ///< created at its first use, since searching for printers is slow
};

/// Reports a failure that nothing caught and ends the process, without running anything more.
class RealProcessExit final : public ProcessExit {
public:
    explicit RealProcessExit(Dialogs& dialogs) : dialogs_(dialogs) {}
    [[noreturn]] void report(const QString& text) override;
    [[noreturn]] void exit() override;

private:
    Dialogs& dialogs_;
};

} // namespace orb
