// SPDX-License-Identifier: GPL-3.0-or-later
#include "fault_script.h"

#include "ascii.h"

#include <charconv>
#include <limits>

namespace orb {

namespace {

constexpr std::size_t maxRules = 1000;
constexpr std::uint64_t maxCount = 1024 * 1024;
constexpr std::uint64_t maxPieces = 1000;
constexpr std::uint64_t maxDelay = 3'600'000; // ms

/// A word of a line, or a text between quotation marks with its escapes undone.
struct Token {
    std::string text;
    bool quoted = false;
};

/// The arguments of a fault.
struct FaultForm {
    std::string_view name;
    Fault::Kind kind;
    /// One letter for each argument: c a count, d a duration, t a text; one in capitals is optional.
    std::string_view arguments;
    bool onConnect;
};

constexpr FaultForm forms[] = {
    {"late", Fault::Kind::Late, "d", false},
    {"split", Fault::Kind::Split, "cd", false},
    {"crlf", Fault::Kind::CrLf, "", false},
    {"missing", Fault::Kind::Missing, "", false},
    {"after-next", Fault::Kind::AfterNext, "", false},
    {"wrong", Fault::Kind::Wrong, "t", false},
    {"garbage", Fault::Kind::Garbage, "c", false},
    {"truncated", Fault::Kind::Truncated, "C", false},
    {"closed", Fault::Kind::Closed, "C", true},
    {"reset", Fault::Kind::Reset, "C", true},
    {"refused", Fault::Kind::Refused, "D", true},
};

/// Reads one line. Every error names its number.
class LineReader {
public:
    LineReader(std::string_view line, int number) : rest_(ascii::trimmed(line)), number_(number) {}

    /// True for an empty line and a comment.
    bool isBlank() const { return rest_.empty() || rest_.front() == '#'; }
    FaultRule readRule();

private:
    [[noreturn]] void fail(const std::string& reason) const { throw FaultScriptError(number_, reason); }

    bool atEnd() const { return rest_.empty(); }
    Token next(const char* what);
    std::string readQuoted();
    char readEscape();
    char nextChar();

    void readOccurrence(FaultRule& rule);
    void readFault(FaultRule& rule);
    void readArgument(char kind, Fault& fault);
    std::uint64_t readNumber(std::string_view text, std::uint64_t highest) const;
    std::chrono::milliseconds readDuration(std::string_view text) const;

    std::string_view rest_;
    int number_;
};

FaultRule LineReader::readRule()
{
    FaultRule rule;
    readOccurrence(rule);
    const Token pattern = next("what it is about");
    const bool isConnection = !pattern.quoted && ascii::sameText(pattern.text, "connect");
    if (!isConnection && pattern.text.empty())
        fail("an empty pattern matches nothing");
    if (!isConnection)
        rule.pattern = pattern.text;
    readFault(rule);
    if (!atEnd())
        fail("too much: " + std::string(rest_));
    return rule;
}

Token LineReader::next(const char* what)
{
    if (atEnd())
        fail(std::string("missing: ") + what);
    Token token;
    if (rest_.front() == '"') {
        token = {readQuoted(), true};
    } else {
        const std::size_t end = std::min(rest_.find_first_of(" \t"), rest_.size());
        token.text = rest_.substr(0, end);
        rest_.remove_prefix(end);
    }
    if (!atEnd() && !ascii::isSpace(rest_.front()))
        fail("a blank must follow the quotation mark");
    rest_ = ascii::trimmed(rest_);
    return token;
}

char LineReader::nextChar()
{
    if (atEnd())
        fail("the quotation mark is not closed");
    const char c = rest_.front();
    rest_.remove_prefix(1);
    return c;
}

std::string LineReader::readQuoted()
{
    std::string text;
    nextChar();
    for (char c = nextChar(); c != '"'; c = nextChar())
        text += c == '\\' ? readEscape() : c;
    return text;
}

char LineReader::readEscape()
{
    switch (const char c = nextChar()) {
    case 'n':
        return '\n';
    case 'r':
        return '\r';
    case 't':
        return '\t';
    case '\\':
    case '"':
        return c;
    case 'x': {
        const char digits[] = {nextChar(), nextChar()};
        unsigned value = 0;
        if (std::from_chars(digits, digits + 2, value, 16).ptr != digits + 2)
            fail("\\x needs two hexadecimal digits");
        return static_cast<char>(value);
    }
    default:
        fail(std::string("no such escape: \\") + c);
    }
}

void LineReader::readOccurrence(FaultRule& rule)
{
    constexpr std::uint64_t forEver = std::numeric_limits<std::uint64_t>::max();
    const std::string text = next("the occurrence").text;
    const std::size_t dash = text.find('-');
    if (text == "*") {
        rule.last = forEver;
    } else if (text.ends_with('+')) {
        rule.first = readNumber(std::string_view(text).substr(0, text.size() - 1), forEver);
        rule.last = forEver;
    } else if (dash != std::string::npos) {
        rule.first = readNumber(std::string_view(text).substr(0, dash), forEver);
        rule.last = readNumber(std::string_view(text).substr(dash + 1), forEver);
    } else {
        rule.first = rule.last = readNumber(text, forEver);
    }
    if (rule.first < 1 || rule.last < rule.first)
        fail("no such occurrence: " + text);
}

void LineReader::readFault(FaultRule& rule)
{
    const std::string name = next("the fault").text;
    const auto* const form =
        std::ranges::find_if(forms, [&](const FaultForm& each) { return ascii::sameText(each.name, name); });
    if (form == std::end(forms))
        fail("no such fault: " + name);
    if (rule.pattern.empty() && !form->onConnect)
        fail(name + " is no fault of a connection");
    rule.fault.kind = form->kind;
    for (const char argument : form->arguments) {
        const bool optional = argument == ascii::upper(argument);
        if (!(optional && atEnd()))
            readArgument(ascii::upper(argument), rule.fault);
    }
    if (rule.fault.kind == Fault::Kind::Split && (*rule.fault.count < 1 || *rule.fault.count > maxPieces))
        fail("an answer is split into 1 to 1000 pieces");
}

void LineReader::readArgument(char kind, Fault& fault)
{
    if (kind == 'C')
        fault.count = readNumber(next("a count").text, maxCount);
    else if (kind == 'D')
        fault.delay = readDuration(next("a duration").text);
    else
        fault.text = next("a text").text;
}

std::uint64_t LineReader::readNumber(std::string_view text, std::uint64_t highest) const
{
    std::uint64_t value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (text.empty() || error != std::errc{} || end != text.data() + text.size() || value > highest)
        fail("no number, or too large a one: " + std::string(text));
    return value;
}

std::chrono::milliseconds LineReader::readDuration(std::string_view text) const
{
    const std::size_t digits = std::min(text.find_first_not_of("0123456789"), text.size());
    const std::string_view unit = text.substr(digits);
    if (unit != "ms" && unit != "s")
        fail("no duration such as 350ms or 2s: " + std::string(text));
    const std::uint64_t factor = unit == "s" ? 1000 : 1;
    return std::chrono::milliseconds(readNumber(text.substr(0, digits), maxDelay / factor) * factor);
}

} // namespace

FaultScript FaultScript::parse(std::string_view text)
{
    std::vector<FaultRule> rules;
    int number = 0;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        LineReader line(text.substr(0, end), ++number);
        text.remove_prefix(std::min(end + 1, text.size()));
        if (line.isBlank())
            continue;
        if (rules.size() == maxRules)
            throw FaultScriptError(number, "more than 1000 rules");
        rules.push_back(line.readRule());
    }
    return FaultScript(std::move(rules));
}

} // namespace orb
