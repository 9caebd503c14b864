// SPDX-License-Identifier: GPL-3.0-or-later
#include "save_picture.h"

#include <QSaveFile>

#include <optional>

namespace orb {

namespace {

std::optional<QString> askForName(Dialogs& dialogs)
{
    CommonDialog& dialog = dialogs.CommonDialog1;
    const CommonDialog before = dialog;
    dialog.title = QStringLiteral("Save Picture");
    dialog.filter = QStringLiteral("Picture(*.png)|*.png");
    dialog.fileName = QStringLiteral("graph.png");
    std::optional<QString> name;
    if (dialogs.showSave())
        name = dialog.fileName;
    dialog = before;
    return name;
}

} // namespace

void savePicture(Dialogs& dialogs, const QImage& picture)
{
    const auto name = askForName(dialogs);
    if (!name)
        return;
    QSaveFile file(*name);
    if (!file.open(QIODevice::WriteOnly) || !picture.save(&file, "PNG") || !file.commit())
        dialogs.message(QStringLiteral("The picture can't be saved:\n%1\n%2").arg(*name, file.errorString()),
                        Icon::Critical);
}

} // namespace orb
