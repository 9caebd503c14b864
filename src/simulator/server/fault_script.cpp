// SPDX-License-Identifier: GPL-3.0-or-later
#include "fault_script.h"

#include "ascii.h"

#include <algorithm>

namespace orb {

namespace {

/// Without white space around it and without a leading colon.
std::string_view withoutColon(std::string_view message)
{
    message = ascii::trimmed(message);
    if (message.starts_with(':'))
        message.remove_prefix(1);
    return message;
}

/// Whether `pattern` matches the whole of `text`, in any letter case. An asterisk matches any bytes, or none.
bool matches(std::string_view pattern, std::string_view text)
{
    std::size_t p = 0;
    std::size_t t = 0;
    std::size_t star = std::string_view::npos; // the last asterisk, and where the text that it matches ends
    std::size_t starEnd = 0;
    while (t < text.size()) {
        if (p < pattern.size() && pattern[p] == '*') {
            star = p++;
            starEnd = t;
        } else if (p < pattern.size() && ascii::upper(pattern[p]) == ascii::upper(text[t])) {
            ++p;
            ++t;
        } else if (star != std::string_view::npos) {
            p = star + 1;
            t = ++starEnd;
        } else {
            return false;
        }
    }
    return pattern.find_first_not_of('*', p) == std::string_view::npos;
}

/// Counts an occurrence for every rule that applies, and returns the fault of the first that is due.
template <typename Predicate> Fault firstDue(std::vector<FaultRule>& rules, Predicate applies)
{
    const FaultRule* due = nullptr;
    for (FaultRule& rule : rules) {
        if (!applies(rule))
            continue;
        ++rule.seen;
        if (due == nullptr && rule.seen >= rule.first && rule.seen <= rule.last)
            due = &rule;
    }
    return due == nullptr ? Fault{} : due->fault;
}

} // namespace

FaultScriptError::FaultScriptError(int line, const std::string& reason)
    : std::runtime_error("line " + std::to_string(line) + ": " + reason), line_(line)
{}

Fault FaultScript::onConnect()
{
    return firstDue(rules_, [](const FaultRule& rule) { return rule.pattern.empty(); });
}

Fault FaultScript::onMessage(std::string_view message)
{
    return firstDue(rules_, [&](const FaultRule& rule) {
        return !rule.pattern.empty() && matches(withoutColon(rule.pattern), withoutColon(message));
    });
}

} // namespace orb
