// SPDX-License-Identifier: GPL-3.0-or-later
#include "program_test.h"

#include <QApplication>

namespace orb {

ProgramTest::ProgramTest()
{
    line.onLine = [this](const QByteArray& message) {
        journal.write(QStringLiteral("send ") + QString::fromLatin1(message));
        if (const std::string answer = simulated.execute(message.toStdString()); !answer.empty())
            line.say(QByteArray::fromStdString(answer) + '\n');
    };
    run.enter([this] { form().FormLoad(); });
    form().show();
}

std::vector<LinkKind> ProgramTest::kinds()
{
    return {{.title = QStringLiteral("Scripted"),
             .linkType = 7,
             .example = QStringLiteral("none"),
             .resourceName = [](const QString&) { return std::optional(QStringLiteral("SCRIPTED")); },
             .typed = [](const QString& name) { return name; },
             .remoteName = [](const QString& name) { return name; },
             .transport = [this](const QString&,
                                 const QStringList&) { return std::make_unique<ScriptedTransport>(line); }}};
}

void ProgramTest::connect()
{
    constexpr int noticedMs = 1300;
    press(form().pageConnect);
    press(CORB().connectPage.cmdConnect);
    clock.advance(noticedMs);
    ASSERT_TRUE(CORB().IsConnected());
    journal.clear();
}

} // namespace orb
