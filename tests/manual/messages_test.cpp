// SPDX-License-Identifier: GPL-3.0-or-later
#include "directories.h"

#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>
#include <QSet>

#include <gmock/gmock.h>

namespace orb {
namespace {

QString contentOf(const QString& path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return QString::fromUtf8(file.readAll());
}

/// A text as it stands in the documents: words with one blank between them.
QString plain(QString text)
{
    return text.replace(QStringLiteral("<br>"), QStringLiteral(" ")).remove(QLatin1Char('\\')).simplified();
}

QString unescaped(QString literal)
{
    return literal.replace(QStringLiteral("\\r\\n"), QStringLiteral("%0"))
        .replace(QStringLiteral("\\n"), QStringLiteral("%0"))
        .replace(QStringLiteral("\\\""), QStringLiteral("\""));
}

/// The text literals in a piece of source, adjacent ones joined.
QStringList literalsIn(QString source)
{
    static const QRegularExpression seam(QStringLiteral("(?<!\\\\)\"\\s*\""));
    static const QRegularExpression literal(QStringLiteral("\"((?:[^\"\\\\\\n]|\\\\.)+)\""));
    source.replace(QStringLiteral("\"\""), QString()).replace(seam, QString());
    QStringList literals;
    for (auto match = literal.globalMatch(source); match.hasNext();)
        literals << unescaped(match.next().captured(1));
    return literals;
}

/// Without its comments and its includes.
QString codeOf(const QString& path)
{
    static const QRegularExpression left(QStringLiteral("^\\s*(//|#).*$|(?<!:)//[^\"\\n]*$"),
                                         QRegularExpression::MultilineOption);
    return contentOf(path).remove(left);
}

/// What is passed to a message box, up to the end of the statement.
QStringList passedToMessageBoxes(const QString& code)
{
    static const QRegularExpression call(QStringLiteral("\\b(?:message|inform)\\((.*?);"),
                                         QRegularExpression::DotMatchesEverythingOption);
    QStringList texts;
    for (auto match = call.globalMatch(code); match.hasNext();)
        texts << literalsIn(match.next().captured(1));
    return texts;
}

/// Texts of two words or more that begin like a sentence, and, if `onlyWhole`, end like one.
QStringList sentencesIn(const QString& code, bool onlyWhole)
{
    static const QRegularExpression begin(QStringLiteral("^[A-Z\"%][^:;{]* "));
    static const QRegularExpression end(QStringLiteral("[.!?]\\s*$"));
    QStringList texts;
    for (const QString& literal : literalsIn(code))
        if (literal.contains(begin) && (!onlyWhole || literal.contains(end)))
            texts << literal;
    return texts;
}

/// Every text in these files is a message.
const QSet<QString> filesOfMessages{QStringLiteral("failure.cpp"), QStringLiteral("device_values.cpp"),
                                    QStringLiteral("link_status_text.cpp"), QStringLiteral("channel_changes.cpp")};

/// Rooms whose texts no operator of the program reads.
const QRegularExpression elsewhere(QStringLiteral("/src/(simulator|file_text|instrument_files)/"));

/// The parts of a text that do not differ from case to case.
QStringList partsOf(const QString& text)
{
    static const QRegularExpression place(QStringLiteral("%[0-9]"));
    static const QRegularExpression word(QStringLiteral("[A-Za-z]{3}"));
    return text.split(place).filter(word);
}

/// All message texts of a file that are not in the page.
QStringList missingOf(const QString& path, const QString& page, const QStringList& exceptions)
{
    const QString code = codeOf(path);
    QStringList texts = passedToMessageBoxes(code);
    texts << sentencesIn(code, !filesOfMessages.contains(QFileInfo(path).fileName()));
    QStringList missing;
    for (const QString& text : texts)
        for (const QString& part : partsOf(text))
            if (!page.contains(plain(part)) && !exceptions.contains(text) && !missing.contains(text))
                missing << text;
    return missing;
}

/// Sentences that are no messages: tool tips, hints, descriptions for assistive tools, texts of exceptions in the code.
QStringList exceptions()
{
    return contentOf(sourceDirectory() + QStringLiteral("/tests/manual/not_messages.txt"))
        .split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

TEST(MessagesTest, TheTroubleshootingPageHasEveryMessageOfTheProgram)
{
    const QString page = plain(contentOf(sourceDirectory() + QStringLiteral("/docs/troubleshooting.md")));
    QStringList missing;
    for (const char* folder : {"/src", "/apps/orb", "/apps/orb-service"}) {
        QDirIterator files(sourceDirectory() + QLatin1String(folder), {QStringLiteral("*.cpp")}, QDir::Files,
                           QDirIterator::Subdirectories);
        while (files.hasNext())
            if (const QString path = files.next(); !path.contains(elsewhere))
                missing << missingOf(path, page, exceptions());
    }
    EXPECT_EQ(missing.join(QLatin1Char('\n')).toStdString(), "")
        << "\nadd each to docs/troubleshooting.md, or to tests/manual/not_messages.txt if it is no message";
}

TEST(MessagesTest, TextsAreFoundWhereverTheyStandInACall)
{
    const QString code =
        QStringLiteral("dialogs_.message(ok ? \"One \"\n    \"text\" : QStringLiteral(\"A\\r\\nB\") + name,\n"
                       "    Icon::None);\ntext(\"other\"); inform(\"Two\");");
    EXPECT_THAT(passedToMessageBoxes(code),
                testing::ElementsAre(QStringLiteral("One text"), QStringLiteral("A%0B"), QStringLiteral("Two")));
}

TEST(MessagesTest, ASentenceIsAMessageWithoutACall)
{
    const QString code =
        QStringLiteral("f(\"%1 is gone.\", \"a tool tip\", \"Is it?\", \"Caption Only\", \"select * from A.\");");
    EXPECT_THAT(sentencesIn(code, true), testing::ElementsAre(QStringLiteral("%1 is gone."), QStringLiteral("Is it?")));
    EXPECT_THAT(sentencesIn(code, false), testing::ElementsAre(QStringLiteral("%1 is gone."), QStringLiteral("Is it?"),
                                                               QStringLiteral("Caption Only")));
}

} // namespace
} // namespace orb
