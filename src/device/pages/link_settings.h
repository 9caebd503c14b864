// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

namespace orb {

/// What the control remembers from one run to the next: the link used last and the recent addresses, as resource names.
/// It stands in a small file among the user's settings, docs/connecting.md. Whatever stands in the file is read as
/// text of no authority; a file that can't be read is as good as none, and one that can't be written is done without.
class LinkSettings {
public:
    static constexpr qsizetype mostRecent = 8;
    static constexpr qsizetype longestName = 300;

    /// Reads `file`.
    explicit LinkSettings(const QString& file);
    /// Where the settings stand in the running program.
    static QString userFile();

    /// The link used last; empty on a first start.
    const QString& last() const { return last_; }
    /// The links used lately, the latest first, none twice.
    const QStringList& recent() const { return recent_; }
    /// `resourceName` was used now. Written at once.
    void use(const QString& resourceName);

private:
    void remember(const QString& resourceName);

    QString file_;
    QString last_;
    QStringList recent_;
};

} // namespace orb
