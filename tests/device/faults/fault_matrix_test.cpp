// SPDX-License-Identifier: GPL-3.0-or-later
// Each fault of the simulator's script times each member of the control times each kind of link.
#include "device_control.h"
#include "faulty_link.h"
#include "form_test.h"
#include "paths.h"
#include "press.h"
#include "scripted_line.h"
#include "staging_files.h"

#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QThread>

namespace orb {

namespace {

/// What a member made of a fault.
enum class Outcome {
    Own,     ///< its own result, whole
    Nothing, ///< false, an empty text, no file
    Strange, ///< the text that the fault put in the place of the answer
    Wrong,   ///< anything else
};

/// What may come of a fault.
enum class Effect {
    Harmless, ///< the member has its own result
    Lost,     ///< it has none, and the link stands
    Replaced, ///< a line of another text comes in the place of the answer
    Ends,     ///< it has none, and the link is down
};

struct FaultRow {
    const char* name;
    const char* virtualScript; ///< on a link whose time is virtual
    const char* realScript;
    Effect effect;
    bool comes;  ///< whether a byte, or the end of the link, follows every wait for it
    bool isLine; ///< whether it can't be where an instrument marks the end of each message
};

const FaultRow faultRows[] = {
    {"none", "late 0ms", "late 0ms", Effect::Harmless, true, false},
    {"late", "late 40ms", "late 3ms", Effect::Harmless, true, false},
    {"split", "split 5 5ms", "split 5 1ms", Effect::Harmless, true, true},
    {"crlf", "crlf", "crlf", Effect::Harmless, true, false},
    {"too late", "late 3s", "late 500ms", Effect::Lost, false, true},
    {"missing", "missing", "missing", Effect::Lost, false, false},
    {"after the next", "after-next", "after-next", Effect::Lost, false, true},
    {"truncated", "truncated", "truncated", Effect::Lost, false, true},
    {"wrong", "wrong \"something,else\"", "wrong \"something,else\"", Effect::Replaced, true, false},
    {"incomplete block", "wrong \"#210abc\"", "wrong \"#210abc\"", Effect::Replaced, true, false},
    {"garbage", "garbage 400", "garbage 400", Effect::Replaced, true, false},
    {"closed", "closed", "closed", Effect::Ends, true, false},
    {"reset", "reset 5", "reset 5", Effect::Ends, true, false},
    {"refused", "refused 20ms", "refused 20ms", Effect::Ends, true, false},
};

class Matrix;

struct MemberRow {
    const char* name;
    const char* rule; ///< which message the fault is in: the occurrence and the pattern
    bool isAnswered;  ///< whether that message has an answer, in whose place another can come
    int limitMs;      ///< on the clock of the control
    void (Matrix::*prepare)();
    Outcome (Matrix::*call)();
};

const LinkName links[] = {LinkName::Simulated, LinkName::Tcp, LinkName::Serial, LinkName::Usbtmc};
const char* const linkNames[] = {"Simulated", "Tcp", "Serial", "Usbtmc"};

/// One row of the matrix: a control of its own on virtual time, over a link whose instrument has the fault.
class Matrix : public FormTest {
public:
    void TestBody() override {}

    Matrix(LinkName name, const std::string& script) : link(makeFaultyLink(name, script, clock))
    {
        nowhere_.openError = LinkError::NoDevice;
        clock.allow(24 * 3'600'000);
        std::vector<LinkKind> kinds;
        kinds.push_back({.title = QStringLiteral("Faulty"),
                         .linkType = 9,
                         .example = QStringLiteral("none"),
                         .resourceName = [](const QString&) { return std::optional(QStringLiteral("FAULTY")); },
                         .typed = [](const QString& resource) { return resource; },
                         .remoteName = [](const QString& resource) { return resource; },
                         .transport = [this](const QString&, const QStringList&) { return transport(); }});
        control.emplace(clock, std::move(kinds), settings_.filePath(QStringLiteral("link.ini")));
        put(*control);
        form.resize(control->size());
        form.setVisible(true);
        control->setVisible(true);
        for (const QString& file : {staging::screen, staging::program, staging::sequence})
            QFile::remove(realPath(file));
    }

    /// Connecting by the button needs an event loop, which has no place on virtual time: the press finds no instrument,
    /// and `Reconnect` does.
    bool connect()
    {
        control->ShowConnectPage();
        press(control->connectPage.cmdConnect);
        isPlugged_ = true;
        control->Reconnect();
        control->PanelActive(false);
        return control->IsConnected();
    }

    // What comes before a call.
    void nothing() {}
    void ask() { control->SendCommand(QStringLiteral(":FETC:ALLV?")); }
    void showPage()
    {
        control->ShowControlPage();
        clock.advance(60); // the first query of the page goes out
    }
    void writeUpload() { ASSERT_TRUE(writeStagingFile(staging::programUpload, "a program")); }

    // The calls.
    Outcome sendCommand()
    {
        control->SendCommand(QStringLiteral(":LOAD1 ON"));
        return Outcome::Own;
    }
    Outcome reply()
    {
        const QString text = control->Reply();
        if (text.isEmpty())
            return Outcome::Nothing;
        if (isVoltages(text))
            return Outcome::Own;
        return text.count(QLatin1Char(',')) == 8 ? Outcome::Wrong : Outcome::Strange;
    }
    Outcome sendQuery()
    {
        ask();
        return Outcome::Own;
    }
    Outcome grabScreen()
    {
        const bool isNew = control->GrabScreen();
        if (isNew != fileExists(staging::screen))
            return Outcome::Wrong;
        return !isNew ? Outcome::Nothing : isBitmap(contentOf(staging::screen)) ? Outcome::Own : Outcome::Wrong;
    }
    Outcome fetchSequence()
    {
        control->FetchSequenceFile();
        return fetched(staging::sequence, 4380);
    }
    Outcome fetchProgram()
    {
        control->FetchProgramFile();
        return fetched(staging::program, 5580);
    }
    Outcome sendProgram()
    {
        control->SendProgramFile();
        return Outcome::Own;
    }
    Outcome reconnect()
    {
        control->Reconnect();
        if (!control->IsConnected())
            return Outcome::Nothing;
        return control->ChannelCount() == 8 ? Outcome::Own : Outcome::Strange;
    }
    Outcome isConnected()
    {
        control->IsConnected();
        return Outcome::Own;
    }
    Outcome linkType() { return control->LinkType() == 9 ? Outcome::Own : Outcome::Wrong; }
    Outcome channelCount()
    {
        const int count = control->ChannelCount();
        return count == 8 || count == 0 ? Outcome::Own : Outcome::Wrong;
    }
    Outcome panelActive()
    {
        control->PanelActive(false);
        return Outcome::Own;
    }
    Outcome showControlPage()
    {
        control->ShowControlPage();
        return Outcome::Own;
    }
    Outcome showConnectPage()
    {
        control->ShowConnectPage();
        return Outcome::Own;
    }
    Outcome allOff()
    {
        control->cmdAllOffClick();
        return Outcome::Own;
    }

    /// Asks for the currents and the voltages in turn until each had its answer; none may be under the other. The first is
    /// not what the faulty answer belongs to, since an answer may serve a later query of the same text.
    void expectAnswers()
    {
        QElapsedTimer timer;
        timer.start();
        int answered = 0;
        while (answered != 3 && control->IsConnected() && timer.elapsed() < Pace::generousMs)
            for (const int which : {2, 1}) {
                control->SendCommand(which == 1 ? QStringLiteral(":FETC:ALLV?") : QStringLiteral(":FETC:ALLC?"));
                const QString text = replyWithin(400);
                if (!text.isEmpty()) {
                    EXPECT_TRUE(which == 1 ? isVoltages(text) : isCurrents(text)) << text.toStdString();
                    answered |= which;
                }
            }
        EXPECT_TRUE(answered == 3 || !control->IsConnected());
    }

    /// The end of the link is noticed at a call, whichever.
    void awaitEnd()
    {
        QElapsedTimer timer;
        timer.start();
        for (; control->IsConnected() && timer.elapsed() < Pace::generousMs; QThread::msleep(1))
            control->LinkType();
    }

    /// A link that is down says so; then it is made again.
    void expectDown()
    {
        control->SendCommand(QStringLiteral("*RST"));
        EXPECT_FALSE(control->GrabScreen());
        EXPECT_EQ(control->ChannelCount(), 0);
        EXPECT_FALSE(control->IsConnected());
        QElapsedTimer timer;
        timer.start();
        link->restore();
        for (link->pace.comes = true; !control->IsConnected() && timer.elapsed() < Pace::generousMs; QThread::msleep(1))
            control->Reconnect();
        EXPECT_TRUE(control->IsConnected());
    }

    using FormTest::clock;
    std::unique_ptr<FaultyLink> link;
    std::optional<DeviceControl> control;

private:
    std::unique_ptr<Transport> transport()
    {
        return isPlugged_ ? link->transport() : std::make_unique<ScriptedTransport>(nowhere_);
    }
    static QByteArray contentOf(const QString& literal)
    {
        QFile file(realPath(literal));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    static Outcome fetched(const QString& literal, int size)
    {
        const QByteArray content = contentOf(literal);
        return content.isEmpty()                               ? Outcome::Nothing
               : content.size() == size || content == "file\n" ? Outcome::Own
                                                               : Outcome::Wrong;
    }
    /// As a recording does: a sleep and a look, again and again.
    QString replyWithin(int ms)
    {
        for (int waited = 0; waited < ms && control->Reply().isEmpty(); waited += 100) {
            clock.sleep(100);
            QThread::usleep(500);
        }
        return control->Reply();
    }
    static bool isVoltages(const QString& text)
    {
        return text.count(QLatin1Char(',')) == 8 && text.contains(QStringLiteral("48."));
    }
    static bool isCurrents(const QString& text)
    {
        return text.count(QLatin1Char(',')) == 8 && !text.contains(QStringLiteral("48."));
    }

    QTemporaryDir settings_;
    ScriptedLine nowhere_{clock};
    bool isPlugged_ = false;
};

const MemberRow memberRows[] = {
    {"SendCommand", "1 :LOAD1* ", false, 0, &Matrix::nothing, &Matrix::sendCommand},
    {"SendCommandOfAQuery", "1 :FETC:ALLV? ", true, 0, &Matrix::nothing, &Matrix::sendQuery},
    {"Reply", "1 :FETC:ALLV? ", true, 50, &Matrix::ask, &Matrix::reply},
    {"GrabScreen", "1 :HCOP* ", true, 2000, &Matrix::nothing, &Matrix::grabScreen},
    {"FetchSequenceFile", "1 :MMEM:DATA?*SEQ* ", true, 2000, &Matrix::nothing, &Matrix::fetchSequence},
    {"FetchProgramFile", "1 :MMEM:DATA?*PROG* ", true, 2000, &Matrix::nothing, &Matrix::fetchProgram},
    {"SendProgramFile", "1 \":MMEM:DATA *PROG*\" ", false, 2000, &Matrix::writeUpload, &Matrix::sendProgram},
    {"Reconnect", "2 *IDN? ", true, 11'000, &Matrix::nothing, &Matrix::reconnect},
    {"ReconnectAtItsSecondStage", "2 :CHAN:COUN? ", true, 11'000, &Matrix::nothing, &Matrix::reconnect},
    {"IsConnected", "1 :FETC:ALLV? ", true, 0, &Matrix::ask, &Matrix::isConnected},
    {"LinkType", "1 :FETC:ALLV? ", true, 0, &Matrix::ask, &Matrix::linkType},
    {"ChannelCount", "1 :FETC:ALLV? ", true, 0, &Matrix::ask, &Matrix::channelCount},
    {"PanelActive", "1 *OPT? ", true, 50, &Matrix::showPage, &Matrix::panelActive},
    {"ShowControlPage", "1 :FETC:ALLV? ", true, 0, &Matrix::ask, &Matrix::showControlPage},
    {"ShowConnectPage", "1 :FETC:ALLV? ", true, 0, &Matrix::ask, &Matrix::showConnectPage},
    {"AllOff", "1 :LOAD:ALL* ", false, 0, &Matrix::ask, &Matrix::allOff},
};

/// What must come of a fault in the answer that the member waits for.
Outcome expected(const MemberRow& member, Effect effect)
{
    const auto waitsFor = [&](auto call) { return member.call == call; };
    if (effect == Effect::Harmless ||
        !(waitsFor(&Matrix::reply) || waitsFor(&Matrix::grabScreen) || waitsFor(&Matrix::fetchSequence) ||
          waitsFor(&Matrix::fetchProgram) || waitsFor(&Matrix::reconnect)))
        return Outcome::Own;
    if (waitsFor(&Matrix::reconnect)) // without its number of channels it counts the readings
        return effect == Effect::Ends || member.rule[2] == '*' ? Outcome::Nothing : Outcome::Own;
    return effect == Effect::Replaced && waitsFor(&Matrix::reply) ? Outcome::Strange : Outcome::Nothing;
}

/// On real time an answer may be less late than the machine is busy.
bool isLateInReality(LinkName name, const FaultRow& fault)
{
    return name != LinkName::Simulated && fault.name == std::string_view("too late");
}

bool applies(LinkName name, const MemberRow& member, const FaultRow& fault)
{
    if (fault.isLine && name == LinkName::Usbtmc)
        return false;
    return member.call == &Matrix::reconnect ? !isLateInReality(name, fault)
                                             : member.isAnswered || fault.effect != Effect::Replaced;
}

void expectRow(LinkName name, const MemberRow& member, const FaultRow& fault)
{
    Matrix row(name, std::string(member.rule) + (name == LinkName::Simulated ? fault.virtualScript : fault.realScript) +
                         '\n');
    ASSERT_TRUE(row.connect());
    (row.*member.prepare)();
    const bool isReconnect = member.call == &Matrix::reconnect;
    const bool isFetch = member.isAnswered && member.limitMs == 2000;
    const bool isBlock = fault.name == std::string_view("incomplete block");
    // No rest follows a block, and no identity a line that is none.
    row.link->pace.comes = fault.comes && !(isFetch && isBlock) && !(isReconnect && fault.effect == Effect::Replaced);
    row.link->pace.divisor = isReconnect ? 5 : 100; // some of what it waits for comes

    const qint64 begin = row.clock.elapsed();
    const Outcome outcome = (row.*member.call)();

    EXPECT_LE(row.clock.elapsed() - begin, member.limitMs);
    const bool isInTime = isLateInReality(name, fault) && outcome == Outcome::Own;
    EXPECT_TRUE(isInTime || outcome == expected(member, fault.effect)) << static_cast<int>(outcome);
    row.link->pace.comes = false;
    row.control->PanelActive(false);
    if (fault.effect == Effect::Ends)
        row.awaitEnd();
    if (row.control->IsConnected())
        row.expectAnswers();
    else
        row.expectDown();
    row.link->pace.comes = true;
    (row.*member.prepare)();
    EXPECT_EQ((row.*member.call)(), Outcome::Own) << "the second time";
}

/// A member over a kind of link.
class FaultMatrixTest : public testing::TestWithParam<std::tuple<LinkName, MemberRow>> {};

TEST_P(FaultMatrixTest, TheMemberEndsWithinItsLimitByItsResultAndTheNextCallWorksOrSaysFalse)
{
    const auto& [name, member] = GetParam();
    for (const FaultRow& fault : faultRows) {
        const testing::ScopedTrace trace(__FILE__, __LINE__, fault.name);
        if (applies(name, member, fault))
            expectRow(name, member, fault);
    }
}

INSTANTIATE_TEST_SUITE_P(AllLinks, FaultMatrixTest,
                         testing::Combine(testing::ValuesIn(links), testing::ValuesIn(memberRows)),
                         [](const auto& tested) {
                             return std::string(linkNames[static_cast<int>(std::get<0>(tested.param))]) +
                                    std::get<1>(tested.param).name;
                         });

} // namespace
} // namespace orb
