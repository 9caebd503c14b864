// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "printer.h"

#include <QString>

namespace orb {

enum class Icon { None, Critical, Information };
enum class Buttons { Ok, YesNo };
enum class Answer { Ok, Yes, No };

/// The one file dialog of the form, shared by all pages. A routine sets only what it names; everything else, including
/// the file name, stays from the last use.
struct CommonDialog {
    QString initialDirectory;
    /// Pairs of a description and a pattern, all joined by "|".
    QString filter;
    QString title;
    QString fileName;
};

/// Asks the operator. Every question blocks until it is answered.
class Dialogs {
public:
    /// On Cancel the name of this dialog stays what it was.
    CommonDialog CommonDialog1;

    virtual ~Dialogs() = default;

    /// A message box. A line end in `text` may be CR LF or LF. Yes and No stand on No: that is what Enter answers, and
    /// what counts when the box is closed by its frame.
    virtual Answer message(const QString& text, Icon icon = Icon::None, Buttons buttons = Buttons::Ok) = 0;

    /// `CommonDialog1` in its open and in its save form. False on Cancel.
    virtual bool showOpen() = 0;
    virtual bool showSave() = 0;
    /// The system's printer dialog, which sets up `printer`. False on Cancel, which leaves the printer unchanged.
    virtual bool showPrinter() = 0;
    /// Shows a document in the program that the desktop has for it, and does not wait. False where there is none.
    virtual bool showDocument(const QString& path) = 0;

    /// The printer, as the dialog last set it up.
    virtual Printer& printer() = 0;
};

} // namespace orb
