// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "database_fixture.h"
#include "db_grid.h"
#include "form.h"
#include "recorded_exit.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QLineEdit>

namespace orb {

/// The form is declared before the controls on it, so that they are destroyed first.
class DBGridTest : public DatabaseTest {
protected:
    DBGridTest()
    {
        form.resize(800, 400);
        DBGrid1.setParent(&form);
        DBGrid1.setGeometry(0, 0, 700, 300);
        DataLog.setDatabaseName(path);
        DataLog.setRecordSource("DataMeasure");
        DataLog.setCaption("Data Log");
        DBGrid1.setColumns({{"SeqNo", "SeqNo", 900, false},
                            {"RecTime", "RecTime", 2400, false},
                            {"PVal1", "CH1 A", 1200, true},
                            {"Comment", "", 1400, true}});
        DBGrid1.setDataSource(DataLog);
        form.show();
        form.activateWindow();
        DBGrid1.setFocus();
    }

    void show(int samples)
    {
        if (samples > 0)
            addSamples(samples);
        DataLog.refresh();
        settle();
    }

    static void settle()
    {
        for (int i = 0; i < 5; ++i)
            QCoreApplication::processEvents();
    }

    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier, const QString& text = {})
    {
        QWidget* target = DBGrid1.isEditing() ? editor() : static_cast<QWidget*>(&DBGrid1);
        QKeyEvent event(QEvent::KeyPress, key, modifiers, text);
        QCoreApplication::sendEvent(target, &event);
        settle();
    }

    void type(const QString& text)
    {
        for (const QChar c : text)
            press(Qt::Key_A, Qt::NoModifier, QString(c));
    }

    void click(int row, int column, QEvent::Type kind = QEvent::MouseButtonPress)
    {
        const QPoint at = cell(row, column).center();
        QMouseEvent event(kind, at, DBGrid1.viewport()->mapToGlobal(at), Qt::LeftButton, Qt::LeftButton,
                          Qt::NoModifier);
        QCoreApplication::sendEvent(DBGrid1.viewport(), &event);
        settle();
    }

    QRect cell(int row, int column) const { return DBGrid1.visualRect(DBGrid1.model()->index(row, column)); }
    int firstVisibleRow() const { return DBGrid1.rowAt(0); }
    /// The whole rows that the view has room for.
    int visibleRows() const { return DBGrid1.viewport()->height() / DBGrid1.rowHeight(0); }
    bool isInView(int row) const { return DBGrid1.viewport()->rect().contains(cell(row, 0)); }
    int currentColumn() const { return DBGrid1.currentIndex().column(); }

    QLineEdit* editor() { return DBGrid1.viewport()->findChild<QLineEdit*>(); }
    std::int64_t currentRow() { return DataLog.recordset().position(); }

    RecordedExit processExit;
    orb::Run run{processExit};
    Form form{run};
    DataControl DataLog{workspace};
    DBGrid DBGrid1;
};

} // namespace orb
