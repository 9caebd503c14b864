// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "journal.h"
#include "run.h"

#include <QRegularExpression>

#include <vector>

namespace orb {

/// The end of a run as a fact that a test can read.
class RecordedExit final : public ProcessExit {
public:
    /// Writes reports and exits into `journal`, which must outlive this object.
    explicit RecordedExit(Journal* journal = nullptr) : journal_(journal) {}

    /// "Run-time error '6':", an empty line, "Overflow", one for each report.
    std::vector<QString> reports;
    int exits = 0;

    void report(const QString& text) override
    {
        static const QRegularExpression head(QStringLiteral("^Run-time error '(\\d+)':\n\n"));
        reports.push_back(text);
        write(QStringLiteral("report ") + QString(text).replace(head, QStringLiteral("\\1: ")));
    }
    void exit() override
    {
        ++exits;
        write(QStringLiteral("exit"));
    }

private:
    void write(const QString& line)
    {
        if (journal_)
            journal_->write(line);
    }

    Journal* journal_;
};

} // namespace orb
