// SPDX-License-Identifier: GPL-3.0-or-later
#include "failure.h"
#include "input_file.h"
#include "printing.h"
#include "text_bytes.h"

#include <QDir>
#include <QTemporaryDir>

#include <gmock/gmock.h>

using namespace orb;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class InputFileTest : public testing::Test {
protected:
    QString write(const QByteArray& content)
    {
        QFile file(folder.filePath("list.scp"));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
        return file.fileName();
    }

    QStringList lines(const QByteArray& content)
    {
        InputFile file(write(content));
        QStringList lines;
        while (!file.isAtEnd())
            lines << file.readLine();
        return lines;
    }

    static int openFailure(const QString& path)
    {
        try {
            InputFile file(path);
        } catch (const RuntimeFailure& failure) {
            return failure.number();
        }
        return 0;
    }

    QTemporaryDir folder;
};

TEST_F(InputFileTest, ALineEndsInCarriageReturnAndLineFeedOrInEitherAlone)
{
    EXPECT_THAT(lines("a\r\nb\nc\rd"), ElementsAre("a", "b", "c", "d"));
    EXPECT_THAT(lines("\r\n\n\r"), ElementsAre("", "", ""));
    EXPECT_THAT(lines("a\n\r\n"), ElementsAre("a", ""));
    EXPECT_THAT(lines("a\r"), ElementsAre("a"));
}

TEST_F(InputFileTest, AnEmptyFileHasNoLineAndReadingPastTheEndFails)
{
    EXPECT_THAT(lines(""), IsEmpty());
    InputFile file(write("a"));
    file.readLine();
    try {
        file.readLine();
        FAIL();
    } catch (const RuntimeFailure& failure) {
        EXPECT_EQ(failure.number(), failure::InputPastEndOfFile);
    }
}

TEST_F(InputFileTest, BlanksStayAsTheyAre)
{
    EXPECT_THAT(lines(" a \t\n"), ElementsAre(" a \t"));
}

TEST_F(InputFileTest, AByteOrderMarkIsNotPartOfTheFirstLine)
{
    EXPECT_THAT(lines("\xEF\xBB\xBF"
                      "a\nb"),
                ElementsAre("a", "b"));
    EXPECT_THAT(lines("\xEF\xBB\xBF"), IsEmpty());
}

TEST_F(InputFileTest, ALineThatIsNotUtf8KeepsItsBytes)
{
    EXPECT_THAT(lines("\xC3\xA4\n\xE4\n\xC3"), ElementsAre(QString(QChar(0xE4)), textOf("\xE4"), textOf("\xC3")));
}

TEST_F(InputFileTest, EachWayOfNotOpeningHasItsNumber)
{
    EXPECT_EQ(openFailure(""), failure::BadFileName);
    EXPECT_EQ(openFailure(folder.filePath("none.scp")), failure::FileNotFound);
    EXPECT_EQ(openFailure(folder.path()), failure::PathFileAccessError);
    EXPECT_EQ(openFailure(write("a")), 0);
}

TEST_F(InputFileTest, AFileThatMayNotBeReadIsRefused)
{
    const QString path = write("a");
    QFile::setPermissions(path, {});
    if (QFile(path).open(QIODevice::ReadOnly))
        GTEST_SKIP() << "this user may read everything";
    EXPECT_EQ(openFailure(path), failure::PermissionDenied);
}

TEST_F(InputFileTest, ThePathIsFoundInAnyLetterCaseAndWithABackslash)
{
    write("a");
    EXPECT_EQ(InputFile(folder.path() + "\\LIST.SCP").readLine(), "a");
}

} // namespace
