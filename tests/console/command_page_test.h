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
        run.enter([this] { page.RefreshCommandPage(); });
        journal.clear();
    }

    QString file(const char* name) const { return application.filePath(QLatin1String(name)); }

    void write(const char* name, const QByteArray& content) const
    {
        QFile out(file(name));
        ASSERT_TRUE(out.open(QIODevice::WriteOnly | QIODevice::Truncate));
        out.write(content);
    }

    /// Loads a catalogue of that content.
    void catalogue(const QByteArray& content)
    {
        write("orbCommands.dat", content);
        run.enter([this] { page.InitListCommand(); });
    }

    void addLines(const QStringList& lines) { page.lstCmdPool.addItems(lines); }

    /// Makes the run repeat, and the operator do this while it sleeps after its first line.
    void repeatAnd(const std::function<void()>& action)
    {
        press(page.chkRepeat);
        clock.at(clock.elapsed() + 1, action);
    }

    /// The click of `cmdGo`, which is hidden.
    void go()
    {
        run.enter([this] { page.cmdGoClick(); });
    }

    QString labels() const
    {
        return page.lblCommand[0].caption() + " | " + page.lblCommand[1].caption() + " | " +
               page.lblCommand[2].caption();
    }

    QString log() const { return page.txtExecLog.text(); }

    Form form{run};
    OptionButton optDispDev;
    CommandPage page{clock, dialogs, paths, instrument, optDispDev};
};

} // namespace orb
