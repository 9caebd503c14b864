// SPDX-License-Identifier: GPL-3.0-or-later
#include "command_rows.h"
#include "fault_delivery.h"
#include "instrument_fixture.h"
#include "status_registers.h"

#include <cmath>
#include <random>

namespace orb {
namespace {

constexpr int lines = 30'000;

/// Sends random messages to an instrument and checks its state.
class SimulatedInstrumentFuzzTest : public InstrumentFixture {
protected:
    SimulatedInstrumentFuzzTest() { build(defaultConfiguration(8)); }

    std::size_t below(std::size_t bound) { return noise_() % bound; }
    template <typename List> const auto& anyOf(const List& list) { return list[below(std::size(list))]; }

    std::string randomBytes()
    {
        std::string bytes(below(80), '\0');
        for (char& byte : bytes)
            byte = static_cast<char>(noise_() & 0xFFU);
        return bytes;
    }

    /// A command of the table with a parameter that may be valid, sometimes with one byte changed, lost or doubled.
    std::string nearlyACommand()
    {
        constexpr const char* parameters[] = {
            "",      " 1",   " 2.5", " -1",    " 1e9", " MAX",    " MIN",  " ON",  " OFF",  " CCL",  " CRH",
            " CV",   " 1,2", " LOW", " 120",   " 0",   " #13abc", " 'x'",  " 1mA", " 5V",   " #HFF", "?",
            "? MAX", "? 3",  " ,",   " 1e400", " nan", " 1.5S",   " OffS", " P03", " AUTO", " MAN",  " 0.01,1,MAX,MAX"};
        std::string text = anyOf(headers_) + anyOf(parameters);
        const std::size_t at = below(text.size());
        switch (below(6)) {
        case 0:
            text[at] = static_cast<char>(noise_() & 0xFFU);
            break;
        case 1:
            text.erase(at, 1);
            break;
        case 2:
            text.insert(at, 1, text[at]);
            break;
        default:
            break;
        }
        return text;
    }

    std::string message()
    {
        std::string text = below(4) == 0 ? randomBytes() : nearlyACommand();
        while (below(3) == 0)
            text += anyOf({";", ";:", " ; "}) + nearlyACommand();
        return text;
    }

    template <typename T> const T& anyOf(std::initializer_list<T> list) { return *(list.begin() + below(list.size())); }

    void expectSound(const std::string& after)
    {
        const Mainframe& mainframe = instrument->mainframe();
        ASSERT_EQ(mainframe.channelCount(), 8);
        ASSERT_TRUE(mainframe.selectedChannel() >= 1 && mainframe.selectedChannel() <= 8) << after;
        ASSERT_FALSE(mainframe.sequenceRuns() && mainframe.programRuns()) << after;
        for (int number = 1; number <= 8; ++number) {
            const LoadChannel& each = mainframe.channel(number);
            const LoadSettings& settings = each.settings();
            const ValueRange& range = each.module().range(settings.function, settings.range(settings.function));
            ASSERT_TRUE(range.exists() && range.holds(settings.setValue())) << after;
            ASSERT_TRUE(std::isfinite(each.operatingPoint().voltage) && each.operatingPoint().voltage >= 0) << after;
            ASSERT_TRUE(std::isfinite(each.operatingPoint().current) && each.operatingPoint().current >= 0) << after;
            ASSERT_LE(each.operatingPoint().power(), each.module().maxPower * LoadSettings::tripMargin) << after;
            ASSERT_TRUE(each.inputOn() || each.operatingPoint().current == 0) << after;
            ASSERT_TRUE(each.inputOn() || !(each.isPlaying() || each.isShort())) << after;
        }
    }

private:
    static std::vector<std::string> allHeaders()
    {
        std::vector<std::string> headers;
        for (const Command& command : allRows()) {
            for (std::string& header : formsOf(command.header))
                headers.push_back(std::move(header));
        }
        return headers;
    }

    std::mt19937_64 noise_{20240501};
    std::vector<std::string> headers_ = allHeaders();
};

TEST_F(SimulatedInstrumentFuzzTest, RandomBytesNeverBreakTheInstrument)
{
    for (int i = 0; i < lines; ++i) {
        const std::string bytes = randomBytes();
        const std::string response = query(bytes);
        ASSERT_LE(response.size(), SimulatedInstrument::maxResponse);
        ASSERT_EQ(query("*OPC?"), "1") << bytes;
    }
    EXPECT_EQ(query(":LOAD:ALL?"), "0,0,0,0,0,0,0,0");
}

TEST_F(SimulatedInstrumentFuzzTest, NearlyRightMessagesNeverBreakTheInstrument)
{
    for (int i = 0; i < lines; ++i) {
        time.advance(std::chrono::milliseconds(below(2000)));
        const std::string sent = message();
        const std::string response = query(sent);
        ASSERT_EQ(response.find('\n'), std::string::npos) << sent;
        ASSERT_NO_FATAL_FAILURE(expectSound(sent));
        ASSERT_LE(std::stoul(query(":SYST:ERR:COUN?")), StatusRegisters::queueCapacity) << sent;
    }
    send("*RST;*CLS");
    EXPECT_EQ(query(":LOAD:ALL?;:MODE?;:CURR?"), "0,0,0,0,0,0,0,0;CCH;0.0000");
    EXPECT_EQ(errors(), noError);
}

TEST_F(SimulatedInstrumentFuzzTest, ARandomScriptIsReadOrRefused)
{
    constexpr const char* words[] = {
        "1",          "*",     "2-5",     "3+",   "0",     "connect", ":FETC:ALLC?",
        "*IDN?",      "late",  "350ms",   "1s",   "split", "crlf",    "missing",
        "after-next", "wrong", "\"x\"",   "\"\\", "\"",    "garbage", "truncated",
        "closed",     "reset", "refused", "#",    "\n",    "\r\n",    "99999999999999999999",
        "-1"};
    int read = 0;
    for (int i = 0; i < lines; ++i) {
        std::string script = below(5) == 0 ? randomBytes() : "";
        for (std::size_t count = below(12); count > 0; --count)
            script += std::string(anyOf(words)) + ' ';
        try {
            FaultScript faults = FaultScript::parse(script);
            faults.onConnect();
            deliver(faults.onMessage(randomBytes()), "1.0000,", 1);
            ++read;
        } catch (const FaultScriptError& error) {
            ASSERT_GE(error.line(), 1);
        }
    }
    EXPECT_GT(read, 0);
}

} // namespace
} // namespace orb
