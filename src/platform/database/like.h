// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <optional>
#include <vector>

namespace orb {

/// The pattern behind the operator `like`: `*` is any run of characters, `?` any one, `#` any digit, `[a-z0]` one of
/// those listed, `[!a-z0]` one that is not listed, everything else itself. `[]` is nothing at all. In a list `*`, `?`,
/// `#` and `[` are themselves, and so is a `-` at either end. Letter case makes no difference. A wildcard is matched
/// literally as a list of its own: `[*]`.
class LikePattern {
public:
    /// Nothing where a list is not closed or a range runs backwards.
    static std::optional<LikePattern> parse(QStringView pattern);

    bool matches(QStringView text) const;

private:
    struct Range {
        char32_t first;
        char32_t last;
    };
    /// One place of the pattern: any run, or one character out of `ranges` (or not out of them).
    struct Place {
        bool isRun = false;
        bool negated = false;
        std::vector<Range> ranges;
        bool takes(char32_t c) const;
    };

    bool addList(const std::u32string& list);
    void addPlace(char32_t c);

    std::vector<Place> places_;
};

} // namespace orb
