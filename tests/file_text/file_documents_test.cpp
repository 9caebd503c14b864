// SPDX-License-Identifier: GPL-3.0-or-later
// The documents of the two files show an example as a table and byte by byte.
#include "directories.h"
#include "program_text.h"
#include "random_record.h"
#include "sequence_text.h"

#include <QFile>

#include <gtest/gtest.h>

#include <sstream>

namespace orb {
namespace {

/// The lines of a document between "<!-- begin NAME -->" and "<!-- end NAME -->".
std::istringstream partOf(const char* document, const std::string& name)
{
    QFile file(sourceDirectory() + QStringLiteral("/docs/") + QString::fromLatin1(document));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << document;
    const std::string text = file.readAll().toStdString();
    const std::string begin = "<!-- begin " + name + " -->\n";
    const std::size_t from = text.find(begin) + begin.size();
    return std::istringstream(text.substr(from, text.find("<!-- end " + name + " -->", from) - from));
}

std::string exampleIn(const char* document)
{
    std::istringstream part = partOf(document, "example");
    std::string table;
    for (std::string line; std::getline(part, line);)
        table += line.substr(line.find_first_not_of(' ')) + '\n';
    return table;
}

/// A content of that length with the bytes of the rows, all others 0.
std::string bytesIn(const char* document, std::size_t length)
{
    std::istringstream part = partOf(document, "bytes");
    std::string content(length, '\0');
    for (std::string line; std::getline(part, line);) {
        std::istringstream row(line);
        std::string bar;
        std::size_t offset = 0;
        if (!(row >> bar >> offset >> bar))
            continue; // the heading
        for (unsigned byte = 0; row >> std::hex >> byte && offset < length; ++offset)
            content[offset] = static_cast<char>(byte);
    }
    return content;
}

TEST(FileDocumentsTest, TheExampleOfASequenceHasTheBytesThatTheDocumentShows)
{
    const SeqFileRecord record = readSequence(exampleIn("sequence-files.md"));
    EXPECT_EQ(record.LoopEnd, 1);
    EXPECT_TRUE(bytesOf(record) == bytesIn("sequence-files.md", sizeof(record)));
    EXPECT_EQ(csvOf(sequenceTable(record)), exampleIn("sequence-files.md"));
}

TEST(FileDocumentsTest, TheExampleOfAProgramHasTheBytesThatTheDocumentShows)
{
    const ProgFileRecord record = readProgram(exampleIn("program-files.md"));
    EXPECT_EQ(record.ChainStart, 2);
    EXPECT_TRUE(bytesOf(record) == bytesIn("program-files.md", sizeof(record)));
}

} // namespace
} // namespace orb
