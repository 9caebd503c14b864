// SPDX-License-Identifier: GPL-3.0-or-later
#include "database.h"
#include "directories.h"
#include "installation.h"
#include "printing.h"
#include "version.h"
#include "workspace.h"

#include <QDateTime>
#include <QDir>

#include <gmock/gmock.h>

using namespace orb;
using testing::HasSubstr;
using testing::IsSupersetOf;

namespace {

class InstalledProgramTest : public testing::Test {
protected:
    void SetUp() override
    {
        const CommandResult result = installation.install();
        ASSERT_EQ(result.exitCode, 0) << result.errorOutput;
    }

    /// Has the scripted user work the program: it connects to the simulated instrument, records and exits.
    CommandResult record(const QString& program) const
    {
        QDir(installation.path("")).mkpath("plugins/generic"); // where every user may read it
        QFile::copy(QDir::cleanPath(binaryDirectory() + "/../plugins/generic/libscripted-user.so"),
                    installation.path("plugins/generic/libscripted-user.so"));
        return installation.runAsUser(program, {},
                                      {{"QT_QPA_PLATFORM", "offscreen"},
                                       {"QT_PLUGIN_PATH", installation.path("plugins")},
                                       {"QT_QPA_GENERIC_PLUGINS", "scripteduser"}});
    }

    Installation installation;
};

TEST_F(InstalledProgramTest, AUserWithoutTheRightToWriteThereRecordsIntoTheUsersFolder)
{
    const QStringList before = installation.files();

    const CommandResult result = record("usr/bin/orb");

    ASSERT_EQ(result.exitCode, 0) << result.output << result.errorOutput;
    ASSERT_TRUE(QFile::exists(installation.home(".local/share/orb/orb.mdb"))) << result.output;
    EXPECT_EQ(QFileInfo(installation.home(".local/share/orb/orb.mdb")).owner(), Installation::userName());
    Workspace workspace([] { return QDateTime(); });
    Database database = workspace.openDatabase(installation.home(".local/share/orb/orb.mdb"));
    const auto rows = database.openRecordset("select count(*), min(SeqNo), max(SeqNo) from DataMeasure");
    EXPECT_GE(rows->field(0).toDouble(), 3);
    EXPECT_EQ(rows->field(1).toDouble(), 0);
    EXPECT_EQ(rows->field(2).toDouble(), rows->field(0).toDouble() - 1);
    EXPECT_EQ(installation.files(), before) << "the installed files are as they were";
    EXPECT_TRUE(QFile::exists(installation.home(".local/share/orb/examples/ramp.a")));
}

TEST_F(InstalledProgramTest, EveryFileIsAtItsPlace)
{
    EXPECT_THAT(installation.names(),
                IsSupersetOf(QStringList{"usr/bin/orb",
                                         "usr/bin/orb-files",
                                         "usr/bin/orb-service",
                                         "usr/bin/orb-simulator",
                                         "usr/lib/orb/ICON/B4STOP.JPG",
                                         "usr/lib/orb/ORBScrBtn.dat",
                                         "usr/lib/orb/OrbEmpty.jpg",
                                         "usr/lib/orb/examples/ramp.a",
                                         "usr/lib/orb/orb",
                                         "usr/lib/orb/orb-service",
                                         "usr/lib/orb/orb.mdb",
                                         "usr/lib/orb/orbCommands.dat",
                                         "usr/share/applications/example.zn.orb-service.desktop",
                                         "usr/share/applications/example.zn.orb.desktop",
                                         "usr/share/doc/orb/changelog.gz",
                                         "usr/share/doc/orb/copyright",
                                         "usr/lib/orb/manual/index.html",
                                         "usr/share/icons/hicolor/16x16/apps/example.zn.orb.png",
                                         "usr/share/icons/hicolor/256x256/apps/example.zn.orb.png",
                                         "usr/share/icons/hicolor/scalable/apps/example.zn.orb.svg",
                                         "usr/share/man/man1/orb-files.1.gz",
                                         "usr/share/man/man1/orb-service.1.gz",
                                         "usr/share/man/man1/orb-simulator.1.gz",
                                         "usr/share/man/man1/orb.1.gz",
                                         "usr/share/metainfo/example.zn.orb.metainfo.xml"}));
    for (const char* link : {"orb", "orb-service"})
        EXPECT_EQ(QFileInfo(installation.path("usr/bin/") + link).symLinkTarget(),
                  installation.path("usr/lib/orb/") + link);
    EXPECT_EQ(QFileInfo(installation.path("usr/share/doc/orb/manual")).symLinkTarget(),
              installation.path("usr/lib/orb/manual"));
}

/// A build that is in use has a developer's logs in the database beside its executable.
TEST_F(InstalledProgramTest, TheInstalledDatabaseIsEmptyAndReadOnly)
{
    const QString installed = installation.path("usr/lib/orb/orb.mdb");
    EXPECT_FALSE(QFile::permissions(installed) & (QFile::WriteOwner | QFile::WriteGroup | QFile::WriteOther));
    EXPECT_TRUE(QFile::permissions(installed) & QFile::ReadOther);
    const QString copy = installation.home("copy.mdb");
    ASSERT_TRUE(QFile::copy(installed, copy));
    ASSERT_TRUE(QFile::setPermissions(copy, QFile::ReadOwner | QFile::WriteOwner));
    Workspace workspace([] { return QDateTime(); });
    Database database = workspace.openDatabase(copy);
    for (const char* table :
         {"DataMeasure", "DataMeasureM", "DataMeasureD", "ProgramMemory", "ProgramChain", "ORBSeqHead", "ORBSeqData"})
        EXPECT_EQ(database.openRecordset(QString("select count(*) from ") + table)->field(0).toDouble(), 0) << table;
}

TEST_F(InstalledProgramTest, TheCommandLineToolsRunAsAnyUser)
{
    EXPECT_EQ(installation.runAsUser("usr/bin/orb-simulator", {"--version"}).output,
              "orb-simulator " + programVersion().toStdString() + "\n");
    const CommandResult check =
        installation.runAsUser("usr/bin/orb-files", {"check", installation.path("usr/lib/orb/examples/ramp.a")});
    EXPECT_EQ(check.exitCode, 0) << check.errorOutput;
    EXPECT_THAT(check.output, HasSubstr("ramp.a: sequence file, 4380 bytes"));
}

} // namespace
