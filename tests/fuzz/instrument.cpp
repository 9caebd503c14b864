// SPDX-License-Identifier: GPL-3.0-or-later
// The simulated instrument with its framing, and the reader of fault scripts, with any bytes.
#include "fault_delivery.h"
#include "input.h"
#include "mainframe.h"
#include "message_framer.h"
#include "simulated_instrument.h"

#include <cmath>

using namespace orb;

namespace {

void requireSound(const SimulatedInstrument& instrument)
{
    const Mainframe& mainframe = instrument.mainframe();
    require(mainframe.selectedChannel() >= 1 && mainframe.selectedChannel() <= 8, "a channel is selected");
    for (int number = 1; number <= 8; ++number) {
        const LoadChannel& channel = mainframe.channel(number);
        const OperatingPoint point = channel.operatingPoint();
        require(std::isfinite(point.voltage) && point.voltage >= 0, "a voltage is a number");
        require(std::isfinite(point.current) && point.current >= 0, "a current is a number");
        require(channel.inputOn() || point.current == 0, "an input that is off draws nothing");
    }
}

void runInstrument(Input& input)
{
    std::chrono::nanoseconds now{0};
    SimulatedInstrument instrument(defaultConfiguration(8), [&now] { return now; });
    MessageFramer framer(SimulatedInstrument::maxMessage);
    while (!input.isEmpty()) {
        now += std::chrono::milliseconds(input.byte() * input.byte());
        for (const MessageFramer::Message& message : framer.feed(input.bytes(static_cast<std::size_t>(input.byte())))) {
            if (message.overrun)
                instrument.reportOverrun();
            const std::string answer = instrument.execute(message.text);
            require(answer.size() <= SimulatedInstrument::maxResponse, "an answer is bounded");
        }
        require(framer.buffered() <= SimulatedInstrument::maxMessage, "no more than a message is buffered");
        requireSound(instrument);
    }
}

void runScript(Input& input)
{
    const std::string message = input.bytes(8);
    try {
        FaultScript script = FaultScript::parse(input.rest());
        for (int i = 0; i < 4; ++i)
            deliver(script.onMessage(message), "1,2,3,", 1);
    } catch (const FaultScriptError&) {
        return; // what can't be read is refused
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    Input input(bytes, size);
    if (input.byte() % 8 == 0)
        runScript(input);
    else
        runInstrument(input);
    return 0;
}
