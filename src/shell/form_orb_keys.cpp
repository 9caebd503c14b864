// SPDX-License-Identifier: GPL-3.0-or-later
#include "form_orb.h"

#include <QShortcut>

namespace orb {

namespace {

/// The first page of the manual, in a folder beside the executable. Empty where it is missing.
QString manualPath(const Paths& paths)
{
    const QString literal = paths.inApplication(QStringLiteral("\\manual\\index.html"));
    return fileExists(literal) ? realPath(literal) : QString();
}

} // namespace

/// Ctrl+1 to Ctrl+6 press the page buttons in their order, each while it can be pressed, and F1 opens the manual.
void FormORB::createKeys()
{
    const auto addKey = [this](const QKeySequence& sequence, auto handler) {
        auto* key = new QShortcut(sequence, this);
        key->setAutoRepeat(false);
        QObject::connect(key, &QShortcut::activated, this, handler);
        return sequence.toString(QKeySequence::NativeText);
    };
    int digit = Qt::Key_1;
    for (PictureButton* button : {&pageConnect, &pageControl, &pageCommand, &pageWave, &pageSequence, &PageProgram}) {
        const QString keys = addKey(QKeyCombination(Qt::ControlModifier, static_cast<Qt::Key>(digit++)), [button] {
            if (!button->enabled())
                return;
            button->setFocus(Qt::ShortcutFocusReason); // as a click does: what is being edited ends
            button->click();
        });
        button->setToolTip(QStringLiteral("%1 (%2)").arg(button->caption(), keys));
    }
    addKey(Qt::Key_F1, [this] { enter([this] { openManual(); }); });
}

void FormORB::openManual()
{
    const QString manual = manualPath(paths_);
    if (manual.isEmpty())
        dialogs_.message(QStringLiteral("The manual is missing: it belongs beside the program, in the folder manual."),
                         Icon::Information);
    else if (!dialogs_.showDocument(manual))
        dialogs_.message(QStringLiteral("There is no program to show the manual. It is the file\n") + manual,
                         Icon::Information);
}

} // namespace orb
