// SPDX-License-Identifier: GPL-3.0-or-later
// The command runner, the instrument control and a served instrument, over a real socket.
#include "command_page.h"
#include "directories.h"
#include "scripted_dialogs.h"
#include "tcp_control.h"
#include "test_servers.h"

#include <gmock/gmock.h>

namespace orb {

namespace {

class ConsoleOverTcpTest : public TcpControlTest {
protected:
    ConsoleOverTcpTest() { page.setParent(&form); }

    void connectPageTo(const ServedInstrument& instrument)
    {
        ASSERT_TRUE(connectTo(instrument.port()));
        control.PanelActive(false);
        run.enter([this] { page.RefreshCommandPage(); });
    }

    /// Sends each line in single step. The log of it.
    std::string logOf(const QStringList& lines)
    {
        page.lstCmdPool.clear();
        page.lstCmdPool.addItems(lines);
        press(page.cmdRefresh);
        for (qsizetype i = 0; i < lines.size(); ++i)
            press(page.cmdStart);
        return page.txtExecLog.text().toStdString();
    }

    /// Sends the lines until the log is that one: on a machine that is busy otherwise, an answer may not make it into
    /// the 50 ms in which it is logged.
    bool logsInTheEnd(const QStringList& lines, const std::string& log)
    {
        for (int i = 0; i < 20; ++i)
            if (logOf(lines) == log)
                return true;
        return false;
    }

    ScriptedDialogs dialogs;
    Paths paths{sourceDirectory() + QStringLiteral("/resources")};
    OptionButton optDispDev;
    CommandPage page{clock, dialogs, paths, control, optDispDev};
};

TEST_F(ConsoleOverTcpTest, TheLogOfARunHoldsTheAnswersOfTheInstrument)
{
    const ServedInstrument instrument;
    connectPageTo(instrument);
    EXPECT_TRUE(logsInTheEnd({":CHAN 2", ":CHAN?", ":CURR 1.5", ":CURR?", "*IDN?"},
                             ":CHAN 2\r\n"
                             ":CHAN? => 2\r\n"
                             ":CURR 1.5\r\n"
                             ":CURR? => 1.5000\r\n"
                             "*IDN? => ZN,ORB3000,SIM0001,1.0\r\n"))
        << page.txtExecLog.text().toStdString();
}

TEST_F(ConsoleOverTcpTest, ASlowAnswerIsLoggedAsEmptyAndALaterQueryGetsItsOwn)
{
    const ServedInstrument instrument("1 :CURR? late 2s\n");
    connectPageTo(instrument);
    EXPECT_EQ(logOf({":CURR?"}), ":CURR? => \r\n");
    EXPECT_TRUE(waitUntil([this] { return !control.Reply().isEmpty(); }));
    EXPECT_TRUE(logsInTheEnd({":CHAN?"}, ":CHAN? => 1\r\n")) << page.txtExecLog.text().toStdString();
}

} // namespace

} // namespace orb
