// SPDX-License-Identifier: GPL-3.0-or-later
#include "directories.h"
#include "printing.h"

#include <QDir>
#include <QProcess>
#include <QTemporaryDir>

#include <gmock/gmock.h>

#include <filesystem>

using namespace orb;
using testing::HasSubstr;

namespace {

constexpr int limitMs = 60'000;

/// The real program in a folder of its own, so that files can be taken away from it.
class StartTest : public testing::Test {
protected:
    StartTest()
    {
        const QDir built(binaryDirectory());
        for (const char* name : {"orb", "orb-service"})
            std::filesystem::create_hard_link(built.filePath(name).toStdString(), folder.filePath(name).toStdString());
        for (const char* name : {"orb.mdb", "OrbEmpty.jpg", "orbCommands.dat", "ORBScrBtn.dat"})
            QFile::copy(built.filePath(name), folder.filePath(name));
        QDir(folder.path()).mkdir("ICON");
        for (const QString& picture : QDir(built.filePath("ICON")).entryList(QDir::Files))
            QFile::copy(built.filePath("ICON/" + picture), folder.filePath("ICON/" + picture));
    }

    ~StartTest() override
    {
        program.kill();
        program.waitForFinished(limitMs);
    }

    /// Starts the program. What it writes to its error output, up to a line that holds `text`.
    std::string errorsUpTo(const QByteArray& text, const char* name = "orb")
    {
        program.start(folder.filePath(name), {});
        QByteArray errors;
        while (!errors.contains(text) && program.state() != QProcess::NotRunning) {
            program.waitForReadyRead(100);
            errors += program.readAllStandardError();
        }
        return errors.toStdString();
    }

    /// In the folder of the programs, since a hard link can't leave its file system.
    QTemporaryDir folder{binaryDirectory() + "/start-XXXXXX"};
    QProcess program;
};

TEST_F(StartTest, AMissingPictureIsReportedAsARunTimeError)
{
    ASSERT_TRUE(QFile::remove(folder.filePath("ICON/PageConnect.png")));

    const std::string errors = errorsUpTo("File not found");

    EXPECT_THAT(errors, HasSubstr("Run-time error '53':\n\nFile not found"));
    EXPECT_EQ(program.state(), QProcess::Running) << "the report waits for its answer";
}

TEST_F(StartTest, AMissingDatabaseIsReportedAsARunTimeError)
{
    ASSERT_TRUE(QFile::remove(folder.filePath("orb.mdb")));

    EXPECT_THAT(errorsUpTo("Run-time error"), HasSubstr("Run-time error '3024':"));
}

TEST_F(StartTest, AMissingPanelMapIsReportedAsARunTimeErrorByBothPrograms)
{
    ASSERT_TRUE(QFile::remove(folder.filePath("ORBScrBtn.dat")));
    for (const char* name : {"orb", "orb-service"}) {
        EXPECT_THAT(errorsUpTo("File not found", name), HasSubstr("Run-time error '53':\n\nFile not found")) << name;
        program.kill();
        program.waitForFinished(limitMs);
    }
}

} // namespace
