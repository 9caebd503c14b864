// SPDX-License-Identifier: GPL-3.0-or-later
#include "sql_dialect.h"

#include "failure.h"
#include "sql_tokenizer.h"

#include <algorithm>
#include <vector>

namespace orb {

namespace {

/// A token of the statement, translated. White space and comments before it are only a gap.
struct Piece {
    SqlTokenKind kind;
    std::string text;
    bool gap;
};

class Statement {
public:
    explicit Statement(std::string_view statement);

    void dropAsteriskOfDelete();
    void quoteIndex();
    void requoteTexts();
    void quoteNumbersOfValues();
    std::string joined() const;

private:
    bool isWord(std::size_t i, std::string_view word) const;
    bool isSymbol(std::size_t i, char symbol) const;
    bool isNumber(std::size_t i) const;
    bool isSign(std::size_t i) const { return isSymbol(i, '+') || isSymbol(i, '-'); }
    bool indexIsKeyword(std::size_t i) const;
    std::size_t quoteNumbersOfList(std::size_t open);
    void quoteNumber(std::size_t at);
    std::size_t findValues() const;

    std::vector<Piece> pieces_;
};

Statement::Statement(std::string_view statement)
{
    bool gap = false;
    bool ended = false;
    for (const SqlToken& token : tokenizeSql(statement)) {
        if (token.kind == SqlTokenKind::Space || token.kind == SqlTokenKind::Comment) {
            gap = true;
            continue;
        }
        if (ended)
            throw RuntimeFailure(failure::StatementFailed, QStringLiteral("Text after the end of the statement"));
        if (token.text.find('\0') != std::string_view::npos) // SQLite would see the end of the statement there
            throw RuntimeFailure(failure::StatementFailed, QStringLiteral("The statement contains a NUL"));
        ended = token.kind == SqlTokenKind::Semicolon;
        if (!ended)
            pieces_.push_back({token.kind, std::string(token.text), gap});
        gap = false;
    }
    if (pieces_.empty())
        throw RuntimeFailure(failure::StatementFailed, QStringLiteral("There is no statement to run"));
}

bool Statement::isWord(std::size_t i, std::string_view word) const
{
    return i < pieces_.size() && pieces_[i].kind == SqlTokenKind::Word && sameWord(pieces_[i].text, word);
}

bool Statement::isSymbol(std::size_t i, char symbol) const
{
    return i < pieces_.size() && pieces_[i].kind == SqlTokenKind::Symbol && pieces_[i].text.front() == symbol;
}

/// A hexadecimal number is not one: as a text it would be no number to the column of a table.
bool Statement::isNumber(std::size_t i) const
{
    return i < pieces_.size() && pieces_[i].kind == SqlTokenKind::Number &&
           pieces_[i].text.find_first_of("xX") == std::string::npos;
}

void Statement::dropAsteriskOfDelete()
{
    if (!isWord(0, "delete") || !isSymbol(1, '*'))
        return;
    pieces_.erase(pieces_.begin() + 1);
    if (pieces_.size() > 1)
        pieces_[1].gap = true;
}

bool Statement::indexIsKeyword(std::size_t i) const
{
    return (i == 1 && (isWord(0, "create") || isWord(0, "drop"))) ||
           (i == 2 && isWord(0, "create") && isWord(1, "unique"));
}

void Statement::quoteIndex()
{
    for (std::size_t i = 0; i < pieces_.size(); ++i)
        if (isWord(i, "index") && !indexIsKeyword(i))
            pieces_[i] = {SqlTokenKind::Name, "[" + pieces_[i].text + "]", pieces_[i].gap};
}

/// "say ""it's""" becomes 'say "it''s"'.
std::string inSingleQuotes(std::string_view quoted)
{
    std::string text = "'";
    for (std::size_t i = 1; i + 1 < quoted.size(); ++i) {
        text += quoted[i];
        if (quoted[i] == '\'')
            text += '\'';
        else if (quoted[i] == '"')
            ++i;
    }
    return text + '\'';
}

void Statement::requoteTexts()
{
    for (Piece& piece : pieces_) // the gap separates it from a letter X, which would make a blob of it
        if (piece.kind == SqlTokenKind::QuotedText)
            piece = {SqlTokenKind::Text, inSingleQuotes(piece.text), true};
}

/// Where the VALUES of an insert stands, outside of all brackets; the count of pieces where there is none.
std::size_t Statement::findValues() const
{
    int depth = 0;
    for (std::size_t i = 0; i < pieces_.size(); ++i) {
        depth += static_cast<int>(isSymbol(i, '(')) - static_cast<int>(isSymbol(i, ')'));
        if (depth == 0 && isWord(i, "values"))
            return i;
    }
    return pieces_.size();
}

void Statement::quoteNumber(std::size_t at)
{
    std::size_t number = at;
    std::string sign;
    if (isSign(at)) {
        sign = pieces_[at].text;
        ++number;
    }
    if (!isNumber(number) || !(isSymbol(number + 1, ',') || isSymbol(number + 1, ')')))
        return;
    pieces_[at] = {SqlTokenKind::Text, "'" + sign + pieces_[number].text + "'", true};
    if (number != at)
        pieces_.erase(pieces_.begin() + static_cast<std::ptrdiff_t>(number));
}

/// Quotes the numbers of the list whose bracket stands at `open`. Returns where the list has ended.
std::size_t Statement::quoteNumbersOfList(std::size_t open)
{
    int depth = 0;
    for (std::size_t i = open; i < pieces_.size(); ++i) {
        depth += static_cast<int>(isSymbol(i, '(')) - static_cast<int>(isSymbol(i, ')'));
        if (depth == 0)
            return i + 1;
        if (depth == 1 && (i == open || isSymbol(i, ',')))
            quoteNumber(i + 1);
    }
    return pieces_.size();
}

void Statement::quoteNumbersOfValues()
{
    if (!isWord(0, "insert") && !isWord(0, "replace"))
        return;
    std::size_t list = findValues() + 1;
    while (isSymbol(list, '(')) {
        list = quoteNumbersOfList(list);
        list += isSymbol(list, ',') ? 1 : 0;
    }
}

std::string Statement::joined() const
{
    std::string sql;
    for (const Piece& piece : pieces_) {
        if (piece.gap && !sql.empty())
            sql += ' ';
        sql += piece.text;
    }
    return sql;
}

} // namespace

std::string translateSql(std::string_view text)
{
    Statement statement(text);
    statement.dropAsteriskOfDelete();
    statement.quoteIndex();
    statement.requoteTexts();
    statement.quoteNumbersOfValues();
    return statement.joined();
}

std::string quotedName(std::string_view name)
{
    std::string quoted = "\"";
    for (const char c : name) {
        quoted += c;
        if (c == '"')
            quoted += '"';
    }
    return quoted + '"';
}

} // namespace orb
