// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "form.h"
#include "image.h"
#include "label.h"
#include "picture_button.h"
#include "system_info.h"

namespace orb {

class Paths;

/// The title of the program, which its message boxes show too.
inline const QString applicationTitle = QStringLiteral("ZN ORB Device");

/// The form `frmAbout`, which says what the program is. It shows three versions, of which `lblVersion` is that of the
/// executable.
class AboutBox final : public Form {
public:
    /// All references must outlive the form. Throws as `Image::setPicture` does.
    AboutBox(QWidget& owner, Run& run, const Paths& paths, SystemInfo& systemInfo);

    Label Label1{QStringLiteral("Version: ") + QStringLiteral("0.1")};
    Label lblVersion;
    Label lblTitle{QStringLiteral("Version 1.0")};
    Label Label2{QStringLiteral("ORB")};
    Label lblUrl{QStringLiteral("URL: https://www.zn.example/orb")};
    Image Image1;
    PictureButton cmdOK{QStringLiteral("OK")};
    PictureButton cmdSysInfo{QStringLiteral("&System Info...")};

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void createLayout();
};

} // namespace orb
