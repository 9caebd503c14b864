// SPDX-License-Identifier: GPL-3.0-or-later
// The instrument's screen between the control and a served instrument, over a real socket.
#include "paths.h"
#include "tcp_control.h"
#include "test_servers.h"

#include <gmock/gmock.h>

namespace orb {

namespace {

class ScreenOverTcpTest : public TcpControlTest {
protected:
    ScreenOverTcpTest()
    {
        EXPECT_TRUE(connectTo(instrument.port())) << status();
        control.PanelActive(false);
    }
    ~ScreenOverTcpTest() override { QFile::remove(realPath(staging::screen)); }

    QImage grab()
    {
        EXPECT_TRUE(control.GrabScreen());
        return QImage(realPath(staging::screen)).convertToFormat(QImage::Format_RGB32);
    }

    ServedInstrument instrument;
};

/// The page of the programs shows no reading, which would be another one for each picture.
TEST_F(ScreenOverTcpTest, TheGrabbedScreenIsThePictureThatTheInstrumentDrewPixelForPixel)
{
    send(":KEYBoard:CODE 112,1");
    send(":KEYBoard:CODE 116,1");
    send(":PROG:FILE 7;:PROG:SEQ 3");
    ASSERT_EQ(ask(":PROG:SEQ?"), "3"); // all of it has arrived

    const std::string block = instrument.execute(":HCOP:SDUM:DATA?");
    const QImage drawn = QImage::fromData(QByteArray::fromStdString(block.substr(8)), "BMP");

    const QImage grabbed = grab();
    ASSERT_EQ(grabbed.size(), QSize(320, 240));
    EXPECT_EQ(grabbed, drawn.convertToFormat(QImage::Format_RGB32));
}

TEST_F(ScreenOverTcpTest, AKeyThatWasSentShowsInTheNextPicture)
{
    const QImage before = grab();
    send(":KEYBoard:CODE 114,1");
    const QImage after = grab();
    EXPECT_NE(after, before);
    EXPECT_EQ(ask(":DISP:PAGE?"), "ALL");
}

} // namespace

} // namespace orb
