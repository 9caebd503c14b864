// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string_view>
#include <vector>

namespace orb {

/// One node of a header: its mnemonic as received (with the asterisk of a common command), and the number after it.
struct HeaderNode {
    std::string_view mnemonic;
    std::optional<int> suffix;
};

/// One parameter as received. The views point into the message.
struct Parameter {
    enum class Kind { Number, Word, String, Block };

    Kind kind = Kind::Word;
    /// A word or a number as received; a string without its quotation marks, doubled ones inside kept; the bytes of a
    /// block.
    std::string_view text;
    double number = 0;
    /// The unit after a number, as received.
    std::string_view suffix;
};

/// One command or query of a message. The views point into the message.
struct MessageUnit {
    /// The whole unit without white space around it.
    std::string_view text;
    std::vector<HeaderNode> nodes;
    std::vector<Parameter> parameters;
    bool query = false;
    /// The header does not continue the one before it: it begins with a colon or is a common command.
    bool absolute = false;
    bool common = false;
};

/// Splits a message into its units at the semicolons outside of strings and blocks. Units of white space are skipped.
std::vector<std::string_view> unitsOf(std::string_view message);

/// Reads one unit, which must not be empty. Throws `CommandFailure` (errors -100 to -199) for a malformed one.
MessageUnit readUnit(std::string_view unit);

/// The place after the last byte of the definite-length block that begins at `position` (a number sign); it may be
/// beyond the end of `text`. Nothing where no such block begins there; the end of `text` where its length is not
/// complete.
std::optional<std::size_t> endOfBlock(std::string_view text, std::size_t position);

} // namespace orb
