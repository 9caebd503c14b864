// SPDX-License-Identifier: GPL-3.0-or-later
#include "directories.h"
#include "installation.h"
#include "printing.h"
#include "version.h"

#include <QDir>

#include <gmock/gmock.h>

using namespace orb;
using testing::AllOf;
using testing::HasSubstr;

namespace {

/// The package as `cpack -G DEB` makes it of this build.
class DebianPackageTest : public testing::Test {
protected:
    void SetUp() override
    {
#ifdef __SANITIZE_ADDRESS__
        GTEST_SKIP() << "no package is made of a build with sanitizers";
#endif
        if (toolPath("dpkg-deb").isEmpty() || toolPath("dpkg-shlibdeps").isEmpty())
            GTEST_SKIP() << "the tools for Debian packages are not installed";
        const QString configuration = QDir::cleanPath(binaryDirectory() + "/../CPackConfig.cmake");
        const CommandResult made = runCommand("cpack", {"-G", "DEB", "--config", configuration, "-B", folder.path(),
                                                        "-D", "CPACK_DEBIAN_COMPRESSION_TYPE=none"});
        ASSERT_EQ(made.exitCode, 0) << made.output << made.errorOutput;
        const QStringList packages = QDir(folder.path()).entryList({"*.deb"});
        ASSERT_EQ(packages.size(), 1);
        package = folder.filePath(packages[0]);
    }

    std::string field(const char* name) const
    {
        return runCommand("dpkg-deb", {"-f", package, name}).output;
    }

    QTemporaryDir folder;
    QString package;
};

TEST_F(DebianPackageTest, ThePackageStatesItsVersionAndWhatItNeedsAndHoldsWhatIsInstalled)
{
    EXPECT_EQ(QFileInfo(package).fileName(),
              "orb_" + programVersion() + '_' + QString::fromStdString(field("Architecture")).trimmed() + ".deb");
    EXPECT_EQ(field("Package"), "orb\n");
    EXPECT_EQ(field("Version"), programVersion().toStdString() + "\n");
    EXPECT_THAT(field("Depends"), AllOf(HasSubstr("libqt6widgets6 (>= 6."), HasSubstr("libqcustomplot2.1-qt6"),
                                        HasSubstr("libsqlite3-0"), HasSubstr("libqt6serialport6")));
    EXPECT_THAT(field("Depends"), Not(HasSubstr("gtest")));
    EXPECT_THAT(field("Recommends"), HasSubstr("fonts-"));

    const Installation installation;
    const CommandResult unpacked = runCommand("dpkg-deb", {"-x", package, installation.path("")});
    EXPECT_EQ(unpacked.exitCode, 0) << unpacked.errorOutput;
    const Installation reference;
    ASSERT_EQ(reference.install().exitCode, 0);
    EXPECT_EQ(installation.names(), reference.names());
    EXPECT_EQ(QFile::permissions(installation.path("usr/lib/orb/orb.mdb")),
              QFile::permissions(reference.path("usr/lib/orb/orb.mdb")));
}

} // namespace
