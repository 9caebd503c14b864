// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "label.h"
#include "list_box.h"
#include "picture_button.h"

namespace orb {

/// The small frame in which the operator picks a saved log, or a stored program, to open or to delete. What its OK does
/// is told by the tag of `cmdOKDataLogFile`. It lies over the pages that use it and does not block them.
class DataFileDialog final : public Frame {
public:
    explicit DataFileDialog(QWidget* parent = nullptr);

    Label lblLogTitle;
    ListBox lstLogMain;  ///< saved logs to open
    ListBox listLogDel;  ///< saved logs to delete
    ListBox lstProgFile; ///< stored programs; its own tag tells opening from deleting
    PictureButton cmdOKDataLogFile{QStringLiteral("OK")};
    PictureButton cmdCancelDataLogFile{QStringLiteral("Cancel")};
};

} // namespace orb
