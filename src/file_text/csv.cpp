// SPDX-License-Identifier: GPL-3.0-or-later
#include "csv.h"

#include <algorithm>

namespace orb {

namespace {

std::string placeText(int line, int column)
{
    return "line " + std::to_string(line) + ", column " + std::to_string(column) + ": ";
}

bool isBlank(char c)
{
    return c == ' ' || c == '\t';
}

bool endsLine(char c)
{
    return c == '\n' || c == '\r';
}

char upper(char c)
{
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

std::string trimmed(std::string_view text)
{
    while (!text.empty() && isBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back()))
        text.remove_suffix(1);
    return std::string(text);
}

/// Reads a text from its beginning to its end.
class CsvReader {
public:
    explicit CsvReader(std::string_view text) : text_(text) {}

    std::vector<CsvLine> read()
    {
        std::vector<CsvLine> lines;
        for (; at_ < text_.size(); ++line_) {
            CsvLine line = readLine();
            while (!line.cells.empty() && line.cells.back().text.empty())
                line.cells.pop_back();
            if (!line.cells.empty())
                lines.push_back(std::move(line));
        }
        return lines;
    }

private:
    bool isAtEndOfLine() const { return at_ == text_.size() || endsLine(text_[at_]); }
    bool isAt(char c) const { return at_ < text_.size() && text_[at_] == c; }

    CsvLine readLine()
    {
        CsvLine line;
        do {
            const int number = line_;
            const auto column = static_cast<int>(line.cells.size()) + 1;
            line.cells.push_back({readCell(column), number, column});
        } while (passOver(','));
        passOver('\r');
        passOver('\n');
        return line;
    }

    bool passOver(char c)
    {
        const bool there = isAt(c);
        at_ += there ? 1 : 0;
        return there;
    }

    std::string readCell(int column)
    {
        while (!isAtEndOfLine() && isBlank(text_[at_]))
            ++at_;
        if (isAt('"'))
            return readQuoted(column);
        const std::size_t begin = at_;
        while (!isAtEndOfLine() && !isAt(','))
            ++at_;
        return trimmed(text_.substr(begin, at_ - begin));
    }

    std::string readQuoted(int column)
    {
        const CsvCell place{{}, line_, column};
        std::string cell;
        for (++at_; !isAt('"') || (at_ + 1 < text_.size() && text_[at_ + 1] == '"'); ++at_) {
            if (at_ == text_.size())
                place.fail("the quotation mark is not closed");
            if (isAt('"'))
                ++at_;
            line_ += isAt('\n') ? 1 : 0;
            cell += text_[at_];
        }
        ++at_;
        while (!isAtEndOfLine() && isBlank(text_[at_]))
            ++at_;
        if (!isAtEndOfLine() && !isAt(','))
            place.fail("text follows the quotation marks");
        return trimmed(cell);
    }

    std::string_view text_;
    std::size_t at_ = 0;
    int line_ = 1;
};

} // namespace

CsvError::CsvError(int line, int column, const std::string& reason)
    : std::runtime_error(placeText(line, column) + reason)
{}

void CsvCell::fail(const std::string& reason) const
{
    throw CsvError(line, column, reason);
}

CsvCell CsvLine::at(std::size_t index) const
{
    if (index < cells.size())
        return cells[index];
    return {{}, first().line, static_cast<int>(index) + 1};
}

std::vector<CsvLine> readCsv(std::string_view text)
{
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    if (text.starts_with(byteOrderMark))
        text.remove_prefix(byteOrderMark.size());
    return CsvReader(text).read();
}

std::string csvLine(const std::vector<std::string>& cells)
{
    std::string line;
    for (const std::string& cell : cells) {
        line += &cell == cells.data() ? "" : ",";
        if (cell.find_first_of(",\"\r\n") == std::string::npos) {
            line += cell;
            continue;
        }
        line += '"';
        for (const char c : cell)
            line += c == '"' ? std::string(2, c) : std::string(1, c);
        line += '"';
    }
    return line + '\n';
}

bool sameWord(std::string_view a, std::string_view b)
{
    return std::ranges::equal(a, b, [](char x, char y) { return upper(x) == upper(y); });
}

} // namespace orb
