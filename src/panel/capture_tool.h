// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "label.h"
#include "list_box.h"
#include "paths.h"
#include "picture_button.h"
#include "text_box.h"
#include "text_file.h"

namespace orb {

/// The hidden frame for measuring the panel picture: it writes rows of a panel map into "orbbutton.dat", each from the
/// place where the mouse was pressed on the picture to the one where it came up.
class CaptureTool final : public Frame {
public:
    /// Both references must outlive the tool. `lstCommand` is the catalogue of the command page, which opening the file
    /// empties.
    CaptureTool(const Paths& paths, ListBox& lstCommand);

    TextBox Text7;                                            ///< the name of the key
    TextBox Text2{QStringLiteral("C:\\temp\\orbbutton.dat")}; ///< shown alone: not where the file stands
    Label lblX1{QStringLiteral("Label14")};
    Label lblY1{QStringLiteral("Label15")};
    Label lblX2{QStringLiteral("Label14")};
    Label lblY2{QStringLiteral("Label15")};
    PictureButton Command1{QStringLiteral("open file")};
    PictureButton Command2{QStringLiteral("close file")};
    PictureButton Command3{QStringLiteral("print")};
    TextBox TXT; ///< the command of the key that was pressed last

    /// Empties the catalogue, then opens the file, whose content is lost. Throws `RuntimeFailure` 55 while it is open,
    /// and what `OutputFile` throws.
    void Command1Click();
    /// Closes the file. Throws `RuntimeFailure` 52 where it is not open.
    void Command2Click();
    /// Writes a row. Throws `RuntimeFailure` 52 where the file is not open.
    void Command3Click();

private:
    void createLayout();
    OutputFile& openFile();

    const Paths& paths_;
    ListBox& lstCommand_;
    std::optional<OutputFile> channel11_;
};

} // namespace orb
