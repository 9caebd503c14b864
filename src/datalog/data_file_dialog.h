// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "floating_frame.h"
#include "list_box.h"
#include "picture_button.h"

namespace orb {

/// The small frame in which the operator selects a saved log, or a stored program, to open or to delete. The tag of
/// `cmdOKDataLogFile` says what its OK does. It stands over a page, which stays usable.
class DataFileDialog final : public FloatingFrame {
public:
    explicit DataFileDialog(QWidget* parent = nullptr);

    Label lblLogTitle;
    ListBox lstLogMain;  ///< saved logs to open
    ListBox listLogDel;  ///< saved logs to delete
    ListBox lstProgFile; ///< stored programs; its own tag says whether to open or to delete
    PictureButton cmdOKDataLogFile{QStringLiteral("OK")};
    PictureButton cmdCancelDataLogFile{QStringLiteral("Cancel")};

    /// Shows it on a page, in front of all controls there. Either may be destroyed before the other.
    void showOn(QWidget& page);

private:
    void moveTo(QWidget& page);
};

} // namespace orb
