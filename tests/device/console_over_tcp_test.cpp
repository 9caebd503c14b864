// SPDX-License-Identifier: GPL-3.0-or-later
// The command runner, the instrument control and a served instrument, over a real socket.
#include "command_page.h"
#include "peers.h"
#include "scripted_dialogs.h"
#include "tcp_control.h"

#include <gmock/gmock.h>

namespace orb {

namespace {

class ConsoleOverTcpTest : public TcpControlTest {
protected:
    ConsoleOverTcpTest() { page.setParent(&form); }

    /// Sends each line in single step, all over a link to an instrument with that script of faults.
    std::string logOf(const QStringList& lines, const std::string& faults = {})
    {
        ServedInstrument instrument(faults);
        EXPECT_TRUE(connectTo(instrument.port()));
        control.PanelActive(false);
        run.enter([this] { page.RefreshCommandPage(); });
        page.lstCmdPool.addItems(lines);
        for (qsizetype i = 0; i < lines.size(); ++i)
            press(page.cmdStart);
        return page.txtExecLog.text().toStdString();
    }

    ScriptedDialogs dialogs;
    Paths paths{QStringLiteral(ORB_SOURCE_DIR "/resources")};
    OptionButton optDispDev;
    CommandPage page{clock, dialogs, paths, control, optDispDev};
};

TEST_F(ConsoleOverTcpTest, TheLogOfARunHoldsTheAnswersOfTheInstrument)
{
    EXPECT_EQ(logOf({":CHAN 2", ":CHAN?", ":CURR 1.5", ":CURR?", "*IDN?"}), ":CHAN 2\r\n"
                                                                            ":CHAN? => 2\r\n"
                                                                            ":CURR 1.5\r\n"
                                                                            ":CURR? => 1.5000\r\n"
                                                                            "*IDN? => ZN,ORB3000,SIM0001,1.0\r\n");
}

TEST_F(ConsoleOverTcpTest, AnInstrumentThatIsSlowLeavesAnEmptyAnswerAndTheNextQueryGetsItsOwn)
{
    EXPECT_EQ(logOf({":CURR?", ":CHAN?"}, "1 :CURR? late 150ms\n"), ":CURR? => \r\n:CHAN? => 1\r\n");
}

} // namespace

} // namespace orb
