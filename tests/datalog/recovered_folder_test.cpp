// SPDX-License-Identifier: GPL-3.0-or-later
#include "recovered_folder.h"

#include "failure.h"
#include "printing.h"
#include "text_file.h"

#include <QDateTime>
#include <QDir>
#include <QTemporaryDir>

#include <gmock/gmock.h>

using namespace orb;
using testing::ElementsAre;

namespace {

class RecoveredFolderTest : public testing::Test {
protected:
    /// The name of the file that was added.
    QString add(const QString& time, const QString& text)
    {
        const QString path = addRecoveredFile(folder, time, [&](OutputFile& file) { file.writeLine(text); });
        EXPECT_EQ(QFileInfo(path).path(), folder);
        return QFileInfo(path).fileName();
    }

    void create(const QString& name, int hoursFromNow = 0)
    {
        QDir().mkpath(folder);
        QFile file(folder + '/' + name);
        ASSERT_TRUE(file.open(QIODevice::ReadWrite));
        ASSERT_TRUE(file.setFileTime(QDateTime::currentDateTime().addSecs(3600 * hoursFromNow),
                                     QFileDevice::FileModificationTime));
    }

    QStringList names() const { return QDir(folder).entryList(QDir::Files | QDir::Hidden, QDir::Name); }

    QTemporaryDir temporary;
    QString folder = temporary.filePath("recovered");
};

TEST_F(RecoveredFolderTest, AFileIsNamedByItsTimeWithoutTheCharactersThatSomeSystemsRefuse)
{
    EXPECT_EQ(add("2024/01/31 10:15:00", "a"), "2024-01-31 10-15-00.csv");
    EXPECT_EQ(add("../../x", "b"), "0000-00-00 00-00-00.csv");
    EXPECT_EQ(add("", "c"), "0000-00-00 00-00-00 2.csv");
}

TEST_F(RecoveredFolderTest, ANameThatIsTakenGetsANumber)
{
    add("2024/01/31 10:15:00", "a");
    EXPECT_EQ(add("2024/01/31 10:15:00", "b"), "2024-01-31 10-15-00 2.csv");
    EXPECT_EQ(add("2024/01/31 10:15:00", "longer"), "2024-01-31 10-15-00 3.csv");
}

TEST_F(RecoveredFolderTest, TheSameRowsAreThereOnlyOnce)
{
    add("2024/01/31 10:15:00", "a");
    add("2024/01/31 10:15:00", "b");
    EXPECT_EQ(add("2024/01/31 10:15:00", "b"), "2024-01-31 10-15-00 2.csv");
    EXPECT_THAT(names(), ElementsAre("2024-01-31 10-15-00 2.csv", "2024-01-31 10-15-00.csv"));
}

TEST_F(RecoveredFolderTest, TheNewestTwentyAreKeptAndFilesOfOtherNamesAreLeftAlone)
{
    create("mine.csv", -2000);
    create("2020-01-01 00-00-00.txt", -2000);
    for (int i = 0; i < 25; ++i) // the names grow older while the files grow newer
        create(QStringLiteral("2023-01-%1 00-00-00.csv").arg(25 - i, 2, 10, QLatin1Char('0')), i - 100);

    add("2024/01/31 10:15:00", "a");

    QStringList kept{"2020-01-01 00-00-00.txt"};
    for (int day = 1; day <= 19; ++day)
        kept << QStringLiteral("2023-01-%1 00-00-00.csv").arg(day, 2, 10, QLatin1Char('0'));
    kept << "2024-01-31 10-15-00.csv"
         << "mine.csv";
    EXPECT_EQ(names(), kept);
}

TEST_F(RecoveredFolderTest, OfFilesOfOneTimeThoseWithTheOldestNamesAreDeleted)
{
    const QDateTime copied = QDateTime::currentDateTime();
    for (int day = 1; day <= 25; ++day) {
        create(QStringLiteral("2023-01-%1 00-00-00.csv").arg(day, 2, 10, QLatin1Char('0')));
        QFile file(folder + '/' + names().constLast());
        ASSERT_TRUE(file.open(QIODevice::ReadWrite));
        ASSERT_TRUE(file.setFileTime(copied, QFileDevice::FileModificationTime));
    }

    add("2024/01/31 10:15:00", "a");

    QStringList kept;
    for (int day = 7; day <= 25; ++day)
        kept << QStringLiteral("2023-01-%1 00-00-00.csv").arg(day, 2, 10, QLatin1Char('0'));
    EXPECT_EQ(names(), kept << "2024-01-31 10-15-00.csv");
}

TEST_F(RecoveredFolderTest, TheFileJustAddedIsKeptThoughTheClockSaysThatItIsTheOldest)
{
    for (int i = 0; i < 20; ++i)
        create(QStringLiteral("2030-01-01 00-00-%1.csv").arg(i, 2, 10, QLatin1Char('0')), 1 + i);

    add("2024/01/31 10:15:00", "a");

    EXPECT_TRUE(names().contains("2024-01-31 10-15-00.csv"));
    EXPECT_FALSE(names().contains("2030-01-01 00-00-00.csv"));
    EXPECT_EQ(names().size(), 20);
}

TEST_F(RecoveredFolderTest, AWriteThatFailsLeavesNothing)
{
    const auto fail = [](OutputFile& file) {
        file.writeLine(QStringLiteral("begun"));
        throw RuntimeFailure(failure::DatabaseDamaged);
    };
    EXPECT_THROW(addRecoveredFile(folder, "2024/01/31 10:15:00", fail), RuntimeFailure);
    EXPECT_THAT(names(), ElementsAre());
}

TEST_F(RecoveredFolderTest, WhatAKilledStartLeftUnfinishedIsReplaced)
{
    create("unfinished.part");
    add("2024/01/31 10:15:00", "a");
    EXPECT_THAT(names(), ElementsAre("2024-01-31 10-15-00.csv"));
}

} // namespace
