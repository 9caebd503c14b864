// SPDX-License-Identifier: GPL-3.0-or-later
// The scan of sigrok-cli, over a raw socket. It knows no electronic loads of our kind: what it asks must be answered, so
// that it ends at once and does not take the instrument for something else.
#include "foreign_client_fixture.h"

#include <gmock/gmock.h>

namespace orb {
namespace {

using testing::HasSubstr;

class SigrokTest : public ForeignClientTest {
protected:
    Outcome scan(const char* driver)
    {
        const QString link =
            QStringLiteral("%1:conn=tcp-raw/127.0.0.1/%2").arg(QString::fromLatin1(driver), portText());
        return run(QStringLiteral("sigrok-cli"), {QStringLiteral("--driver"), link, QStringLiteral("--scan"),
                                                  QStringLiteral("--loglevel"), QStringLiteral("5")});
    }
};

TEST_F(SigrokTest, TheScanForMultimetersAsksForTheIdentityAndFindsNone)
{
    const Outcome outcome = scan("scpi-dmm");

    EXPECT_EQ(outcome.exitCode, 0) << outcome.errors;
    EXPECT_EQ(tap->asked(), "*OPC?\n*IDN?\n");
    EXPECT_EQ(tap->answered(), "1\nZN,ORB3000,SIM0001,1.0\n");
    EXPECT_THAT(outcome.errors, HasSubstr("Got response: 'ZN,ORB3000,SIM0001,1.0', length 22."));
    EXPECT_THAT(outcome.errors, HasSubstr("Scan found 0 devices (scpi-dmm)."));
    EXPECT_EQ(ask(":SYST:ERR?"), "0,\"No error\"");
}

TEST_F(SigrokTest, TheScanForPowerSuppliesAsksForTheIdentityAndFindsNone)
{
    const Outcome outcome = scan("scpi-pps");

    EXPECT_EQ(outcome.exitCode, 0) << outcome.errors;
    EXPECT_EQ(tap->asked(), "*IDN?\n");
    EXPECT_THAT(outcome.errors, HasSubstr("Scan found 0 devices (scpi-pps)."));
    EXPECT_EQ(ask(":SYST:ERR?;:LOAD:ALL?"), "0,\"No error\";0,0,0,0,0,0");
}

} // namespace
} // namespace orb
