// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "line_tap.h"

#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <string>

namespace orb {

/// orb-simulator as a process of its own, for a client that is not ours. The client is connected through a tap, so that
/// a test sees what it asked.
class ForeignClientTest : public testing::Test {
protected:
    struct Outcome {
        int exitCode = -1; ///< -1 where it did not end by itself
        std::string output;
        std::string errors;
    };

    void SetUp() override;
    ~ForeignClientTest() override;

    /// Runs the event loop until the condition holds. False when that takes beyond a minute.
    static bool waitUntil(const std::function<bool()>& condition);
    /// Runs a program to its end and ends it where that does not come.
    Outcome run(const QString& program, const QStringList& arguments);
    /// Starts a program that runs until the end of the test.
    void startBeside(QProcess& process, const QString& program, const QStringList& arguments);
    /// The answer of the instrument to a message of the test itself, over a link of its own.
    std::string ask(const QByteArray& message) const;
    QString portText() const { return QString::number(tap->port()); }

    QTemporaryDir folder;
    std::optional<LineTap> tap;

private:
    QProcess simulator_;
    quint16 port_ = 0;
};

} // namespace orb
