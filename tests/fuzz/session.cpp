// SPDX-License-Identifier: GPL-3.0-or-later
// A session whose far end sends any bytes, while queries, waits and fetches go on in any order.
#include "session.h"
#include "framer.h"
#include "input.h"
#include "recorded_exit.h"
#include "virtual_clock.h"

using namespace orb;

namespace {

/// Gives what the input has put into it.
class FuzzedTransport final : public Transport {
public:
    explicit FuzzedTransport(VirtualClock& clock) : clock_(clock) {}

    void begin() override {}
    bool open(int) override { return true; }
    void close() override { isOpen_ = false; }
    State state() override { return isOpen_ ? State::Open : State::Closed; }
    LinkError error() const override { return LinkError::None; }
    bool write(const QByteArray& bytes) override
    {
        require(bytes.endsWith('\n'), "a line that is sent ends in a line feed");
        return isOpen_;
    }
    bool flush(int) override { return isOpen_; }
    QByteArray read() override
    {
        const QByteArray bytes = unread_.left(longestRead);
        unread_.remove(0, bytes.size());
        return bytes;
    }
    bool waitReadable(int limitMs) override
    {
        if (!isOpen_)
            return false;
        std::swap(unread_, later_); // what comes during a wait
        clock_.sleep(unread_.isEmpty() ? limitMs : std::min(limitMs, 1));
        return !unread_.isEmpty();
    }

    void arrive(const std::string& bytes) { unread_ += QByteArray::fromStdString(bytes); }
    void arriveLater(const std::string& bytes) { later_ += QByteArray::fromStdString(bytes); }

private:
    VirtualClock& clock_;
    QByteArray unread_;
    QByteArray later_;
    bool isOpen_ = true;
};

class FuzzedSession {
public:
    explicit FuzzedSession(Input& input) : input_(input)
    {
        clock_.allow(qint64{1} << 60);
        session_.send(Requester::Control, "*IDN?");
        transport_.arrive("ZN,ORB3000,0001,1.0\n");
    }

    void step()
    {
        constexpr int kinds = 10;
        const qint64 begin = clock_.elapsed();
        qint64 limit = 0;
        switch (input_.byte() % kinds) {
        case 0:
        case 1:
            session_.send(requester(), query());
            break;
        case 2:
            transport_.arrive(input_.bytes(static_cast<std::size_t>(input_.byte())));
            break;
        case 3:
            transport_.arriveLater(input_.bytes(static_cast<std::size_t>(input_.byte())));
            break;
        case 4:
            limit = input_.byte() * 20;
            clock_.sleep(static_cast<int>(limit));
            break;
        case 5:
            session_.poll();
            break;
        case 6:
            limit = input_.byte();
            requireText(session_.awaitAnswer(requester(), static_cast<int>(limit)));
            break;
        case 7:
            limit = input_.byte();
            session_.fetchBlock(":HCOP:SDUM:DATA?", static_cast<int>(limit));
            break;
        case 8:
            transport_.arrive(std::string(static_cast<std::size_t>(input_.byte()) * 512, 'x'));
            break;
        default:
            transport_.arrive(line());
        }
        require(clock_.elapsed() - begin <= limit, "no member takes longer than its limit");
        for (const Requester each : {Requester::Application, Requester::Control})
            requireText(session_.answer(each));
        require(session_.rejected().size() <= 256, "what was rejected is bounded");
    }

private:
    Requester requester() { return input_.byte() % 2 == 0 ? Requester::Application : Requester::Control; }
    QByteArray query()
    {
        static const QByteArray queries[] = {":FETC:ALLC?", ":FETC:ALLV?", "*IDN?",
                                             "A?;B?",       ":LOAD1 ON",   "*IDN?;*IDN?"};
        const auto index = static_cast<std::size_t>(input_.byte());
        return index < std::size(queries) ? queries[index] : QByteArray::fromStdString(input_.bytes(index / 8));
    }
    std::string line()
    {
        static const std::string lines[] = {"1,2,3,\n",
                                            "ZN,ORB3000,0001,1.0\n",
                                            "ZN,ORB3000,0001,1.0;ZN,ORB3000,0001,1.0\n",
                                            "#14ab\nc\n",
                                            "#9",
                                            "\r\n",
                                            "#3",
                                            "1;2\n"};
        return lines[static_cast<std::size_t>(input_.byte()) % std::size(lines)];
    }
    static void requireText(const std::optional<QByteArray>& answer)
    {
        constexpr qsizetype longest = 4 * 1024 * 1024 + 64 * 1024 + 16;
        require(!answer || answer->size() <= longest, "an answer is bounded");
        require(!answer || !answer->isEmpty(), "an empty line is no answer");
    }

    Input& input_;
    RecordedExit processExit_;
    Run run_{processExit_};
    VirtualClock clock_{run_};
    FuzzedTransport transport_{clock_};
    Session session_{clock_, transport_};
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    Input input(bytes, size);
    for (FuzzedSession session(input); !input.isEmpty();)
        session.step();
    return 0;
}
