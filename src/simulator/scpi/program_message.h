// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string_view>
#include <vector>

namespace orb {

/// One node of a header: its mnemonic as it came (with the asterisk of a common command), and the number behind it.
struct HeaderNode {
    std::string_view mnemonic;
    std::optional<int> suffix;
};

/// One parameter as it came. The views point into the message.
struct Parameter {
    enum class Kind { Number, Word, String, Block };

    Kind kind = Kind::Word;
    /// A word or a number as it came; a string without its quotation marks, doubled ones inside kept; the bytes of a
    /// block.
    std::string_view text;
    double number = 0;
    /// The unit behind a number, as it came.
    std::string_view suffix;
};

/// One command or query out of a message. The views point into the message.
struct ProgramUnit {
    /// The whole unit without white space around it.
    std::string_view text;
    std::vector<HeaderNode> nodes;
    std::vector<Parameter> parameters;
    bool query = false;
    /// The header stands by itself: it begins with a colon or is a common command.
    bool absolute = false;
    bool common = false;
};

/// Cuts a message into its units at the semicolons that stand outside of strings and blocks. Units of nothing but
/// white space are passed over.
std::vector<std::string_view> unitsOf(std::string_view message);

/// Reads one unit, which must not be empty. Throws `CommandFailure` (errors -100 to -199) where it is none.
ProgramUnit readUnit(std::string_view unit);

/// Where the definite-length block that begins at `position` (a number sign) ends: the place behind its last byte,
/// which may lie behind the end of `text`. Nothing where no such block begins there; the end of `text` where its
/// length can't be read yet.
std::optional<std::size_t> endOfBlock(std::string_view text, std::size_t position);

} // namespace orb
