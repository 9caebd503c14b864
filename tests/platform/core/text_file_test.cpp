// SPDX-License-Identifier: GPL-3.0-or-later
#include "failure.h"
#include "text_file.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace orb;

namespace {

QByteArray content(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no such file");
}

int openFailure(const QString& path)
{
    try {
        OutputFile file(path);
    } catch (const RuntimeFailure& failure) {
        return failure.number();
    }
    return 0;
}

TEST(OutputFileTest, LinesEndInCarriageReturnAndLineFeedAndReplaceWhatStoodThere)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("log.csv");
    OutputFile(path).write(std::string(1000, 'x'));

    OutputFile file(path);
    file.writeLine(QStringLiteral("No.,Time"));
    file.writeLine(std::string_view("0,Ä"));
    file.close();

    EXPECT_EQ(content(path), "No.,Time\r\n0,Ä\r\n");
}

TEST(OutputFileTest, EachWayOfNotOpeningHasItsNumber)
{
    const QTemporaryDir folder;
    EXPECT_EQ(openFailure(folder.path()), failure::PathFileAccessError);
    EXPECT_EQ(openFailure(folder.filePath("none/log.csv")), failure::PathNotFound);
    EXPECT_EQ(openFailure(""), failure::BadFileName);
}

TEST(OutputFileTest, AFullDiskIsReported)
{
    if (!QFile::exists("/dev/full"))
        GTEST_SKIP() << "no device that is always full";
    OutputFile file("/dev/full");
    file.writeLine(QStringLiteral("No.,Time"));
    try {
        file.close();
        FAIL();
    } catch (const RuntimeFailure& failure) {
        EXPECT_EQ(failure.number(), failure::DiskFull);
    }
}

TEST(OutputFileTest, WhatWasWrittenStaysWithoutAClose)
{
    const QTemporaryDir folder;
    OutputFile(folder.filePath("log.csv")).writeLine(std::string_view("a"));

    EXPECT_EQ(content(folder.filePath("log.csv")), "a\r\n");
}

TEST(OutputFileTest, ATextLongerThanTheBufferIsWrittenWhole)
{
    const QTemporaryDir folder;
    const std::string line(100'000, 'x');
    OutputFile file(folder.filePath("log.csv"));
    for (int i = 0; i < 7; ++i)
        file.writeLine(line);
    file.close();
    file.close();

    EXPECT_EQ(content(folder.filePath("log.csv")).size(), 7 * 100'002);
}

} // namespace
