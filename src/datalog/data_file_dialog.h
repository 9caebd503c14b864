// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "floating_frame.h"
#include "list_box.h"
#include "picture_button.h"

#include <QPointer>

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
    /// The keys go to that list from now on: Enter and a double click on a line press OK, Escape presses Cancel. When
    /// the dialog is hidden, the focus goes back to where it was.
    void focusOn(ListBox& list);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void moveTo(QWidget& page);

    QPointer<QWidget> focusBefore_;
};

} // namespace orb
