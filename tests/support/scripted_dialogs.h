// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "dialogs.h"
#include "journal.h"
#include "recorded_printer.h"

#include <deque>
#include <functional>
#include <optional>
#include <ostream>
#include <vector>

namespace orb {

/// A message box as the operator saw it.
struct Shown {
    QString text;
    Icon icon = Icon::None;
    Buttons buttons = Buttons::Ok;

    bool operator==(const Shown&) const = default;
};

inline void PrintTo(const Shown& shown, std::ostream* out)
{
    *out << '"' << shown.text.toStdString() << "\" icon " << static_cast<int>(shown.icon) << " buttons "
         << static_cast<int>(shown.buttons);
}

/// A file dialog as the operator saw it.
struct ShownFileDialog {
    QString mode; ///< "open" or "save"
    CommonDialog dialog;
};

/// Dialogs whose answers are written down beforehand, and which write down what was shown, in order.
class ScriptedDialogs final : public Dialogs {
public:
    /// Writes every dialog into `journal`, which must outlive the dialogs.
    explicit ScriptedDialogs(Journal* journal = nullptr) : recordedPrinter(journal), journal_(journal) {}

    /// Answers to the Yes and No boxes in their order; No where none is left.
    std::deque<Answer> answers;
    /// What the file dialogs give back in their order, nothing for Cancel; Cancel where none is left.
    std::deque<std::optional<QString>> files;
    std::vector<Shown> shown;
    std::vector<ShownFileDialog> fileDialogs;
    int printerDialogs = 0;
    bool printerAccepted = true;
    bool documentsCanBeShown = true;
    RecordedPrinter recordedPrinter;
    /// Called while the printer dialog is up.
    std::function<void()> onPrinterDialog;
    /// Called while a file dialog is up, before it is answered.
    std::function<void()> onFileDialog;
    /// Called while a message box is up, before it is answered.
    std::function<void(const Shown&)> onMessage;

    Answer message(const QString& text, Icon icon, Buttons buttons) override;
    bool showOpen() override { return showFile(QStringLiteral("open")); }
    bool showSave() override { return showFile(QStringLiteral("save")); }
    bool showPrinter() override;
    bool showDocument(const QString& path) override;
    Printer& printer() override { return recordedPrinter; }

private:
    bool showFile(const QString& mode);
    void write(const QString& line);

    Journal* journal_;
};

} // namespace orb
