// SPDX-License-Identifier: GPL-3.0-or-later
#include "save_dialog.h"

#include <QDir>
#include <QFileInfo>
#include <QLineEdit>

namespace orb {

SaveDialog::SaveDialog(QWidget* parent, std::function<bool(const QString& path)> refuse)
    : QFileDialog(parent), refuse_(std::move(refuse))
{
    setAcceptMode(AcceptSave);
}

void SaveDialog::accept()
{
    const auto* name = findChild<QLineEdit*>(QStringLiteral("fileNameEdit")); // none in the system's own dialog
    const bool isAsked = name != nullptr && !selectedFiles().isEmpty() && !isFolderToEnter(name->text());
    if (!isAsked || !refuse_(selectedFiles().constFirst()))
        QFileDialog::accept();
}

/// A folder that was selected in the list, or typed with a slash at its end, is entered. One that was typed as the name
/// of the file is not.
bool SaveDialog::isFolderToEnter(const QString& typed) const
{
    const QString path = selectedFiles().constFirst();
    const QString named = directory().absoluteFilePath(typed);
    const bool isName = path == named || path == named + QLatin1Char('.') + defaultSuffix();
    return QFileInfo(path).isDir() && (!isName || QFileInfo(typed).fileName().isEmpty());
}

} // namespace orb
