// SPDX-License-Identifier: GPL-3.0-or-later
#include "directories.h"
#include "installation.h"
#include "printing.h"
#include "version.h"

#include <QDir>
#include <QImage>
#include <QRegularExpression>

#include <gmock/gmock.h>

using namespace orb;
using testing::HasSubstr;

namespace {

QString made(const QString& name)
{
    return QDir::cleanPath(binaryDirectory() + "/../packaging/" + name);
}

std::string contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : "no such file";
}

TEST(DesktopFilesTest, TheDesktopEntriesAreValid)
{
    if (toolPath("desktop-file-validate").isEmpty())
        GTEST_SKIP() << "desktop-file-validate is not installed";
    const QDir folder(sourceDirectory() + "/packaging");
    const QStringList entries = folder.entryList({"*.desktop"});
    ASSERT_EQ(entries.size(), 2);
    for (const QString& entry : entries) {
        const CommandResult result = runCommand("desktop-file-validate", {folder.filePath(entry)});
        EXPECT_EQ(result.exitCode, 0);
        EXPECT_EQ(result.output, "");
    }
}

TEST(DesktopFilesTest, TheDescriptionForSoftwareCentersIsValidAndOfThisVersion)
{
    const QString file = made("example.zn.orb.metainfo.xml");
    EXPECT_THAT(contentOf(file), HasSubstr("<release version=\"" + programVersion().toStdString() + "\" date="));
    if (toolPath("appstreamcli").isEmpty())
        GTEST_SKIP() << "appstreamcli is not installed";
    const CommandResult result = runCommand("appstreamcli", {"validate", "--no-net", "--no-color", file});
    EXPECT_EQ(result.exitCode, 0) << result.output;
}

TEST(DesktopFilesTest, EachIconHasTheSizeOfItsName)
{
    const QDir folder(sourceDirectory() + "/resources/desktop");
    const QStringList icons = folder.entryList({"*.png"});
    EXPECT_EQ(icons.size(), 8);
    for (const QString& icon : icons) {
        const int size = icon.section('.', 0, 0).toInt();
        EXPECT_EQ(QImage(folder.filePath(icon)).size(), QSize(size, size)) << icon.toStdString();
    }
}

class ManualPagesTest : public testing::TestWithParam<const char*> {};

INSTANTIATE_TEST_SUITE_P(Programs, ManualPagesTest,
                         testing::Values("orb", "orb-service", "orb-simulator", "orb-files"));

TEST_P(ManualPagesTest, ThePageIsValidAndOfThisVersion)
{
    const QString page = made(QString(GetParam()) + ".1");
    EXPECT_THAT(contentOf(page), HasSubstr(".Os \"ORB " + programVersion().toStdString() + "\"\n"));
    EXPECT_THAT(contentOf(page), HasSubstr(std::string(".Nm ") + GetParam() + "\n"));
    if (toolPath("mandoc").isEmpty())
        GTEST_SKIP() << "mandoc is not installed";
    const CommandResult result = runCommand("mandoc", {"-T", "lint", "-W", "warning", page});
    EXPECT_EQ(result.output + result.errorOutput, "");
    EXPECT_EQ(result.exitCode, 0);
}

TEST(ManualPageOptionsTest, ThePagesOfTheToolsListEveryOptionOfTheirHelp)
{
    static const QRegularExpression option("--([a-z]+)");
    for (const char* tool : {"orb-simulator", "orb-files"}) {
        const QString help = QString::fromStdString(runCommand(binaryDirectory() + '/' + tool, {"--help"}).output);
        int options = 0;
        for (auto match = option.globalMatch(help); match.hasNext(); ++options)
            EXPECT_THAT(contentOf(made(QString(tool) + ".1")),
                        HasSubstr("Fl -" + match.next().captured(1).toStdString()));
        EXPECT_GE(options, 3) << tool;
    }
}

} // namespace
