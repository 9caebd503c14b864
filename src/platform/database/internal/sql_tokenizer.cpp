// SPDX-License-Identifier: GPL-3.0-or-later
#include "sql_tokenizer.h"

#include <algorithm>

namespace orb {

namespace {

bool isSpace(char c)
{
    return c == ' ' || c == '\t' || c == '\n' || c == '\f' || c == '\r';
}

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

char lower(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool isHexDigit(char c)
{
    return isDigit(c) || (lower(c) >= 'a' && lower(c) <= 'f');
}

bool beginsWord(char c)
{
    return (lower(c) >= 'a' && lower(c) <= 'z') || c == '_' || static_cast<unsigned char>(c) >= 0x80;
}

bool continuesWord(char c)
{
    return beginsWord(c) || isDigit(c) || c == '$';
}

/// Finds the token at the beginning of a text.
class Scanner {
public:
    explicit Scanner(std::string_view text) : text_(text) {}

    SqlToken next() const
    {
        const char c = text_.front();
        if (isSpace(c))
            return token(SqlTokenKind::Space, skip(1, isSpace));
        if (startsWith("--"))
            return token(SqlTokenKind::Comment, std::min(text_.find('\n'), text_.size()));
        if (startsWith("/*"))
            return blockComment();
        if (beginsWord(c))
            return token(SqlTokenKind::Word, skip(1, continuesWord));
        if (isDigit(c) || (c == '.' && isDigit(at(1))))
            return number();
        return punctuation(c);
    }

private:
    char at(std::size_t i) const { return i < text_.size() ? text_[i] : '\0'; }
    bool startsWith(std::string_view head) const { return text_.substr(0, head.size()) == head; }
    SqlToken token(SqlTokenKind kind, std::size_t length) const { return {kind, text_.substr(0, length)}; }

    template <typename Predicate> std::size_t skip(std::size_t from, Predicate wanted) const
    {
        while (from < text_.size() && wanted(text_[from]))
            ++from;
        return from;
    }

    SqlToken blockComment() const
    {
        const std::size_t end = text_.find("*/", 2);
        return token(SqlTokenKind::Comment, end == std::string_view::npos ? text_.size() : end + 2);
    }

    SqlToken punctuation(char c) const
    {
        switch (c) {
        case '\'':
            return quoted(SqlTokenKind::Text, c);
        case '"':
            return quoted(SqlTokenKind::QuotedText, c);
        case '`':
            return quoted(SqlTokenKind::Name, c);
        case '[':
            return bracketed();
        case ';':
            return token(SqlTokenKind::Semicolon, 1);
        case '\0':
            return token(SqlTokenKind::Broken, 1);
        default:
            return token(SqlTokenKind::Symbol, 1);
        }
    }

    /// A text between two `quote`s, where a doubled one stands for itself. SQLite would see the end of the statement in a
    /// NUL.
    SqlToken quoted(SqlTokenKind kind, char quote) const
    {
        for (std::size_t i = 1; i < text_.size() && text_[i] != '\0'; ++i) {
            if (text_[i] != quote)
                continue;
            if (at(i + 1) != quote)
                return token(kind, i + 1);
            ++i;
        }
        return token(SqlTokenKind::Broken, text_.size());
    }

    SqlToken bracketed() const
    {
        const std::size_t end = skip(1, [](char c) { return c != ']' && c != '\0'; });
        return at(end) == ']' ? token(SqlTokenKind::Name, end + 1) : token(SqlTokenKind::Broken, text_.size());
    }

    SqlToken number() const
    {
        const std::size_t end = startsWith("0x") || startsWith("0X") ? hexadecimal() : decimal();
        const std::size_t whole = skip(end, continuesWord);
        return token(whole == end ? SqlTokenKind::Number : SqlTokenKind::Broken, whole);
    }

    std::size_t hexadecimal() const { return isHexDigit(at(2)) ? skip(2, isHexDigit) : 1; }

    std::size_t decimal() const
    {
        std::size_t end = skip(0, isDigit);
        if (at(end) == '.')
            end = skip(end + 1, isDigit);
        if (lower(at(end)) != 'e')
            return end;
        const std::size_t digits = at(end + 1) == '+' || at(end + 1) == '-' ? end + 2 : end + 1;
        return isDigit(at(digits)) ? skip(digits, isDigit) : end;
    }

    std::string_view text_;
};

} // namespace

std::vector<SqlToken> tokenizeSql(std::string_view statement)
{
    std::vector<SqlToken> tokens;
    while (!statement.empty()) {
        tokens.push_back(Scanner(statement).next());
        statement.remove_prefix(tokens.back().text.size());
    }
    return tokens;
}

bool sameWord(std::string_view a, std::string_view b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](char x, char y) { return lower(x) == lower(y); });
}

} // namespace orb
