// SPDX-License-Identifier: GPL-3.0-or-later
#include "directories.h"
#include "program_text.h"
#include "random_record.h"
#include "sequence_text.h"
#include "version.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <gmock/gmock.h>

namespace orb {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

/// orb-files as a process of its own, in a folder of its own.
class OrbFilesTest : public testing::Test {
protected:
    /// Runs it to its end and returns its exit code, -1 where it did not end by itself.
    int run(const QStringList& arguments)
    {
        QProcess process;
        process.setWorkingDirectory(folder.path());
        process.start(binaryDirectory() + QStringLiteral("/orb-files"), arguments);
        const bool ended = process.waitForFinished(60'000) && process.exitStatus() == QProcess::NormalExit;
        output = process.readAllStandardOutput().toStdString();
        errorOutput = process.readAllStandardError().toStdString();
        return ended ? process.exitCode() : -1;
    }
    void write(const QString& name, const std::string& content) const
    {
        QFile file(folder.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content.data(), static_cast<qint64>(content.size()));
    }
    std::string read(const QString& name) const
    {
        QFile file(folder.filePath(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : "no such file";
    }
    QStringList files() const { return QDir(folder.path()).entryList(QDir::Files | QDir::Hidden); }

    QTemporaryDir folder;
    std::string output;
    std::string errorOutput;
};

const std::string shortSequence = "Load module,K12B\nRange,High\n"
                                  "Point,Duration (s),Current (A),Rise (A/us),Fall (A/us)\n1,0.5,15,1.6,1.6\n";

TEST_F(OrbFilesTest, WhatIsShownAsCsvMakesTheSameFile)
{
    std::mt19937 noise(11);
    const SeqFileRecord sequence = sensibleSequence(noise);
    write("in.a", bytesOf(sequence));
    ASSERT_EQ(run({"show", "--csv", "in.a"}), 0) << errorOutput;
    EXPECT_EQ(output, csvOf(sequenceTable(sequence)));
    write("s.csv", output);
    EXPECT_EQ(run({"make", "sequence", "s.csv", "out.a"}), 0) << errorOutput;
    EXPECT_EQ(output + errorOutput, "");
    EXPECT_TRUE(read("out.a") == bytesOf(sequence));

    const auto program = randomRecord<ProgFileRecord>(noise);
    write("in.b", bytesOf(program));
    ASSERT_EQ(run({"show", "in.b", "--csv"}), 0) << errorOutput;
    EXPECT_EQ(output, csvOf(programTable(program)));
    write("p.csv", output);
    EXPECT_EQ(run({"make", "program", "p.csv", "out.b"}), 0) << errorOutput;
    EXPECT_TRUE(read("out.b") == bytesOf(program));
}

TEST_F(OrbFilesTest, AFileIsShownAsTextWithUnits)
{
    write("s.csv", shortSequence);
    ASSERT_EQ(run({"make", "sequence", "s.csv", "s.a"}), 0) << errorOutput;
    EXPECT_EQ(run({"show", "s.a"}), 0);
    EXPECT_THAT(output, StartsWith("s.a: sequence file, 4380 bytes, checksum "));
    EXPECT_THAT(output, HasSubstr("\n\nLoad module              K12B\n"));
    EXPECT_THAT(output, HasSubstr("Point  Duration (s)  Current (A)  Rise (A/us)  Fall (A/us)  Time base\n"
                                  "    1           0.5           15          1.6          1.6     100 ms\n"));
    EXPECT_THAT(output, Not(HasSubstr("reserved")));
}

TEST_F(OrbFilesTest, ReservedBytesAreMentionedInTheText)
{
    ProgFileRecord record{};
    record.reserved4[0] = std::byte{1};
    write("p.b", bytesOf(sealed(record)));
    EXPECT_EQ(run({"show", "p.b"}), 0);
    EXPECT_THAT(output, testing::EndsWith("\nIt has reserved bytes that are not 0; show --csv prints them.\n"));
}

TEST_F(OrbFilesTest, TheExitStatusOfACheckTellsWhetherAllFilesAreGood)
{
    write("good.a", std::string(4380, '\0'));
    write("good.b", std::string(5580, '\0'));
    write("bad.a", std::string(4380, '\1'));
    write("short.b", std::string(5579, '\0'));
    EXPECT_EQ(run({"check", "good.a", "good.b"}), 0);
    EXPECT_EQ(output, "good.a: sequence file, 4380 bytes, checksum 0\ngood.b: program file, 5580 bytes, checksum 0\n");
    EXPECT_EQ(errorOutput, "");
    EXPECT_EQ(run({"check", "bad.a", "missing.a", "short.b", "good.a"}), 1);
    EXPECT_EQ(output, "good.a: sequence file, 4380 bytes, checksum 0\n");
    EXPECT_EQ(errorOutput, "orb-files: bad.a: the checksum is 16843009, and the sum of the bytes is 4376\n"
                           "orb-files: missing.a: No such file or directory\n"
                           "orb-files: short.b: a sequence file has 4380 bytes and a program file 5580, not 5579\n");
}

TEST_F(OrbFilesTest, ABadFileIsNotShown)
{
    write("bad.b", std::string(5580, '\1'));
    EXPECT_EQ(run({"show", "bad.b"}), 1);
    EXPECT_EQ(output, "");
    EXPECT_THAT(errorOutput, StartsWith("orb-files: bad.b: the checksum is "));
    write("huge", std::string(1024 * 1024 + 1, 'x'));
    EXPECT_EQ(run({"show", "huge"}), 1);
    EXPECT_EQ(errorOutput, "orb-files: huge: the file is longer than 1 MiB\n");
    EXPECT_EQ(run({"show", "."}), 1);
    EXPECT_THAT(errorOutput, StartsWith("orb-files: .: "));
}

TEST_F(OrbFilesTest, AWrongCellLeavesTheFileThatIsThere)
{
    write("s.csv", shortSequence + "2,0.5,x,1.6,1.6\n");
    write("s.a", "old");
    EXPECT_EQ(run({"make", "sequence", "s.csv", "s.a"}), 1);
    EXPECT_EQ(errorOutput, "orb-files: s.csv: line 5, column 3: \"x\" is no number from 0 to 327.67\n");
    EXPECT_EQ(read("s.a"), "old");
    EXPECT_EQ(run({"make", "program", "s.csv", "new.b"}), 1);
    EXPECT_EQ(errorOutput, "orb-files: s.csv: line 1, column 1: no setting is called \"Load module\"\n");
    EXPECT_EQ(run({"make", "sequence", "missing.csv", "new.a"}), 1);
    EXPECT_EQ(errorOutput, "orb-files: missing.csv: No such file or directory\n");
    EXPECT_EQ(files(), QStringList({"s.a", "s.csv"}));
}

TEST_F(OrbFilesTest, AFileThatCanNotBeWrittenIsAnErrorAndLeavesNothing)
{
    write("s.csv", shortSequence);
    EXPECT_EQ(run({"make", "sequence", "s.csv", "none/s.a"}), 1);
    EXPECT_THAT(errorOutput, StartsWith("orb-files: none/s.a: "));
    QDir(folder.path()).mkdir("folder.a");
    EXPECT_EQ(run({"make", "sequence", "s.csv", "folder.a"}), 1);
    EXPECT_THAT(errorOutput, StartsWith("orb-files: folder.a: "));
    EXPECT_EQ(run({"make", "sequence", "s.csv", "./s.csv"}), 1);
    EXPECT_EQ(errorOutput, "orb-files: ./s.csv: this is the file to read\n");
    EXPECT_EQ(read("s.csv"), shortSequence);
    EXPECT_EQ(files(), QStringList("s.csv"));
}

TEST_F(OrbFilesTest, ALongerFileIsReplacedAsAWhole)
{
    write("s.csv", shortSequence);
    write("s.a", std::string(9000, 'x'));
    EXPECT_EQ(run({"make", "sequence", "s.csv", "s.a"}), 0) << errorOutput;
    EXPECT_TRUE(read("s.a") == bytesOf(readSequence(shortSequence)));
}

TEST_F(OrbFilesTest, ABadCommandLineIsAnError)
{
    const std::pair<QStringList, const char*> bad[] = {
        {{}, "there is nothing to do"},
        {{"list", "x"}, "there is no job \"list\""},
        {{"show"}, "show takes one file, not 0"},
        {{"show", "a", "b"}, "show takes one file, not 2"},
        {{"check"}, "check takes one file or more"},
        {{"make"}, "make takes \"sequence\" or \"program\", not \"\""},
        {{"make", "log", "a", "b"}, "make takes \"sequence\" or \"program\", not \"log\""},
        {{"make", "sequence", "a"}, "make takes two files, not 1"},
        {{"make", "program", "a", "b", "c"}, "make takes two files, not 3"},
        {{"check", "--csv", "a"}, "--csv belongs to show"},
        {{"show", "--json", "a"}, "Unknown option 'json'."},
    };
    for (const auto& [arguments, reason] : bad) {
        EXPECT_EQ(run(arguments), 2) << reason;
        EXPECT_EQ(errorOutput, std::string("orb-files: ") + reason + "; --help says how it works\n");
        EXPECT_EQ(output, "");
    }
}

/// The lines of the help that are indented by two blanks, from one that begins with `first` on, without their comments.
std::string exampleIn(const std::string& help, const std::string& first)
{
    std::string text;
    for (std::size_t at = help.find("\n  " + first) + 1; help.substr(at, 2) == "  "; at = help.find('\n', at) + 1) {
        std::string line = help.substr(at + 2, help.find('\n', at) - at - 2);
        text += line.substr(0, line.find("  ")) + '\n';
    }
    return text;
}

TEST_F(OrbFilesTest, TheVersionIsPrinted)
{
    EXPECT_EQ(run({"--version"}), 0);
    EXPECT_EQ(output, "orb-files " + programVersion().toStdString() + "\n");
}

TEST_F(OrbFilesTest, TheExamplesOfTheHelpMakeFiles)
{
    EXPECT_EQ(run({"--help"}), 0);
    const std::string help = output;
    for (const char* word : {"show", "--csv", "make", "check", "--help", "exit status"})
        EXPECT_THAT(help, HasSubstr(word));
    write("s.csv", exampleIn(help, "Load module"));
    EXPECT_EQ(run({"make", "sequence", "s.csv", "s.a"}), 0) << errorOutput;
    write("p.csv", exampleIn(help, "Chain start"));
    EXPECT_EQ(run({"make", "program", "p.csv", "p.b"}), 0) << errorOutput;
    EXPECT_EQ(run({"check", "s.a", "p.b"}), 0);
    EXPECT_EQ(run({"-h"}), 0);
    EXPECT_EQ(output, help);
}

TEST_F(OrbFilesTest, RandomBytesAreRefusedQuietly)
{
    std::mt19937 noise(12);
    for (const std::size_t length : {0U, 1U, 4U, 4379U, 4380U, 4381U, 5579U, 5580U, 5581U, 20000U}) {
        std::string bytes(length, '\0');
        for (char& byte : bytes)
            byte = static_cast<char>(noise() % 256);
        write("x", bytes);
        EXPECT_EQ(run({"check", "x"}), 1) << length;
        EXPECT_EQ(run({"show", "x"}), 1) << length;
        EXPECT_EQ(run({"show", "--csv", "x"}), 1) << length;
        EXPECT_EQ(run({"make", "sequence", "x", "x.a"}), 1) << length;
        EXPECT_EQ(run({"make", "program", "x", "x.b"}), 1) << length;
        EXPECT_EQ(files(), QStringList("x"));
    }
}

} // namespace
} // namespace orb
