// SPDX-License-Identifier: GPL-3.0-or-later
#include "program_process.h"

using namespace orb;
using testing::HasSubstr;

namespace {

/// The real program with an operator in it, who presses one button and answers its dialogs.
class DialogsTest : public testing::Test {
protected:
    /// False where this machine lets no process mount anything.
    static bool canMount()
    {
        QProcess trial;
        trial.start("unshare", {"--mount", "--map-root-user", "sh", "-c", "mount -t tmpfs none /mnt"});
        return trial.waitForFinished(60'000) && trial.exitStatus() == QProcess::NormalExit && trial.exitCode() == 0;
    }

    /// The sentence, the name that the dialog still has after it, and what a cancel brings then.
    void expectRefusal(const QString& sentence, const QString& keptName)
    {
        EXPECT_TRUE(program.waitFor("goes on")) << program.errors().toStdString();
        EXPECT_THAT(
            program.output().toStdString(),
            HasSubstr((sentence + "\n" + keptName + "\nData Log CSV saved Failed as User Cancel Opeation!\ngoes on\n")
                          .toStdString()));
        EXPECT_TRUE(program.isRunning());
    }

    ProgramFolder folder;
    ProgramProcess program{folder};
};

TEST_F(DialogsTest, AnExportToAFolderThatCannotBeWrittenIsRefusedAndTheProgramGoesOn)
{
    program.start("operated-program", {"export", "/proc/sys/log.csv"});

    expectRefusal("No file can be written in this folder: /proc/sys", "/proc/sys/log.csv");
}

TEST_F(DialogsTest, AnExportToAReadOnlyDiskIsRefusedAndTheProgramGoesOn)
{
    if (!canMount())
        GTEST_SKIP() << "nothing can be mounted here";
    QDir().mkdir(folder.filePath("disk"));
    program.startAfter("mount -t tmpfs -o ro none '" + folder.filePath("disk") + "'", "operated-program",
                       {"export", folder.filePath("disk/log.csv")});

    expectRefusal("No file can be written in this folder: " + folder.filePath("disk"), folder.filePath("disk/log.csv"));
}

TEST_F(DialogsTest, AnExportToAFullDiskIsRefusedAndTheProgramGoesOn)
{
    if (!canMount())
        GTEST_SKIP() << "nothing can be mounted here";
    QDir().mkdir(folder.filePath("disk"));
    program.startAfter("mount -t tmpfs -o size=64k none '" + folder.filePath("disk") + "'\nhead -c 32768 /dev/zero >'" +
                           folder.filePath("disk/other") + "'",
                       "operated-program", {"export", folder.filePath("disk/log.csv")});

    expectRefusal("The disk is full: " + folder.filePath("disk"), folder.filePath("disk/log.csv"));
}

TEST_F(DialogsTest, AnExportUnderTheNameOfAFolderIsRefusedAndTheProgramGoesOn)
{
    QDir().mkdir(folder.filePath("log.csv"));
    program.start("operated-program", {"export", folder.filePath("log.csv")});

    expectRefusal("This is a folder. Please enter the name of a file: " + folder.filePath("log.csv"),
                  folder.filePath("log.csv"));
}

TEST_F(DialogsTest, WithoutAPrinterACancelPrintsToTheOfferedFileInTheDocumentsFolderAndTheProgramGoesOn)
{
    program.start("operated-program", {"print"});

    EXPECT_TRUE(program.waitFor("goes on")) << program.errors().toStdString();
    const QString file = folder.environment().value("HOME") + "/Documents/orb.pdf";
    EXPECT_THAT(program.output().toStdString(), HasSubstr(file.toStdString() + "\ngoes on\n"));
    QFile pdf(file);
    ASSERT_TRUE(pdf.open(QIODevice::ReadOnly));
    EXPECT_TRUE(pdf.readAll().startsWith("%PDF"));
    EXPECT_TRUE(program.isRunning());
}

} // namespace
