// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "page_test.h"
#include "prog_file_fields.h"
#include "program_page.h"
#include "record_file.h"
#include "workspace.h"

#include <QCoreApplication>
#include <QFile>
#include <QMouseEvent>

namespace orb {

/// The program page on a form, set up as after the start, beside an instrument that is connected.
class ProgramPageTest : public PageTest {
protected:
    ProgramPageTest()
    {
        page.setParent(&form);
        form.setVisible(true);
        page.setVisible(true);
        instrument.connected = true;
        dbMain = wsMain.openDatabase(databasePath());
        journal.abbreviate(QStringLiteral("\\"), QStringLiteral("/"));
        for (const QString& file : {staging::program, staging::programUpload})
            QFile::remove(realPath(file));
        createStagingFolder();
        logic([this] { page.InitProgramPage(); });
        journal.clear();
        EXPECT_THAT(processExit.reports, testing::IsEmpty());
    }

    static void createStagingFolder()
    {
        if (!folderExists(staging::folder))
            createFolder(staging::folder);
    }

    /// Runs page logic as an event does.
    void logic(const std::function<void()>& work) { run.enter(work); }

    MemoryCell& cell(int n) { return page.txtMemSetting.at(static_cast<std::size_t>(n)); }
    CheckBox& timeBox(int i) { return page.chkMemSet.at(static_cast<std::size_t>(i)); }
    TextBox& time(int i) { return page.txtProgMem.at(static_cast<std::size_t>(i)); }
    ComboBox& chain(int i) { return page.cmbProgChain.at(static_cast<std::size_t>(i)); }

    /// The operator presses a mouse button on a cell.
    void mouseDown(int n, Qt::MouseButton button = Qt::LeftButton)
    {
        QMouseEvent down(QEvent::MouseButtonPress, QPointF(3, 3), cell(n).mapToGlobal(QPointF(3, 3)), button, button,
                         Qt::NoModifier);
        QCoreApplication::sendEvent(&cell(n), &down);
    }

    /// The operator opens the cell, sets what a step needs and presses OK.
    void fill(int n, const QString& memory, const QString& mode = "AUTO", const QString& channels = "0")
    {
        mouseDown(n);
        page.cmbMemory.setText(memory);
        page.cmbMemRun.setText(mode);
        page.txtMemCH.setText(channels);
        press(page.cmdMemSetOK);
    }

    /// Text, tag, tool tip, back color, fore color, font size and alignment of a cell.
    QString cellState(int n)
    {
        const MemoryCell& c = cell(n);
        return QStringLiteral("%1|%2|%3|%4|%5|%6|%7")
            .arg(c.text(), c.tag(), c.toolTip(), c.backColor().name(), c.foreColor().name())
            .arg(c.fontSize() == 12 ? "12" : "as it was", c.alignment() == Qt::AlignCenter ? "centered" : "as it was");
    }

    QStringList tags()
    {
        QStringList all;
        for (const MemoryCell& c : page.txtMemSetting)
            all << c.tag();
        return all;
    }

    /// The list indexes of the chain boxes, the start last.
    QString links() const
    {
        QStringList indexes;
        for (const ComboBox& box : page.cmbProgChain)
            indexes << QString::number(box.listIndex());
        return indexes.join(' ');
    }

    /// What the controls of the frame hold, in the order of a cell's tag.
    QString controls() const
    {
        QStringList fields{page.cmbMemoryProg.text(), page.cmbMemorySequence.text(), page.cmbMemRun.text(),
                           page.txtMemCH.text()};
        for (std::size_t i = 0; i < 4; ++i)
            fields << QString::number(page.chkMemSet[i].value()) << page.txtProgMem[i].text();
        fields << page.cmbMemory.text();
        return fields.join(',');
    }

    /// The channels whose boxes are checked.
    QString shorted() const
    {
        QStringList channels;
        for (const CheckBox& box : page.chkShortCH)
            if (box.value() == CheckBox::Checked)
                channels << box.caption();
        return channels.join(' ');
    }

    /// What fires inside the frame, with what the control holds when its handler begins.
    void watchHandlers()
    {
        const auto before = [this](std::function<void()>& handler, const QString& name, const auto& valueOf) {
            handler = [this, handler, name, valueOf] {
                journal.write(QStringLiteral("fires %1 %2").arg(name, valueOf()));
                handler();
            };
        };
        for (std::size_t i = 0; i < 4; ++i) {
            before(page.chkMemSet[i].onClick, QStringLiteral("chkMemSet%1").arg(i),
                   [this, i] { return QString::number(page.chkMemSet[i].value()); });
            before(page.txtProgMem[i].onChange, QStringLiteral("txtProgMem%1").arg(i),
                   [this, i] { return page.txtProgMem[i].text(); });
        }
        for (std::size_t i = 0; i < 8; ++i)
            before(page.chkShortCH[i].onClick, QStringLiteral("chkShortCH%1").arg(i),
                   [this, i] { return QString::number(page.chkShortCH[i].value()) + " of " + page.txtMemCH.text(); });
    }

    /// Writes each cell, each chain box and the frame's controls into the journal when they change.
    void watchCellsAndControls()
    {
        for (int n = 0; n < 120; ++n)
            journal.watchText(&cell(n), [this, n] { return QStringLiteral("cell %1 %2").arg(n).arg(cell(n).tag()); });
        for (int i = 0; i < 13; ++i)
            journal.watchText(&chain(i),
                              [this, i] { return QStringLiteral("chain %1 %2").arg(i).arg(chain(i).text()); });
        journal.watchText(&page.frameMemorySetting,
                          [this] { return "controls " + page.frameMemorySetting.tag() + ": " + controls(); });
    }

    /// The bytes of a staging file, empty without one.
    static QByteArray stagingBytes(const QString& literal)
    {
        QFile file(realPath(literal));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    /// The bytes of a record with its checksum.
    static QByteArray finished(ProgFileRecord record)
    {
        EXPECT_TRUE(finishImage(record));
        const auto image = imageOf(record);
        return {reinterpret_cast<const char*>(image.data()), static_cast<qsizetype>(image.size())};
    }

    /// Writes a file into the application directory. Its path.
    QString write(const QByteArray& bytes, const QString& name = "test.b") const
    {
        QFile file(application.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        file.write(bytes);
        return file.fileName();
    }

    /// The operator opens a file of these bytes.
    void openFile(const QByteArray& bytes)
    {
        dialogs.files = {write(bytes)};
        press(page.progOpen);
    }

    /// The instrument hands this file over from now on.
    void serve(const QByteArray& bytes)
    {
        instrument.onFetchProgramFile = [bytes] {
            QFile file(realPath(staging::program));
            ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
            file.write(bytes);
        };
    }

    Form form{run};
    Workspace wsMain{[this] { return clock.now(); }};
    Database dbMain;
    QString sPendingProgFile;
    DataFileDialog dialog{&form};
    ProgramPage page{clock, dialogs, paths, instrument, dbMain, dialog, sPendingProgFile};

    const QString askWithoutLink = "message \"Device is not Connected, Continue?\" none YesNo";
};

} // namespace orb
