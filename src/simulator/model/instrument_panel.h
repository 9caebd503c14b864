// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace orb {

class Mainframe;

/// The keys, the settings of the screen and the beeper. A key acts on the selected channel. Only the LOAD key switches an
/// input on.
class InstrumentPanel {
public:
    enum class Page { Channel, All, Sequence, Program, System };
    static constexpr int pageCount = 5;

    /// The result of a key: done, no key has that code, the keys are locked, or the typed value is out of range.
    enum class Outcome { Done, NoSuchKey, Locked, OutOfRange };

    /// The codes of the keys. The knob has one code for both directions: `count` 255 is a step to the right, any other
    /// one to the left.
    enum Key : int {
        Digit0 = 96,
        Digit9 = 105,
        Dot = 106,
        Clear = 107,
        Enter = 108,
        Preset = 109,
        Shift = 110,
        Load = 111,
        Channel = 112,
        F1 = 113,
        F5 = 117,
        Function = 118,
        File = 119,
        Help = 120,
        KnobPress = 123,
        Knob = 214,
    };
    static constexpr int stepRight = 255;

    /// Presses a key. While the keys are locked only a LOAD key that switches the input off has an effect.
    Outcome press(int code, int count, Mainframe& mainframe);

    /// The code and the count of the last key that had an effect; 0 before the first.
    int lastKey() const { return lastKey_; }
    int lastCount() const { return lastCount_; }
    /// What the last press of a key came to.
    Outcome lastOutcome() const { return lastOutcome_; }
    /// True after SHIFT, up to the next key: CHAN then selects the channel before.
    bool shifted() const { return shifted_; }
    /// The typed digits and point, not yet entered.
    const std::string& entry() const { return entry_; }

    bool locked() const { return locked_; }
    void setLocked(bool locked) { locked_ = locked; }

    Page page() const { return page_; }
    void showPage(Page page) { page_ = page; }
    bool screenOn() const { return screenOn_; }
    void setScreenOn(bool on) { screenOn_ = on; }
    /// Of the screen, in percent.
    int brightness() const { return brightness_; }
    void setBrightness(int percent) { brightness_ = percent; }

    /// Each key beeps, where the beeper is on.
    bool beeperOn() const { return beeperOn_; }
    void setBeeperOn(bool on) { beeperOn_ = on; }
    void beep();
    int beepCount() const { return beepCount_; }

private:
    static constexpr std::size_t maxEntry = 8;

    static bool isKey(int code);
    bool isRefused(int code, const Mainframe& mainframe) const;
    Outcome act(int code, int count, Mainframe& mainframe);
    Outcome enter(Mainframe& mainframe);
    Outcome pressKey(int code, int count, Mainframe& mainframe);
    void type(char c);

    int lastKey_ = 0;
    int lastCount_ = 0;
    Outcome lastOutcome_ = Outcome::Done;
    bool shifted_ = false;
    std::string entry_;
    bool locked_ = false;
    Page page_ = Page::Channel;
    bool screenOn_ = true;
    int brightness_ = 100;
    bool beeperOn_ = true;
    int beepCount_ = 0;
};

} // namespace orb
