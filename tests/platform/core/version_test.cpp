// SPDX-License-Identifier: GPL-3.0-or-later
#include "version.h"

#include "directories.h"
#include "printing.h"

#include <QFile>
#include <QRegularExpression>

#include <gtest/gtest.h>

using namespace orb;

namespace {

TEST(VersionTest, TheVersionIsTheOneOfTheBuildConfiguration)
{
    QFile file(sourceDirectory() + "/CMakeLists.txt");
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    static const QRegularExpression stated("project\\(orb VERSION ([0-9]+\\.[0-9]+\\.[0-9]+) ");

    EXPECT_EQ(programVersion(), stated.match(file.readAll()).captured(1));
    EXPECT_FALSE(programVersion().isEmpty());
}

} // namespace
