// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "failure.h"

#include <QString>

#include <functional>

namespace orb {

/// How a run ends. The real one ends the process and does not return; that of a test records the call.
class ProcessExit {
public:
    virtual ~ProcessExit() = default;
    /// Shows the text of a failure that nothing caught, then ends the process.
    virtual void report(const QString& text) = 0;
    /// Ends the process at once, with no report.
    virtual void exit() = 0;
};

/// One run of the program, and the one way from the desktop into page logic. Once a run is over no handler runs any
/// more: what is still on the stack is unwound up to the `enter` that began it.
class Run {
public:
    /// `processExit` must outlive the run.
    explicit Run(ProcessExit& processExit) : processExit_(processExit) {}
    Run(const Run&) = delete;
    Run& operator=(const Run&) = delete;

    /// Runs `handler` unless the run is over. An exception that leaves it is reported and ends the run: a
    /// `RuntimeFailure` as "Run-time error 'N':", an empty line and its description, any other with its own text.
    /// Nothing leaves this function by an exception, so that the caller may be a slot or an event handler of Qt.
    void enter(const std::function<void()>& handler) noexcept;

    /// Ends the run at once, with no report and no further handler. Only to be called inside `enter`: does not return.
    [[noreturn]] void end();

    /// From now on the next yield ends the run: the main form is gone, and no loop lives on without it.
    void endAtNextYield() { endAtNextYield_ = true; }

    /// Called by the clock when a yield begins and when it has let the event queue run; unwinds a run that is over.
    void beginYield();
    void endYield();

    bool isOver() const { return over_; }
    /// True while a handler is at work that has not yielded: a dialog's own event loop is no yield.
    bool isBusy() const { return busy_; }

private:
    void report(const QString& text);

    ProcessExit& processExit_;
    bool over_ = false;
    bool endAtNextYield_ = false;
    bool busy_ = false;
};

} // namespace orb
