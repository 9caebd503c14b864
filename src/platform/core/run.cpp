// SPDX-License-Identifier: GPL-3.0-or-later
#include "run.h"

namespace orb {

namespace {
/// Unwinds what is on the stack of a run that is over. Caught by `Run::enter` alone.
struct RunIsOver {};
} // namespace

void Run::enter(const std::function<void()>& handler) noexcept
{
    if (over_)
        return;
    const bool wasBusy = busy_;
    busy_ = true;
    try {
        handler();
    } catch (const RunIsOver&) {
    } catch (const RuntimeFailure& failure) {
        report(QStringLiteral("Run-time error '%1':\n\n%2").arg(failure.number()).arg(failure.description()));
    } catch (const std::exception& exception) {
        report(QStringLiteral("Unexpected error:\n\n%1").arg(QString::fromUtf8(exception.what())));
    } catch (...) {
        report(QStringLiteral("Unexpected error"));
    }
    busy_ = wasBusy;
}

void Run::report(const QString& text)
{
    over_ = true; // before the report: its box has an event loop of its own
    processExit_.report(text);
}

void Run::end()
{
    over_ = true;
    processExit_.exit();
    throw RunIsOver();
}

void Run::beginYield()
{
    if (endAtNextYield_ && !over_)
        end();
    busy_ = false;
}

void Run::endYield()
{
    busy_ = true;
    if (over_)
        throw RunIsOver();
    if (endAtNextYield_)
        end();
}

} // namespace orb
