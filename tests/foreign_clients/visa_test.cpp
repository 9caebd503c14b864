// SPDX-License-Identifier: GPL-3.0-or-later
// PyVISA with its backend in Python, over a raw socket and over a serial line.
#include "directories.h"
#include "foreign_client_fixture.h"
#include "record_file.h"
#include "seq_file_record.h"

#include <QFile>
#include <QImage>

#include <gmock/gmock.h>

namespace orb {
namespace {

class VisaTest : public ForeignClientTest {
protected:
    /// Performs the steps one after the other and returns what they print.
    std::string session(const QString& resource, const QStringList& steps)
    {
        const QStringList arguments =
            QStringList{sourceDirectory() + QStringLiteral("/tests/foreign_clients/visa_session.py"), resource} + steps;
        const Outcome outcome = run(QStringLiteral("/usr/bin/python3"), arguments);
        EXPECT_EQ(outcome.exitCode, 0) << outcome.errors;
        return outcome.output;
    }
    QString file(const char* name) const { return folder.filePath(QString::fromLatin1(name)); }
    static QByteArray contentOf(const QString& path)
    {
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
        return file.readAll();
    }
    /// Sets a sequence of two points and fetches it as a file, which must be what was set and what went over the link.
    void fetchSequence(const QString& resource);
};

class VisaSocketTest : public VisaTest {
protected:
    std::string session(const QStringList& steps) { return VisaTest::session(resource(), steps); }
    QString resource() const { return QStringLiteral("TCPIP::127.0.0.1::%1::SOCKET").arg(portText()); }
};

/// The serial line is a pseudo terminal, whose other end socat connects with the instrument's socket.
class VisaSerialTest : public VisaTest {
protected:
    void SetUp() override
    {
        VisaTest::SetUp();
        const QString line = file("line");
        startBeside(socat, QStringLiteral("socat"),
                    {QStringLiteral("pty,rawer,link=") + line, QStringLiteral("TCP:127.0.0.1:") + portText()});
        ASSERT_TRUE(waitUntil([&] { return QFile::exists(line) && tap->links() == 1; }))
            << socat.readAllStandardError().toStdString();
    }
    ~VisaSerialTest() override
    {
        socat.kill();
        socat.waitForFinished();
    }
    std::string session(const QStringList& steps) { return VisaTest::session(resource(), steps); }
    QString resource() const { return QStringLiteral("ASRL%1::INSTR").arg(file("line")); }

    QProcess socat;
};

void VisaTest::fetchSequence(const QString& resource)
{
    const QString path = file("ORBSeq.a");
    EXPECT_EQ(session(resource, {QStringLiteral("write :CHAN 1;:SEQ:CLE;:SEQ:END 2;:SEQ:REP 10"),
                                 QStringLiteral("write :SEQ:EDIT:POIN 1;:SEQ:POIN:TIME 1;CURR 2.5"),
                                 QStringLiteral("write :SEQ:EDIT:POIN 2;:SEQ:POIN:TIME 2;CURR 0.5"),
                                 QStringLiteral("fetch %1 :MMEM:DATA? \"ORBSeq.a\"").arg(path),
                                 QStringLiteral("query :SYST:ERR?")}),
              "4380\n0,\"No error\"\n");

    const QByteArray fetched = contentOf(path);
    EXPECT_TRUE(tap->answered().contains("#44380" + fetched + '\n'));
    SeqFileRecord record{};
    readRecord(path, record);
    EXPECT_EQ(record.CheckSum, computedCheckSum(record));
    EXPECT_EQ(record.LoopEnd, 1) << "counted from 0";
    EXPECT_EQ(record.RepeatCount, 10);
    EXPECT_EQ(record.Points[0].CurrentRaw, 5 * record.Points[1].CurrentRaw);
    EXPECT_GT(record.Points[1].CurrentRaw, 0);
}

TEST_F(VisaSocketTest, AListOfQueriesIsAnsweredLineByLine)
{
    EXPECT_EQ(session({QStringLiteral("query *IDN?"), QStringLiteral("query :CURR3?;:CHAN:COUN?;:MODE4?"),
                       QStringLiteral("write :CHAN 2"), QStringLiteral("query :CHAN?"),
                       QStringLiteral("values :LOAD:ALL?"), QStringLiteral("query *OPC?")}),
              "ZN,ORB3000,SIM0001,1.0\n3.0000;6;CRL\n2\n0.0\n0.0\n0.0\n0.0\n0.0\n0.0\n1\n");
}

TEST_F(VisaSocketTest, ReadingsWithTheirClosingCommaAreAListOfNumbers)
{
    EXPECT_EQ(session({QStringLiteral("values :FETC:ALLC?")}), "0.0\n0.0\n0.0\n0.0\n0.0\n0.0\n");
}

TEST_F(VisaSocketTest, ASetCurrentIsReadBackAndIsInTheInstrument)
{
    EXPECT_EQ(session({QStringLiteral("write :CURR1 1250 mA"), QStringLiteral("query :CURR1?"),
                       QStringLiteral("write :CURR1 MAX"), QStringLiteral("query :CURR1?;:CURR1? MAX"),
                       QStringLiteral("write :CURR1 0.75")}),
              "1.2500\n20.0000;20.0000\n");
    EXPECT_EQ(ask(":CURR1?;:LOAD1?"), "0.7500;0");
}

TEST_F(VisaSocketTest, AnUnknownQueryIsATimeoutAndTheNextAnswerIsItsOwn)
{
    EXPECT_EQ(session({QStringLiteral("unanswered :NOPE?"), QStringLiteral("query :SYST:ERR?"),
                       QStringLiteral("query :CHAN:COUN?")}),
              "timeout\n-113,\"Undefined header\"\n6\n");
}

TEST_F(VisaSocketTest, TheScreenIsFetchedAsAPicture)
{
    const QString path = file("screen.bmp");

    EXPECT_EQ(session({QStringLiteral("fetch %1 :HCOP:SDUM:DATA?").arg(path), QStringLiteral("query *OPC?")}),
              "230454\n1\n");

    const QByteArray fetched = contentOf(path);
    EXPECT_EQ(tap->answered(), "#6230454" + fetched + "\n1\n");
    EXPECT_EQ(QImage(path).size(), QSize(320, 240));
}

TEST_F(VisaSocketTest, TheSequenceFileIsFetched)
{
    fetchSequence(resource());
}

TEST_F(VisaSocketTest, TheProgramFileIsFetchedAndSentBack)
{
    const QString path = file("ORBProg.b");
    EXPECT_EQ(
        session({QStringLiteral("write :PROG:FILE 4;:PROG:SEQ 6;:PROG:MEM 77"),
                 QStringLiteral("fetch %1 :MMEM:DATA? \"ORBProg.b\"").arg(path), QStringLiteral("write :PROG:MEM 1"),
                 QStringLiteral("query :PROG:MEM?"), QStringLiteral("send %1 :MMEM:DATA \"ORBProg.b\",").arg(path),
                 QStringLiteral("query :PROG:FILE 4;:PROG:SEQ 6;:PROG:MEM?;:SYST:ERR?")}),
        "5580\n1\n77;0,\"No error\"\n");
}

TEST_F(VisaSerialTest, AListOfQueriesIsAnsweredLineByLine)
{
    EXPECT_EQ(session({QStringLiteral("query *IDN?"), QStringLiteral("query :CURR3?;:CHAN:COUN?;:MODE4?"),
                       QStringLiteral("values :FETC:ALLC?")}),
              "ZN,ORB3000,SIM0001,1.0\n3.0000;6;CRL\n0.0\n0.0\n0.0\n0.0\n0.0\n0.0\n");
}

TEST_F(VisaSerialTest, ASetCurrentIsReadBackAndIsInTheInstrument)
{
    EXPECT_EQ(session({QStringLiteral("write :CURR2 0.125"), QStringLiteral("query :CURR2?")}), "0.1250\n");
    EXPECT_EQ(ask(":CURR2?;:LOAD2?"), "0.1250;0");
}

TEST_F(VisaSerialTest, TheSequenceFileIsFetched)
{
    fetchSequence(resource());
}

} // namespace
} // namespace orb
