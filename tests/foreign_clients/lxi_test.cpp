// SPDX-License-Identifier: GPL-3.0-or-later
// lxi, the command line tool of lxi-tools, over a raw socket.
#include "foreign_client_fixture.h"

#include <gmock/gmock.h>

namespace orb {
namespace {

using testing::HasSubstr;

class LxiTest : public ForeignClientTest {
protected:
    Outcome lxi(const QString& command, QStringList arguments)
    {
        arguments =
            QStringList{command,    QStringLiteral("--address"), QStringLiteral("127.0.0.1"), QStringLiteral("--port"),
                        portText(), QStringLiteral("--raw")} +
            arguments;
        return run(QStringLiteral("lxi"), arguments);
    }
    Outcome scpi(const char* message) { return lxi(QStringLiteral("scpi"), {QString::fromLatin1(message)}); }
};

TEST_F(LxiTest, TheIdentityIsPrinted)
{
    const Outcome outcome = scpi("*IDN?");

    EXPECT_EQ(outcome.output, "ZN,ORB3000,SIM0001,1.0\n");
    EXPECT_EQ(outcome.exitCode, 0) << outcome.errors;
    EXPECT_EQ(tap->asked(), "*IDN?\n");
}

TEST_F(LxiTest, TheAnswersOfOneLineArePrintedTogether)
{
    EXPECT_EQ(scpi(":CURR3?;:CHAN:COUN?;:MODE4?").output, "3.0000;6;CRL\n");
}

TEST_F(LxiTest, ASettingArrivesAndIsReadBack)
{
    const Outcome set = scpi(":CURR1 1.25;:LEV1 2");

    EXPECT_EQ(set.exitCode, 0) << set.errors;
    EXPECT_EQ(set.output, "");
    EXPECT_EQ(scpi(":CURR1?;:LEV1?;:SYST:ERR?").output, "1.2500;2;0,\"No error\"\n");
}

TEST_F(LxiTest, AnUnknownQueryEndsInATimeoutAndTheQueueSaysWhy)
{
    const Outcome outcome =
        lxi(QStringLiteral("scpi"), {QStringLiteral("--timeout"), QStringLiteral("1"), QStringLiteral(":NOPE?")});

    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_THAT(outcome.errors, HasSubstr("Timeout"));
    EXPECT_EQ(scpi(":SYST:ERR?").output, "-113,\"Undefined header\"\n");
}

TEST_F(LxiTest, TheBenchmarkHasAnAnswerToEachOfItsQueries)
{
    const Outcome outcome = lxi(QStringLiteral("benchmark"), {QStringLiteral("--count"), QStringLiteral("500")});

    EXPECT_EQ(outcome.exitCode, 0) << outcome.errors;
    EXPECT_THAT(outcome.output, HasSubstr("requests/second"));
    EXPECT_EQ(tap->asked(), QByteArray("*IDN?\n").repeated(500));
    EXPECT_EQ(tap->answered(), QByteArray("ZN,ORB3000,SIM0001,1.0\n").repeated(500));
}

} // namespace
} // namespace orb
