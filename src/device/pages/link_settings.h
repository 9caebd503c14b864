// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QHash>
#include <QString>
#include <QStringList>

namespace orb {

/// The link used last and the recent addresses, as resource names. They are kept in a small file among the user's
/// settings, see docs/connecting.md. A file that can't be read counts as empty; one that can't be written is ignored.
class LinkSettings {
public:
    static constexpr qsizetype mostRecent = 8;
    static constexpr qsizetype longestName = 300;

    /// Reads `file`.
    explicit LinkSettings(const QString& file);
    /// The file of the running program.
    static QString userFile();

    /// The link used last; empty on a first start.
    const QString& last() const { return last_; }
    /// The links used lately, the latest first, none twice.
    const QStringList& recent() const { return recent_; }
    /// The choices that a link was used with; empty for one that is not among the recent ones.
    QStringList choices(const QString& resourceName) const { return choices_.value(resourceName); }
    /// `resourceName` was used now, with these choices of its kind's options. Writes the file.
    void use(const QString& resourceName, const QStringList& choices);

private:
    void remember(const QString& resourceName);

    QString file_;
    QString last_;
    QStringList recent_;
    QHash<QString, QStringList> choices_;
};

} // namespace orb
