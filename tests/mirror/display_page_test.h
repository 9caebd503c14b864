// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "display_page.h"
#include "page_test.h"

namespace orb {

/// The display page on a form after the start of the program, which has stopped the mirror, with the instrument connected.
class DisplayPageTest : public PageTest {
protected:
    DisplayPageTest()
    {
        page.setParent(&form);
        click(&DisplayPage::dispStopClick);
        instrument.connected = true;
        journal.watch(page.dispPlay, "dispPlay");
        journal.watch(page.dispStop, "dispStop");
        journal.watch(page.dispPause, "dispPause");
        journal.watch(page.dispEnlarge, "dispEnlarge");
        journal.watchTimer(page.TimerDisplay, "TimerDisplay");
        journal.clear();
    }

    void click(void (DisplayPage::*handler)())
    {
        run.enter([this, handler] { (page.*handler)(); });
    }

    /// Writes the file that the instrument's screen is fetched into.
    void writeScreen(const QColor& color) const
    {
        createFolder("c:\\temp");
        QPixmap screen(320, 240);
        screen.fill(color);
        ASSERT_TRUE(screen.save(realPath(staging::screen)));
    }

    /// The timer and the four buttons, as what is enabled.
    QString state() const
    {
        QStringList enabled;
        const std::initializer_list<std::pair<const char*, bool>> parts{{"timer", page.TimerDisplay.enabled()},
                                                                        {"play", page.dispPlay.enabled()},
                                                                        {"stop", page.dispStop.enabled()},
                                                                        {"pause", page.dispPause.enabled()},
                                                                        {"enlarge", page.dispEnlarge.enabled()}};
        for (const auto& [name, isEnabled] : parts)
            if (isEnabled)
                enabled << name;
        return enabled.join(' ');
    }

    Form form{run};
    bool bFullScrMode = false;
    DisplayPage page{clock, dialogs, paths, instrument, bFullScrMode};
};

} // namespace orb
