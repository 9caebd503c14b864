// SPDX-License-Identifier: GPL-3.0-or-later
#include "console_catalogue.h"
#include "directories.h"
#include "loopback.h"
#include "simulator_manual.h"
#include "version.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <gmock/gmock.h>

namespace orb {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

/// orb-simulator as a process of its own.
class OrbSimulatorTest : public testing::Test {
protected:
    ~OrbSimulatorTest() override
    {
        process.kill();
        process.waitForFinished();
    }

    void start(const QStringList& arguments)
    {
        process.start(binaryDirectory() + QStringLiteral("/orb-simulator"), arguments);
        ASSERT_TRUE(process.waitForStarted(30'000)) << process.errorString().toStdString();
    }
    /// Runs it to its end and returns its exit code, -1 where it did not end by itself.
    int run(const QStringList& arguments)
    {
        start(arguments);
        if (!process.waitForFinished(30'000) || process.exitStatus() != QProcess::NormalExit)
            return -1;
        output = process.readAllStandardOutput().toStdString();
        errorOutput = process.readAllStandardError().toStdString();
        return process.exitCode();
    }
    /// Starts it on a free port and returns the port that it names.
    quint16 serve(QStringList arguments = {})
    {
        arguments << QStringLiteral("--port") << QStringLiteral("0");
        start(arguments);
        EXPECT_TRUE(waitUntil([this] { return process.canReadLine() || process.state() == QProcess::NotRunning; }));
        const QByteArray line = process.readLine();
        EXPECT_TRUE(line.startsWith("port ")) << line.toStdString() << process.readAllStandardError().toStdString();
        return static_cast<quint16>(line.mid(5).trimmed().toUInt());
    }
    QString file(const QString& name, const QByteArray& content)
    {
        const QString path = folder.filePath(name);
        QFile out(path);
        EXPECT_TRUE(out.open(QIODevice::WriteOnly));
        out.write(content);
        return path;
    }

    QTemporaryDir folder;
    QProcess process;
    std::string output;
    std::string errorOutput;
};

TEST_F(OrbSimulatorTest, TheFirstLineNamesThePort)
{
    Client client(serve());
    ASSERT_TRUE(client.connect());
    EXPECT_THAT(client.query("*IDN?"), StartsWith("ZN,ORB3000,"));
    EXPECT_EQ(client.query(":CHAN:COUN?"), "6");
}

TEST_F(OrbSimulatorTest, ATerminationRequestEndsTheProgram)
{
    serve();
    process.terminate();
    ASSERT_TRUE(process.waitForFinished(30'000));
    EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(process.exitCode(), 0);
}

TEST_F(OrbSimulatorTest, TheCommandLineSetsTheNumberOfChannels)
{
    Client client(serve({QStringLiteral("--channels"), QStringLiteral("3")}));
    ASSERT_TRUE(client.connect());
    EXPECT_EQ(client.query("*OPT?"), "K11,K12A,K12B");
}

TEST_F(OrbSimulatorTest, EightModulesGetTheSourcesOfAllEightChannels)
{
    Client client(serve({QStringLiteral("--modules"), QStringLiteral("K11,K11,K11,K11,K11,K11,K11,K11")}));
    ASSERT_TRUE(client.connect());
    EXPECT_EQ(client.query(":CHAN:COUN?"), "8");
    EXPECT_EQ(client.query(":MODE7?;:VOLT7?"), "CV;24.0000") << "the module at its place: the set value stays";
    EXPECT_THAT(client.query(":MEAS8:VOLT?"), StartsWith("4.1"));
}

TEST_F(OrbSimulatorTest, TheCommandLineSetsTheModules)
{
    Client client(serve({QStringLiteral("--modules"), QStringLiteral("k11, K17,K12A")}));
    ASSERT_TRUE(client.connect());
    EXPECT_EQ(client.query("*OPT?"), "K11,K17,K12A");
    EXPECT_EQ(client.query(":CURR1?;:CURR2?"), "2.0000;0.0000") << "another module begins as after a reset";
}

TEST_F(OrbSimulatorTest, TheSeedDeterminesTheReadings)
{
    const auto reading = [this](const char* seed) {
        Client client(serve({QStringLiteral("--seed"), QString::fromLatin1(seed)}));
        EXPECT_TRUE(client.connect());
        const std::string first =
            client.query(":MEAS1:VOLT?") + client.query(":MEAS5:VOLT?") + client.query(":MEAS4:VOLT?");
        process.kill();
        process.waitForFinished();
        return first;
    };
    const std::string first = reading("5");
    EXPECT_EQ(reading("5"), first);
    EXPECT_NE(reading("6"), first);
}

TEST_F(OrbSimulatorTest, ServedAnswersAreWrittenToAFile)
{
    const QString path = folder.filePath(QStringLiteral("served.txt"));
    Client client(serve({QStringLiteral("--served"), path}));
    ASSERT_TRUE(client.connect());
    const std::string currents = client.query(":FETC:ALLC?");
    const std::string voltages = client.query(":FETC:ALLV?");
    QFile served(path);
    ASSERT_TRUE(served.open(QIODevice::ReadOnly));
    EXPECT_EQ(served.readAll().toStdString(), ":FETC:ALLC?\t" + currents + "\n:FETC:ALLV?\t" + voltages + "\n");
}

TEST_F(OrbSimulatorTest, AScriptOfFaultsIsExecuted)
{
    Client client(serve({QStringLiteral("--faults"), file(QStringLiteral("faults"), "1 *IDN? wrong \"another\"\n")}));
    ASSERT_TRUE(client.connect());
    EXPECT_EQ(client.query("*IDN?"), "another");
    EXPECT_THAT(client.query("*IDN?"), StartsWith("ZN,"));
}

TEST_F(OrbSimulatorTest, ABadScriptIsAnErrorWithItsLine)
{
    EXPECT_EQ(run({QStringLiteral("--faults"), file(QStringLiteral("faults"), "# comment\n1 *IDN? lost\n")}), 1);
    EXPECT_THAT(errorOutput, HasSubstr("faults: line 2: no such fault: lost\n"));
    EXPECT_EQ(output, "");
    EXPECT_EQ(run({QStringLiteral("--faults"), folder.filePath(QStringLiteral("none"))}), 1);
    EXPECT_THAT(errorOutput, HasSubstr("none: "));
}

TEST_F(OrbSimulatorTest, ABadCommandLineIsAnError)
{
    const std::pair<QStringList, const char*> bad[] = {
        {{QStringLiteral("5025")}, "unexpected argument: 5025"},
        {{QStringLiteral("--seed"), QStringLiteral("-1")},
         "--seed must be a whole number from 0 to 18446744073709551615"},
        {{QStringLiteral("--prot")}, "Unknown option 'prot'."},
        {{QStringLiteral("--port")}, "Missing value after '--port'."},
        {{QStringLiteral("--port"), QStringLiteral("65536")},
         "--port must be a whole number from 0 to 65535, not 65536"},
        {{QStringLiteral("--port"), QStringLiteral("x")}, "--port must be a whole number from 0 to 65535, not x"},
        {{QStringLiteral("--channels"), QStringLiteral("0")}, "--channels must be a whole number from 1 to 8, not 0"},
        {{QStringLiteral("--channels"), QStringLiteral("9")}, "--channels must be a whole number from 1 to 8, not 9"},
        {{QStringLiteral("--modules"), QStringLiteral("K11,K99")}, "no load module is called \"K99\""},
        {{QStringLiteral("--modules"), QStringLiteral("K11,")}, "no load module is called \"\""},
        {{QStringLiteral("--modules"), QStringLiteral("K11,K11,K11,K11,K11,K11,K11,K11,K11")},
         "--modules takes at most 8 names"},
        {{QStringLiteral("--modules"), QStringLiteral("K11"), QStringLiteral("--channels"), QStringLiteral("1")},
         "--channels and --modules exclude each other"},
    };
    for (const auto& [arguments, reason] : bad) {
        EXPECT_EQ(run(arguments), 2);
        EXPECT_THAT(errorOutput, StartsWith(std::string("orb-simulator: ") + reason));
        EXPECT_EQ(output, "");
    }
}

TEST_F(OrbSimulatorTest, APortInUseIsAnError)
{
    const quint16 port = serve();
    QProcess second;
    second.start(process.program(), {QStringLiteral("--port"), QString::number(port)});
    ASSERT_TRUE(second.waitForFinished(30'000));
    EXPECT_EQ(second.exitCode(), 1);
    EXPECT_THAT(second.readAllStandardError().toStdString(), HasSubstr("port " + std::to_string(port) + ": "));
}

TEST_F(OrbSimulatorTest, TheVersionIsPrinted)
{
    EXPECT_EQ(run({"--version"}), 0);
    EXPECT_EQ(output, "orb-simulator " + programVersion().toStdString() + "\n");
}

TEST_F(OrbSimulatorTest, TheManualIsPrinted)
{
    EXPECT_EQ(run({QStringLiteral("--help")}), 0);
    for (const char* option : {"--port", "--channels", "--modules", "--seed", "--faults", "--served", "--commands",
                               "--console", "--catalogue", "--errors", "--help"})
        EXPECT_THAT(output, HasSubstr(option));
    EXPECT_EQ(run({QStringLiteral("--commands")}), 0);
    EXPECT_EQ(output, commandsManual());
    EXPECT_EQ(run({QStringLiteral("--console")}), 0);
    EXPECT_EQ(output, commandCatalogue());
    EXPECT_EQ(run({QStringLiteral("--catalogue")}), 0);
    EXPECT_EQ(output, modulesManual());
    EXPECT_EQ(run({QStringLiteral("--errors")}), 0);
    EXPECT_EQ(output, errorsManual());
}

} // namespace
} // namespace orb
