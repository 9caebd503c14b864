// SPDX-License-Identifier: GPL-3.0-or-later
#include "like.h"

#include <QList>

#include <algorithm>

namespace orb {

namespace {

std::u32string folded(QStringView text)
{
    std::u32string characters;
    const QList<uint> codes = text.toUcs4();
    characters.reserve(static_cast<std::size_t>(codes.size()));
    for (const uint code : codes)
        characters += QChar::toCaseFolded(static_cast<char32_t>(code));
    return characters;
}

} // namespace

bool LikePattern::Place::takes(char32_t c) const
{
    const bool listed = std::any_of(ranges.begin(), ranges.end(),
                                    [c](const Range& range) { return range.first <= c && c <= range.last; });
    return listed != negated;
}

void LikePattern::addPlace(char32_t c)
{
    switch (c) {
    case U'*':
        places_.push_back({true, false, {}});
        break;
    case U'?':
        places_.push_back({false, true, {}});
        break;
    case U'#':
        places_.push_back({false, false, {{U'0', U'9'}}});
        break;
    default:
        places_.push_back({false, false, {{c, c}}});
    }
}

/// `list` is what stands between the brackets. A "!" alone is itself.
bool LikePattern::addList(const std::u32string& list)
{
    if (list.empty())
        return true;
    Place place;
    place.negated = list.size() > 1 && list.front() == U'!';
    for (std::size_t i = place.negated ? 1 : 0; i < list.size(); ++i) {
        const bool isRange = i + 2 < list.size() && list[i + 1] == U'-';
        place.ranges.push_back({list[i], isRange ? list[i + 2] : list[i]});
        if (place.ranges.back().first > place.ranges.back().last)
            return false;
        i += isRange ? 2 : 0;
    }
    places_.push_back(place);
    return true;
}

std::optional<LikePattern> LikePattern::parse(QStringView pattern)
{
    LikePattern result;
    const std::u32string text = folded(pattern);
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != U'[') {
            result.addPlace(text[i]);
            continue;
        }
        const std::size_t end = text.find(U']', i);
        if (end == std::u32string::npos || !result.addList(text.substr(i + 1, end - i - 1)))
            return std::nullopt;
        i = end;
    }
    return result;
}

/// Where a place fails, the last run takes one character more; runs before it need never change.
bool LikePattern::matches(QStringView text) const
{
    const std::u32string characters = folded(text);
    std::size_t place = 0;
    std::size_t at = 0;
    std::size_t behindRun = 0; // the place behind the last run, 0 before any
    std::size_t runEnd = 0;
    while (at < characters.size()) {
        if (place < places_.size() && places_[place].isRun) {
            behindRun = ++place;
            runEnd = at;
        } else if (place < places_.size() && places_[place].takes(characters[at])) {
            ++place;
            ++at;
        } else if (behindRun > 0) {
            place = behindRun;
            at = ++runEnd;
        } else {
            return false;
        }
    }
    return std::all_of(places_.begin() + static_cast<std::ptrdiff_t>(place), places_.end(),
                       [](const Place& rest) { return rest.isRun; });
}

} // namespace orb
