// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "form_orb.h"
#include "page_test.h"

namespace orb {

/// The main form over a fake instrument control.
class FormORBTest : public PageTest {
protected:
    void load()
    {
        run.enter([this] { form.FormLoad(); });
    }

    /// The groups that are shown, by name.
    QString shownGroups()
    {
        QStringList names;
        const std::array<std::pair<const char*, bool>, 7> groups{{{"CORB", instrument.visible()},
                                                                  {"fraDisplay", form.fraDisplay.visible()},
                                                                  {"fraCommand", form.fraCommand.visible()},
                                                                  {"frmDatalog", form.frmDatalog.visible()},
                                                                  {"fraSequence", form.fraSequence.visible()},
                                                                  {"fraProgram", form.fraProgram.visible()},
                                                                  {"Frame1", form.Frame1.visible()}}};
        for (const auto& [name, visible] : groups)
            if (visible)
                names << name;
        return names.join(' ');
    }

    bool panelWasTakenOff() const
    {
        return std::find(instrument.calls.begin(), instrument.calls.end(), "PanelActive False") !=
               instrument.calls.end();
    }

    /// With all three activities running: which of them the click stops, and whether it takes the panel off.
    template <typename Click> QString stoppedBy(Click click)
    {
        form.fraDisplay.dispStop.setEnabled(true);
        form.frmDatalog.logStop.setEnabled(true);
        form.fraCommand.cmdStop.setEnabled(true);
        instrument.calls.clear();
        run.enter(click);
        const auto yes = [](bool value) { return value ? "yes" : "no"; };
        return QStringLiteral("%1 %2 %3 %4")
            .arg(yes(!form.fraDisplay.dispStop.enabled()), yes(!form.frmDatalog.logStop.enabled()),
                 yes(!form.fraCommand.cmdStop.enabled()), yes(panelWasTakenOff()));
    }

    FormORB form{clock, dialogs, paths, instrument};
};

} // namespace orb
