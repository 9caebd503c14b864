// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "data_log_page.h"
#include "page_test.h"

namespace orb {

/// The data log page on a form, set up as after the start, beside an instrument of four channels that answers at once.
class DataLogPageTest : public PageTest {
protected:
    DataLogPageTest()
    {
        page.setParent(&form);
        instrument.connected = true;
        instrument.channelCount = 4;
        instrument.onCommand = [this](const QString& query) { return query == ":FETC:ALLC?" ? currents : voltages; };
        dbMain = wsMain.openDatabase(databasePath());
        run.enter([this] { page.InitDataLog(); });
        EXPECT_THAT(processExit.reports, testing::IsEmpty());
    }

    /// Records from now on; the operator stops in the yield before the last of so many samples.
    void record(int samples)
    {
        const qint64 lastYield = clock.elapsed() + 1000 * (samples - 1);
        clock.at(lastYield, [this] { press(page.logStop); });
        press(page.logStart);
    }

    /// What the grid shows in a column, row by row.
    QStringList gridColumn(const QString& caption)
    {
        QStringList cells;
        for (int column = 0; column < page.DBGrid1.columnCount(); ++column)
            if (page.DBGrid1.column(column).caption == caption)
                for (std::int64_t row = 0; row < page.DataLog.rowCount(); ++row)
                    cells << page.DBGrid1.cellText(row, column);
        return cells;
    }

    /// What a clear has to take back: all cursors shown, all boxes enabled and checked.
    void showCursorsAndEnableBoxes()
    {
        for (int plot = 1; plot <= 16; ++plot) {
            page.graphLog.cursor(plot).setVisible(true);
            page.cbPlot[static_cast<std::size_t>(plot - 1)].setEnabled(true);
            page.cbPlot[static_cast<std::size_t>(plot - 1)].setValue(CheckBox::Checked);
        }
    }

    /// The boxes that are enabled, the boxes that are checked, the plots and the cursors that are shown, by number.
    QString boxesPlotsAndCursors()
    {
        std::array<QStringList, 4> numbers;
        for (int plot = 1; plot <= 16; ++plot) {
            const CheckBox& box = page.cbPlot[static_cast<std::size_t>(plot - 1)];
            const std::array<bool, 4> states{box.enabled(), box.value() == CheckBox::Checked,
                                             page.graphLog.plot(plot).visible(), page.graphLog.cursor(plot).visible()};
            for (std::size_t i = 0; i < states.size(); ++i)
                if (states[i])
                    numbers[i] << QString::number(plot);
        }
        return QStringLiteral("enabled [%1] checked [%2] plots [%3] cursors [%4]")
            .arg(numbers[0].join(' '), numbers[1].join(' '), numbers[2].join(' '), numbers[3].join(' '));
    }

    /// The y values of a plot.
    std::vector<double> plotted(int plot)
    {
        std::vector<double> values;
        for (std::size_t i = 0; i < page.graphLog.plot(plot).pointCount(); ++i)
            values.push_back(page.graphLog.plot(plot).point(i).y);
        return values;
    }

    QString currents = "1.1000,2.1000,3.1000,4.1000,";
    QString voltages = "12.1000,12.2000,12.3000,12.4000,";
    Form form{run};
    Workspace wsMain{[this] { return clock.now(); }};
    Database dbMain;
    DataLogPage page{clock, dialogs, paths, instrument, wsMain, dbMain};
};

} // namespace orb
