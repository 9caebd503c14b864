// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "command_page.h"
#include "page_test.h"

namespace orb {

/// The command page on a form, beside an instrument that is connected and answers queries with "ok".
class CommandPageTest : public PageTest {
protected:
    CommandPageTest()
    {
        page.setParent(&form);
        instrument.connected = true;
        instrument.onCommand = [](const QString& line) {
            return line.contains('?') ? QStringLiteral("ok") : QString();
        };
        optDispDev.setValue(true);
    }

    void write(const QString& name, const QByteArray& content) const
    {
        QFile file(application.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        file.write(content);
    }

    /// Loads a catalogue of that content.
    void catalogue(const QByteArray& content)
    {
        write("orbCommands.dat", content);
        run.enter([this] { page.InitListCommand(); });
    }

    QString labels() const
    {
        return page.lblCommand[0].caption() + " | " + page.lblCommand[1].caption() + " | " +
               page.lblCommand[2].caption();
    }

    Form form{run};
    OptionButton optDispDev;
    CommandPage page{clock, dialogs, paths, instrument, optDispDev};
};

} // namespace orb
