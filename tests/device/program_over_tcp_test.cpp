// SPDX-License-Identifier: GPL-3.0-or-later
// The program page, the instrument control and a served instrument, over a real socket.
#include "directories.h"
#include "paths.h"
#include "prog_file_fields.h"
#include "program_page.h"
#include "record_file.h"
#include "scripted_dialogs.h"
#include "tcp_control.h"
#include "test_servers.h"
#include "workspace.h"

#include <QFile>

#include <gmock/gmock.h>

#include <random>

namespace orb {

namespace {

using testing::IsEmpty;

/// Passes everything on to another control and counts the commands.
class CountingControl final : public ORBCtrl {
public:
    explicit CountingControl(ORBCtrl& control) : control_(control) {}

    int commands = 0;
    bool lastWasQuery = false;

    void SendCommand(const QString& command) override
    {
        ++commands;
        lastWasQuery = command.endsWith(QLatin1Char('?'));
        control_.SendCommand(command);
    }
    QString Reply() override { return control_.Reply(); }
    bool IsConnected() override { return control_.IsConnected(); }
    std::int16_t LinkType() override { return control_.LinkType(); }
    std::int16_t ChannelCount() override { return control_.ChannelCount(); }
    void PanelActive(bool active) override { control_.PanelActive(active); }
    void ShowControlPage() override { control_.ShowControlPage(); }
    void ShowConnectPage() override { control_.ShowConnectPage(); }
    void Reconnect() override { control_.Reconnect(); }
    bool GrabScreen() override { return control_.GrabScreen(); }
    void FetchSequenceFile() override { control_.FetchSequenceFile(); }
    void FetchProgramFile() override { control_.FetchProgramFile(); }
    void SendProgramFile() override { control_.SendProgramFile(); }

private:
    ORBCtrl& control_;
};

/// A clock that sleeps only until the answer to the last query has come.
class AnswerClock final : public Clock {
public:
    AnswerClock(Clock& real, CountingControl& control) : Clock(real.run()), real_(real), control_(control) {}

    QDateTime now() const override { return real_.now(); }
    qint64 elapsed() const override { return real_.elapsed(); }
    void sleep(int) override
    {
        for (int waited = 0; control_.lastWasQuery && control_.Reply().isEmpty() && waited < generousMs; ++waited)
            real_.sleep(1);
    }
    void yield() override { real_.yield(); }
    void reschedule(Timer& timer) override { real_.reschedule(timer); }
    void forget(Timer& timer) override { real_.forget(timer); }

private:
    Clock& real_;
    CountingControl& control_;
};

class ProgramOverTcpTest : public TcpControlTest {
protected:
    ProgramOverTcpTest()
    {
        page.setParent(&form);
        dialogs.onMessage = [this](const Shown& shown) { messages << shown.text; };
        run.enter([this] { page.InitProgramPage(); });
    }
    ~ProgramOverTcpTest() override
    {
        for (const QString& file : {staging::program, staging::programUpload})
            QFile::remove(realPath(file));
    }

    void connectPageTo(const ServedInstrument& instrument)
    {
        ASSERT_TRUE(connectTo(instrument.port()));
        control.PanelActive(false);
        run.enter([this] { page.InitProgramPage(); });
    }

    void logic(const std::function<void()>& work) { run.enter(work); }

    QStringList tags()
    {
        QStringList all;
        for (const MemoryCell& cell : page.txtMemSetting)
            all << cell.tag();
        return all;
    }

    QString links() const
    {
        QStringList texts;
        for (const ComboBox& next : page.cmbProgChain)
            texts << next.text();
        return texts.join(' ');
    }

    /// A setting of cell n in which nothing is off, with these times.
    static QString setting(int n, double on, double off, double pf, double shortTime)
    {
        return QStringLiteral("%1,%2,%3,%4,1,%5,1,%6,1,%7,1,%8,%9")
            .arg(n / 10 + 1)
            .arg(n % 10 + 1)
            .arg(QStringList{"SKIP", "AUTO", "MANUAL"}[n % 3])
            .arg(n * 2)
            .arg(on, 0, 'f', 1)
            .arg(off, 0, 'f', 1)
            .arg(pf, 0, 'f', 1)
            .arg(shortTime, 0, 'f', 1)
            .arg(120 - n);
    }

    static QByteArray bytesOf(const QString& literal)
    {
        QFile file(realPath(literal));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    CountingControl counted{control};
    AnswerClock answerClock{clock, counted};
    ScriptedDialogs dialogs;
    QStringList messages;
    Paths paths{sourceDirectory() + QStringLiteral("/resources")};
    Database dbMain; // never open: a store reports its failure
    DataFileDialog dialog{&form};
    QString sPendingProgFile;
    ProgramPage page{answerClock, dialogs, paths, counted, dbMain, dialog, sPendingProgFile};
};

TEST_F(ProgramOverTcpTest, AProgramWrittenByCommandsIsReadBackIntoAClearedPageWithTheOffTimeAsPFTime)
{
    const ServedInstrument instrument;
    connectPageTo(instrument);
    QStringList expected;
    for (int n = 0; n < 120; ++n) {
        const double on = 0.1 + n * 0.4;
        const double off = 0.2 + n * 0.3;
        page.txtMemSetting.at(static_cast<std::size_t>(n)).setTag(setting(n, on, off, 100, 0.3));
        expected << setting(n, on, off, off, 0.3);
    }
    for (int i = 0; i < 12; ++i)
        page.cmbProgChain.at(static_cast<std::size_t>(i)).setListIndex((i + 5) % 13);
    const QString chain = links();
    logic([this] { page.WriteProgramByCommands(); });
    EXPECT_EQ(counted.commands, 12 * (2 + 10 * 9));
    logic([this] { page.InitProgramPage(); });
    ASSERT_EQ(page.txtMemSetting[0].tag(), "");
    counted.commands = 0;

    logic([this] { page.ReadProgramByCommands(); });

    EXPECT_EQ(counted.commands, 986);
    EXPECT_EQ(tags(), expected);
    EXPECT_EQ(links(), chain);
    EXPECT_THAT(messages,
                testing::ElementsAre(testing::ResultOf(
                    [](const QString& text) { return text.startsWith("Store Program Setting Failed"); }, true)))
        << "the store, and nothing before it";
    EXPECT_THAT(processExit.reports, IsEmpty());
}

TEST_F(ProgramOverTcpTest, AStepWhoseTimesAreOffIsTakenAndComesBackAsOff)
{
    const ServedInstrument instrument;
    connectPageTo(instrument);
    page.txtMemSetting[0].setTag("1,1,AUTO,0,0,Off,0,Off,0,Off,0,Off,17");
    logic([this] { page.WriteProgramByCommands(); });
    logic([this] {
        page.InitProgramPage();
        for (CheckBox& box : page.chkMemSet)
            box.setValue(CheckBox::Checked);
    });

    logic([this] { page.ReadProgramByCommands(); });

    EXPECT_EQ(page.txtMemSetting[0].tag(), "1,1,AUTO,0,0,Off,0,Off,1,0,0,Off,17");
    EXPECT_EQ(page.txtMemSetting[119].tag(), "12,10,AUTO,0,0,0,0,0,1,0,0,0,17");
}

TEST_F(ProgramOverTcpTest, RandomProgramsOfTheInstrumentAreLoadedAndSentBackByteForByte)
{
    const ServedInstrument instrument;
    connectPageTo(instrument);
    std::mt19937 random(3);
    const auto upTo = [&](int highest) { return std::uniform_int_distribution<int>(0, highest)(random); };
    for (int round = 0; round < 3; ++round) {
        for (int n = 0; n < 120; ++n) {
            const auto seconds = [&] { return upTo(255) / 10.0; };
            page.txtMemSetting.at(static_cast<std::size_t>(n))
                .setTag(setting(n, seconds(), seconds(), seconds(), seconds()));
        }
        page.cmbProgChain[static_cast<std::size_t>(upTo(11))].setListIndex(upTo(12));
        logic([this] { page.progSendClick(); }); // now the instrument has them
        const QByteArray sent = bytesOf(staging::programUpload);
        QFile::remove(realPath(staging::programUpload));
        logic([this] { page.InitProgramPage(); });

        logic([this] { page.progLoadClick(); });
        const QByteArray fetched = bytesOf(staging::program);
        logic([this] { page.progSendClick(); });

        ASSERT_EQ(fetched.size(), 5580);
        EXPECT_EQ(fetched, sent);
        EXPECT_EQ(bytesOf(staging::programUpload), fetched);
    }
    EXPECT_THAT(messages, IsEmpty());
    EXPECT_THAT(processExit.reports, IsEmpty());
}

TEST_F(ProgramOverTcpTest, ReservedBytesThatTheInstrumentHasSurviveAMerge)
{
    const ServedInstrument instrument;
    connectPageTo(instrument);
    logic([this] { page.progLoadClick(); });
    ProgFileRecord record{};
    logic([&] { readRecord(staging::program, record); });
    record.reserved4[99] = std::byte{7};
    record.ChainNext[13] = 9;
    ASSERT_TRUE(finishImage(record));
    logic([&] { writeRecord(staging::programUpload, record); });
    control.SendProgramFile(); // as another program would
    page.txtMemSetting[0].setTag("1,1,AUTO,0,1,2.5,1,1,1,1,1,1,99");

    logic([this] { page.progSendClick(); });

    ProgFileRecord sent{};
    logic([&] { readRecord(staging::programUpload, sent); });
    EXPECT_EQ(sent.reserved4[99], std::byte{7});
    EXPECT_EQ(sent.ChainNext[13], 9);
    EXPECT_EQ(sent.programs[0].Memory[0], 98);
}

} // namespace

} // namespace orb
