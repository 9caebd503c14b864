// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "recordset.h"

#include <optional>
#include <string>

namespace orb {

/// The highest text of a column in the order of the database's max(), which compares bytes: "9.5" is above "10.2". Null
/// does not count.
class TextMaximum {
public:
    void append(const FieldValue& value)
    {
        if (value.type == FieldType::Text && (!highest_ || value.text > *highest_))
            highest_ = value.text;
    }

    /// The number of the highest text; nothing where there is none. Throws `RuntimeFailure` 13 where it is no number.
    std::optional<double> number() const
    {
        if (!highest_)
            return std::nullopt;
        return numberOf({.type = FieldType::Text, .text = *highest_}, 0);
    }

private:
    std::optional<std::string> highest_;
};

} // namespace orb
