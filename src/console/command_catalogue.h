// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMap>
#include <QString>

namespace orb {

/// One row of the catalogue of commands.
class clsCommands {
public:
    const QString& Command() const { return command_; }
    const QString& Desc() const { return desc_; }
    const QString& Format() const { return format_; }
    bool QueryCmd() const { return queryCmd_; }

    // An empty text changes nothing: a field can't be emptied again.
    void setCommand(const QString& command) { keep(command_, command); }
    void setDesc(const QString& desc) { keep(desc_, desc); }
    void setFormat(const QString& format) { keep(format_, format); }
    /// Throws `RuntimeFailure` 13, always: it begins with a conversion of the empty text. Nothing calls it.
    void setQueryCmd(bool isQuery);

private:
    static void keep(QString& field, const QString& text)
    {
        if (!text.isEmpty())
            field = text;
    }

    QString command_;
    QString desc_;
    QString format_;
    bool queryCmd_ = false;
};

/// The rows of the catalogue, each under the key of its list entry. Keys differ without regard to case.
class CommandCollection {
public:
    /// Throws `RuntimeFailure` 457 for a key that exists already.
    void add(const clsCommands& row, const QString& key);
    /// Throws `RuntimeFailure` 5 for a key that does not exist.
    const clsCommands& item(const QString& key) const;
    qsizetype count() const { return rows_.size(); }

private:
    QMap<QString, clsCommands> rows_;
};

/// A line of the catalogue file: the entry that it makes in the list, empty for none, and its row. The line is cut at
/// every "^"; one field is a bare command, three are command, description and format, any other count is malformed and
/// makes the whole line the entry of an empty row.
struct CatalogueLine {
    QString entry;
    clsCommands row;
};
CatalogueLine catalogueLine(const QString& line);

} // namespace orb
