// SPDX-License-Identifier: GPL-3.0-or-later
#include "message_unit.h"

#include "ascii.h"
#include "instrument_error.h"
#include "number_reader.h"

namespace orb {

namespace {

constexpr std::size_t maxMnemonic = 12; // and the asterisk of a common command
constexpr std::size_t maxNodes = 8;
constexpr std::size_t maxSuffixDigits = 4;

constexpr bool isMnemonicChar(char c)
{
    return ascii::isLetter(c) || ascii::isDigit(c) || c == '_';
}
constexpr bool isQuote(char c)
{
    return c == '"' || c == '\'';
}
constexpr bool isPrintable(char c)
{
    return c > ' ' && c < 127;
}

/// The place after the string that begins at `position`. A doubled quotation mark ends one string and begins the
/// next, which makes no difference to where the whole ends.
std::size_t endOfString(std::string_view text, std::size_t position)
{
    const std::size_t close = text.find(text[position], position + 1);
    return close == std::string_view::npos ? text.size() : close + 1;
}

/// A part of a text between two separators, without the white space around it. White space at the end of a block stays.
struct Piece {
    std::string_view text;
    /// Where the next piece begins; after the last one it is beyond the end of the text.
    std::size_t next;
};

/// The piece from `begin` to the first `separator` outside of strings and blocks.
Piece pieceFrom(std::string_view text, char separator, std::size_t begin)
{
    std::size_t position = begin;
    std::size_t solid = begin; // the end of the last block
    while (position < text.size() && text[position] != separator) {
        if (isQuote(text[position])) {
            position = endOfString(text, position);
        } else if (const std::optional<std::size_t> end = endOfBlock(text, position)) {
            position = solid = std::min(*end, text.size());
        } else {
            ++position;
        }
    }
    std::size_t end = position;
    while (end > solid && ascii::isSpace(text[end - 1]))
        --end;
    while (begin < end && ascii::isSpace(text[begin]))
        ++begin;
    return {text.substr(begin, end - begin), position + 1};
}

std::vector<std::string_view> splitOutside(std::string_view text, char separator)
{
    std::vector<std::string_view> pieces;
    for (std::size_t begin = 0; begin <= text.size();) {
        const Piece piece = pieceFrom(text, separator, begin);
        pieces.push_back(piece.text);
        begin = piece.next;
    }
    return pieces;
}

[[noreturn]] void fail(ErrorNumber number)
{
    throw CommandFailure{number};
}

HeaderNode readNode(std::string_view text)
{
    if (text.empty() || ascii::isDigit(text.front()))
        fail(ErrorNumber::SyntaxError);
    if (text.size() > maxMnemonic + (text.front() == '*' ? 1 : 0))
        fail(ErrorNumber::ProgramMnemonicTooLong);
    HeaderNode node{text, std::nullopt};
    while (ascii::isDigit(node.mnemonic.back()))
        node.mnemonic.remove_suffix(1);
    const std::string_view digits = text.substr(node.mnemonic.size());
    if (digits.size() > maxSuffixDigits)
        fail(ErrorNumber::HeaderSuffixOutOfRange);
    if (!digits.empty()) {
        node.suffix = 0;
        for (const char digit : digits)
            node.suffix = *node.suffix * 10 + (digit - '0');
    }
    return node;
}

/// Reads the header, without the question mark, into `unit`.
void readHeader(std::string_view header, MessageUnit& unit)
{
    unit.common = header.starts_with('*');
    unit.absolute = unit.common || header.starts_with(':');
    if (header.starts_with(':'))
        header.remove_prefix(1);
    for (std::size_t begin = 0; begin <= header.size();) {
        if (unit.nodes.size() == maxNodes)
            fail(ErrorNumber::UndefinedHeader);
        const std::size_t end = std::min(header.find(':', begin), header.size());
        unit.nodes.push_back(readNode(header.substr(begin, end - begin)));
        begin = end + 1;
    }
}

std::size_t lengthOfHeader(std::string_view text)
{
    std::size_t length = text.starts_with('*') ? 1 : 0;
    while (length < text.size() && (isMnemonicChar(text[length]) || text[length] == ':'))
        ++length;
    return length;
}

Parameter readWord(std::string_view text)
{
    for (const char c : text) {
        if (!isMnemonicChar(c))
            fail(ascii::isSpace(c) ? ErrorNumber::InvalidSeparator : ErrorNumber::InvalidCharacterData);
    }
    if (text.size() > maxMnemonic)
        fail(ErrorNumber::CharacterDataTooLong);
    return {Parameter::Kind::Word, text, 0, {}};
}

Parameter readString(std::string_view text)
{
    const char quote = text.front();
    for (std::size_t position = 1; position < text.size(); ++position) {
        if (text[position] != quote)
            continue;
        if (position + 1 == text.size())
            return {Parameter::Kind::String, text.substr(1, position - 1), 0, {}};
        if (text[position + 1] != quote)
            fail(ErrorNumber::InvalidStringData);
        ++position;
    }
    fail(ErrorNumber::InvalidStringData);
}

/// `text` begins with a number sign: a block, or a number that is not decimal.
Parameter readNumberSign(std::string_view text)
{
    const std::optional<std::size_t> end = endOfBlock(text, 0);
    if (!end)
        return {Parameter::Kind::Number, text, readNonDecimal(text), {}};
    const std::size_t head = 2 + static_cast<std::size_t>(text.size() > 1 ? text[1] - '0' : 0);
    if (*end != text.size() || head > text.size())
        fail(ErrorNumber::InvalidBlockData);
    return {Parameter::Kind::Block, text.substr(head), 0, {}};
}

Parameter readParameter(std::string_view text)
{
    if (text.empty())
        fail(ErrorNumber::SyntaxError);
    const char first = text.front();
    if (ascii::isLetter(first))
        return readWord(text);
    if (isQuote(first))
        return readString(text);
    if (first == '#')
        return readNumberSign(text);
    if (first == '(')
        fail(ErrorNumber::ExpressionNotAllowed);
    if (ascii::isDigit(first) || first == '+' || first == '-' || first == '.') {
        const DecimalNumber number = readDecimal(text);
        return {Parameter::Kind::Number, text, number.value, number.suffix};
    }
    fail(isPrintable(first) ? ErrorNumber::SyntaxError : ErrorNumber::InvalidCharacter);
}

} // namespace

std::optional<std::size_t> endOfBlock(std::string_view text, std::size_t position)
{
    if (text[position] != '#')
        return std::nullopt;
    if (position + 1 == text.size())
        return text.size();
    const char count = text[position + 1];
    if (count < '1' || count > '9')
        return std::nullopt;
    std::size_t length = 0;
    std::size_t at = position + 2;
    for (const std::size_t begin = at + static_cast<std::size_t>(count - '0'); at < begin; ++at) {
        if (at == text.size())
            return at;
        if (!ascii::isDigit(text[at]))
            return std::nullopt;
        length = length * 10 + static_cast<std::size_t>(text[at] - '0');
    }
    return at + length;
}

std::vector<std::string_view> unitsOf(std::string_view message)
{
    std::vector<std::string_view> units = splitOutside(message, ';');
    std::erase_if(units, [](std::string_view unit) { return unit.empty(); });
    return units;
}

MessageUnit readUnit(std::string_view text)
{
    MessageUnit unit;
    unit.text = text;
    const std::size_t length = lengthOfHeader(text);
    if (length == 0)
        fail(isPrintable(text.front()) ? ErrorNumber::SyntaxError : ErrorNumber::InvalidCharacter);
    readHeader(text.substr(0, length), unit);

    std::string_view rest = text.substr(length);
    unit.query = rest.starts_with('?');
    if (unit.query)
        rest.remove_prefix(1);
    if (ascii::trimmed(rest).empty())
        return unit;
    if (!ascii::isSpace(rest.front()))
        fail(isPrintable(rest.front()) ? ErrorNumber::HeaderSeparatorError : ErrorNumber::InvalidCharacter);
    for (const std::string_view parameter : splitOutside(rest, ','))
        unit.parameters.push_back(readParameter(parameter));
    return unit;
}

} // namespace orb
