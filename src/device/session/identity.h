// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace orb {

/// The instrument as it names itself in its answer to *IDN?.
struct Identity {
    QString maker;
    QString model;
    QString serialNumber;
    QString firmware;

    bool operator==(const Identity&) const = default;
};

/// Reads an answer to *IDN?: four fields or more between commas, the maker and the model filled, printable text, 256
/// bytes at most. What follows the fourth comma belongs to the firmware. Nothing for any other answer.
std::optional<Identity> readIdentity(const QByteArray& answer);

/// The bytes of an answer as text: UTF-8 where they are that, else each byte a character.
QString answerText(const QByteArray& bytes);

/// Bytes from a remote end, fit to be shown: one line, no control characters, cut at `longest` characters.
QString shownText(const QByteArray& bytes, qsizetype longest = 60);

/// The fields of a list answer; a closing comma adds none.
QList<QByteArray> listFields(const QByteArray& answer);

} // namespace orb
