// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "form_orb.h"
#include "page_test.h"
#include "recorded_system_tools.h"

namespace orb {

/// The main form over a fake instrument control of the size that the real one has.
class FormORBTest : public PageTest {
protected:
    void load()
    {
        run.enter([this] { form.FormLoad(); });
    }

    void click(void (FormORB::*page)())
    {
        run.enter([this, page] { (form.*page)(); });
    }

    /// Writes what the page switches do to groups, stop buttons, start buttons and the form into the journal.
    void watchPages()
    {
        journal.watch(instrument, "CORB");
        journal.watch(form.fraDisplay, "fraDisplay");
        journal.watch(form.fraCommand, "fraCommand");
        journal.watch(form.frmDatalog, "frmDatalog");
        journal.watch(form.fraSequence, "fraSequence");
        journal.watch(form.fraProgram, "fraProgram");
        journal.watch(form.Frame1, "Frame1");
        journal.watch(form.fraDisplay.dispStop, "dispStop");
        journal.watch(form.frmDatalog.logStop, "logStop");
        journal.watch(form.fraCommand.cmdStop, "cmdStop");
        journal.watch(form.fraDisplay.dispPlay, "dispPlay");
        journal.watch(form.frmDatalog.logStart, "logStart");
        journal.watch(form.fraCommand.cmdStart, "cmdStart");
        journal.watch(form, "FormORB");
        journal.clear();
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

    static FakeORBCtrl& inDesignSize(FakeORBCtrl& control)
    {
        control.resizeTwips(8115, 6675);
        return control;
    }

    RecordedSystemTools systemTools;
    FormORB form{clock, dialogs, paths, inDesignSize(instrument), systemTools};
};

} // namespace orb
