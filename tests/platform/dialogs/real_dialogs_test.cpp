// SPDX-License-Identifier: GPL-3.0-or-later
#include "real_dialogs.h"

#include "printing.h"
#include "scripted_dialogs.h"

#include <QApplication>
#include <QComboBox>
#include <QDeadlineTimer>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QGlyphRun>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListView>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPushButton>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTextLayout>
#include <QTimer>

#include <gmock/gmock.h>

using namespace orb;
using testing::ElementsAre;

namespace {

/// The real dialogs, which a queued call answers.
class RealDialogsTest : public testing::Test {
protected:
    RealDialogsTest() { dialogs.CommonDialog1 = {folder.path(), "ORB Data Log文件(*.csv)|*.csv", "", ""}; }

    /// Runs `action` on the dialog of this kind once it is shown. Several run in their order, one for each dialog.
    template <typename Dialog> void when(const std::function<void(Dialog&)>& action)
    {
        queue_.push_back([action] {
            auto* dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
            ASSERT_TRUE(dialog) << "another dialog, or none";
            action(*dialog);
        });
        if (queue_.size() == 1)
            QTimer::singleShot(0, &receiver_, [this] { runNext(); });
    }

    void pressButton(QMessageBox::StandardButton button)
    {
        when<QMessageBox>([button](QMessageBox& box) { box.button(button)->click(); });
    }

    /// Enters a file name and accepts.
    void enterName(const QString& name)
    {
        when<QFileDialog>([name](QFileDialog& dialog) {
            nameEdit(dialog).setText(name);
            static_cast<QDialog&>(dialog).accept();
        });
    }

    void cancel()
    {
        when<QDialog>([](QDialog& dialog) { dialog.reject(); });
    }

    void acceptRefusal(const QString& sentence)
    {
        when<QMessageBox>([sentence](QMessageBox& box) {
            EXPECT_EQ(box.text(), sentence);
            EXPECT_EQ(box.icon(), QMessageBox::Critical);
            box.accept();
        });
    }

    static QLineEdit& nameEdit(const QFileDialog& dialog) { return *dialog.findChild<QLineEdit*>("fileNameEdit"); }

    QString create(const QString& name)
    {
        QFile file(folder.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        return file.fileName();
    }

    /// Presses Enter in the message box.
    void pressEnter()
    {
        when<QMessageBox>([](QMessageBox& box) {
            QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
            QApplication::sendEvent(&box, &enter);
        });
    }

    QTemporaryDir folder;
    RealDialogs dialogs{"ZN ORB Device"};

private:
    /// The next action is queued before this one runs, since this one may open the next dialog.
    void runNext()
    {
        const auto action = queue_.front();
        queue_.erase(queue_.begin());
        if (!queue_.empty())
            QTimer::singleShot(0, &receiver_, [this] { runNext(); });
        action();
    }

    QObject receiver_;
    std::vector<std::function<void()>> queue_;
};

TEST_F(RealDialogsTest, AMessageBoxShowsItsTextAsPlainTextUnderTheApplicationsTitle)
{
    when<QMessageBox>([](QMessageBox& box) {
        EXPECT_EQ(box.text(), "<b>first</b>\nsecond\nthird");
        EXPECT_EQ(box.textFormat(), Qt::PlainText);
        EXPECT_TRUE(box.textInteractionFlags() & Qt::TextSelectableByMouse);
        EXPECT_EQ(box.windowTitle(), "ZN ORB Device");
        EXPECT_EQ(box.standardButtons(), QMessageBox::Ok);
        box.accept();
    });

    EXPECT_EQ(dialogs.message("<b>first</b>\r\nsecond\nthird", Icon::None, Buttons::Ok), Answer::Ok);
}

TEST_F(RealDialogsTest, ANoticeClosesByItself)
{
    when<QMessageBox>([](QMessageBox& box) {
        EXPECT_EQ(box.text(), "running");
        EXPECT_EQ(box.icon(), QMessageBox::Information);
        EXPECT_EQ(box.standardButtons(), QMessageBox::Ok);
    });

    dialogs.notice("running", 20);
}

TEST_F(RealDialogsTest, EachIconIsShown)
{
    const std::vector<std::pair<Icon, QMessageBox::Icon>> icons{{Icon::None, QMessageBox::NoIcon},
                                                                {Icon::Critical, QMessageBox::Critical},
                                                                {Icon::Information, QMessageBox::Information}};
    for (const auto& [icon, shown] : icons) {
        when<QMessageBox>([shown = shown](QMessageBox& box) {
            EXPECT_EQ(box.icon(), shown);
            box.accept();
        });
        dialogs.message("text", icon, Buttons::Ok);
    }
}

TEST_F(RealDialogsTest, AQuestionIsAnsweredByItsButtonAndByEscapeWithNo)
{
    when<QMessageBox>([](QMessageBox& box) {
        EXPECT_EQ(box.standardButtons(), QMessageBox::Yes | QMessageBox::No);
        box.button(QMessageBox::Yes)->click();
    });
    EXPECT_EQ(dialogs.message("?", Icon::None, Buttons::YesNo), Answer::Yes);

    pressButton(QMessageBox::No);
    EXPECT_EQ(dialogs.message("?", Icon::None, Buttons::YesNo), Answer::No);

    when<QMessageBox>([](QMessageBox& box) {
        QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
        QCoreApplication::sendEvent(&box, &escape);
    });
    EXPECT_EQ(dialogs.message("?", Icon::None, Buttons::YesNo), Answer::No);
}

TEST_F(RealDialogsTest, TheOpenDialogShowsTheDirectoryTheTitleAndExactlyTheGivenFilter)
{
    dialogs.CommonDialog1.title = "Open Sequence File";
    dialogs.CommonDialog1.filter = "ORB Command Log文件(*.scp)|*.scp|命令檔 (*.cmd)|*.cmd;*.log|Logs|*.txt";
    when<QFileDialog>([this](QFileDialog& dialog) {
        const auto* types = dialog.findChild<QComboBox*>("fileTypeCombo");
        ASSERT_TRUE(types);
        QStringList shown;
        for (int i = 0; i < types->count(); ++i)
            shown << types->itemText(i);
        EXPECT_THAT(shown, ElementsAre("ORB Command Log文件(*.scp)", "命令檔 (*.cmd)", "Logs"));
        EXPECT_THAT(dialog.nameFilters(),
                    ElementsAre("ORB Command Log文件(*.scp)(*.scp)", "命令檔 (*.cmd)(*.cmd *.log)", "Logs(*.txt)"));
        EXPECT_EQ(dialog.windowTitle(), "Open Sequence File");
        EXPECT_EQ(dialog.directory().path(), folder.path());
        EXPECT_EQ(dialog.acceptMode(), QFileDialog::AcceptOpen);
        EXPECT_EQ(dialog.fileMode(), QFileDialog::ExistingFile);
        dialog.reject();
    });

    EXPECT_FALSE(dialogs.showOpen());
}

TEST_F(RealDialogsTest, TheOpenedFileBecomesTheDialogsName)
{
    const QString path = create("a.csv");
    enterName(path);

    EXPECT_TRUE(dialogs.showOpen());
    EXPECT_EQ(dialogs.CommonDialog1.fileName, path);
}

TEST_F(RealDialogsTest, ACancelLeavesTheNameOfTheLastUse)
{
    dialogs.CommonDialog1.fileName = folder.filePath("last.csv");
    when<QFileDialog>([this](QFileDialog& dialog) {
        EXPECT_THAT(dialog.selectedFiles(), ElementsAre(folder.filePath("last.csv")));
        dialog.selectFile("other.csv");
        dialog.reject();
    });
    EXPECT_FALSE(dialogs.showSave());
    EXPECT_EQ(dialogs.CommonDialog1.fileName, folder.filePath("last.csv"));

    cancel();
    EXPECT_FALSE(dialogs.showOpen());
    EXPECT_EQ(dialogs.CommonDialog1.fileName, folder.filePath("last.csv"));
}

TEST_F(RealDialogsTest, ANameWithoutASuffixGetsThatOfTheFirstPattern)
{
    when<QFileDialog>([](QFileDialog& dialog) {
        EXPECT_EQ(dialog.acceptMode(), QFileDialog::AcceptSave);
        dialog.selectFile("log");
        static_cast<QDialog&>(dialog).accept();
    });
    EXPECT_TRUE(dialogs.showSave());
    EXPECT_EQ(dialogs.CommonDialog1.fileName, folder.filePath("log.csv"));
    EXPECT_FALSE(QFile::exists(folder.filePath("log.csv")));

    dialogs.CommonDialog1.fileName.clear();
    enterName("log.txt");
    EXPECT_TRUE(dialogs.showSave());
    EXPECT_EQ(dialogs.CommonDialog1.fileName, folder.filePath("log.txt"));

    for (const char* any : {"All|*.*", "All|*", ""}) {
        dialogs.CommonDialog1.fileName.clear();
        dialogs.CommonDialog1.filter = any;
        enterName("log");
        EXPECT_TRUE(dialogs.showSave());
        EXPECT_EQ(dialogs.CommonDialog1.fileName, folder.filePath("log")) << any;
    }
}

TEST_F(RealDialogsTest, AnExistingFileIsReplacedOnlyAfterAQuestion)
{
    const QString path = create("log.csv");
    enterName(path);
    pressButton(QMessageBox::Yes);

    EXPECT_TRUE(dialogs.showSave());
    EXPECT_EQ(dialogs.CommonDialog1.fileName, path);
}

TEST_F(RealDialogsTest, AFileThatCannotBeWrittenIsRefusedAndAskedForAgain)
{
    enterName(folder.filePath("none/log.csv"));
    acceptRefusal("There is no such folder:\n" + folder.filePath("none"));
    enterName("/proc/sys/log.csv");
    acceptRefusal("No file can be written in this folder:\n/proc/sys");
    enterName(folder.filePath("log.csv"));

    EXPECT_TRUE(dialogs.showSave());
    EXPECT_EQ(dialogs.CommonDialog1.fileName, folder.filePath("log.csv"));
}

TEST_F(RealDialogsTest, TheDialogStaysOpenWithTheNameThatWasRefused)
{
    const QFileDialog* refused = nullptr;
    when<QFileDialog>([&](QFileDialog& dialog) {
        refused = &dialog;
        nameEdit(dialog).setText("/proc/sys/log.csv");
        static_cast<QDialog&>(dialog).accept();
    });
    acceptRefusal("No file can be written in this folder:\n/proc/sys");
    when<QFileDialog>([&](QFileDialog& dialog) {
        EXPECT_EQ(&dialog, refused);
        EXPECT_TRUE(dialog.isVisible());
        EXPECT_THAT(dialog.selectedFiles(), ElementsAre("/proc/sys/log.csv"));
        dialog.reject();
    });

    EXPECT_FALSE(dialogs.showSave());
    EXPECT_EQ(dialogs.CommonDialog1.fileName, "");
}

TEST_F(RealDialogsTest, ANameThatIsAFolderIsRefused)
{
    QDir(folder.path()).mkdir("log.csv");
    for (const char* name : {"log.csv", "log"}) { // the second gets its suffix
        enterName(name);
        acceptRefusal("This is a folder. Please enter the name of a file:\n" + folder.filePath("log.csv"));
        when<QFileDialog>([this](QFileDialog& dialog) {
            EXPECT_EQ(dialog.directory().path(), folder.path());
            dialog.reject();
        });

        EXPECT_FALSE(dialogs.showSave()) << name;
        EXPECT_EQ(dialogs.CommonDialog1.fileName, "");
    }
}

TEST_F(RealDialogsTest, AFolderTypedWithASlashOrSelectedInTheListIsEntered)
{
    QDir(folder.path()).mkdir("sub");
    const auto enter = [this](const std::function<void(QFileDialog&)>& choose) {
        when<QFileDialog>([choose](QFileDialog& dialog) {
            choose(dialog);
            static_cast<QDialog&>(dialog).accept();
        });
        when<QFileDialog>([this](QFileDialog& dialog) {
            EXPECT_EQ(dialog.directory().path(), folder.filePath("sub"));
            dialog.reject();
        });
        EXPECT_FALSE(dialogs.showSave());
    };

    enter([this](QFileDialog& dialog) { nameEdit(dialog).setText(folder.filePath("sub/")); });
    enter([](QFileDialog& dialog) {
        nameEdit(dialog).setText("log.csv");
        auto* list = dialog.findChild<QListView*>("listView");
        for (const QDeadlineTimer deadline(60'000);
             list->model()->rowCount(list->rootIndex()) == 0 && !deadline.hasExpired();)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 100);
        list->setCurrentIndex(list->model()->index(0, 0, list->rootIndex()));
    });
}

TEST_F(RealDialogsTest, TheDirectoryIsFoundInAnyLetterCaseAndWithABackslash)
{
    QDir(folder.path()).mkdir("Logs");
    dialogs.CommonDialog1.initialDirectory = folder.path() + "\\LOGS\\";
    when<QFileDialog>([this](QFileDialog& dialog) {
        EXPECT_EQ(dialog.directory().path(), folder.filePath("Logs"));
        dialog.reject();
    });

    dialogs.showOpen();
}

TEST_F(RealDialogsTest, TheCancelledPrinterDialogIsNotAccepted)
{
    when<QPrintDialog>([](QPrintDialog& dialog) { dialog.reject(); });
    EXPECT_FALSE(dialogs.showPrinter());
}

/// No printer is there in a test. The documents folder is that of the test program's own home.
class NoPrinterTest : public RealDialogsTest {
protected:
    NoPrinterTest() { documents.removeRecursively(); }

    static QString offered(const QPrintDialog& dialog) { return dialog.findChild<QLineEdit*>("filename")->text(); }

    static void pressPrint(QPrintDialog& dialog)
    {
        dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok)->click();
    }

    QStringList printed() const { return documents.entryList(QDir::Files, QDir::Name); }

    QDir documents{QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation)};
};

TEST_F(NoPrinterTest, TheDialogOffersAPdfFileInTheDocumentsFolderAndPrintPrintsThere)
{
    for (const char* name : {"orb.pdf", "orb 2.pdf"}) {
        when<QPrintDialog>([&](QPrintDialog& dialog) {
            EXPECT_EQ(offered(dialog), documents.filePath(name));
            pressPrint(dialog);
        });
        EXPECT_TRUE(dialogs.showPrinter());
        dialogs.printer().endDoc();
        EXPECT_GT(QFileInfo(documents.filePath(name)).size(), 0) << name;
    }
    EXPECT_THAT(printed(), ElementsAre("orb 2.pdf", "orb.pdf"));
}

TEST_F(NoPrinterTest, AfterACancelTheDocumentIsTheFileThatWasOffered)
{
    for (int i = 0; i < 2; ++i) {
        when<QPrintDialog>([](QPrintDialog& dialog) { dialog.reject(); });
        EXPECT_FALSE(dialogs.showPrinter());
        dialogs.printer().endDoc();
    }
    EXPECT_THAT(printed(), ElementsAre("orb 2.pdf", "orb.pdf"));
}

TEST_F(NoPrinterTest, AFurtherDocumentWithoutADialogIsAnotherFile)
{
    when<QPrintDialog>([](QPrintDialog& dialog) { dialog.reject(); });
    dialogs.showPrinter();
    dialogs.printer().endDoc();
    dialogs.printer().endDoc();

    EXPECT_THAT(printed(), ElementsAre("orb 2.pdf", "orb.pdf"));
}

TEST_F(NoPrinterTest, WhereTheDocumentsFolderCannotBeWrittenTheHomeFolderTakesTheFile)
{
    ASSERT_TRUE(QDir().mkpath(QFileInfo(documents.path()).path()));
    QFile::remove(documents.path());
    ASSERT_TRUE(QFile(documents.path()).open(QIODevice::WriteOnly)); // a file where the folder should be
    when<QPrintDialog>([](QPrintDialog& dialog) { dialog.reject(); });

    dialogs.showPrinter();
    dialogs.printer().endDoc();

    EXPECT_TRUE(QFile::remove(QDir::home().filePath("orb.pdf")));
    EXPECT_TRUE(QFile::remove(documents.path()));
}

TEST_F(RealDialogsTest, ThePrinterIsTheSameAtEachUse)
{
    EXPECT_EQ(&dialogs.printer(), &dialogs.printer());
}

class RealProcessExitTest : public testing::Test {
protected:
    RealProcessExitTest() { GTEST_FLAG_SET(death_test_style, "threadsafe"); }

    ScriptedDialogs dialogs;
    RealProcessExit processExit{dialogs};
};

TEST_F(RealProcessExitTest, AReportIsShownAndPrintedBeforeTheProcessEndsWithAFailure)
{
    dialogs.onMessage = [](const Shown& shown) {
        std::fprintf(stderr, "shown %s", shown == Shown{"Overflow", Icon::Critical} ? "as critical" : "otherwise");
    };

    EXPECT_EXIT(processExit.report("Overflow"), testing::ExitedWithCode(EXIT_FAILURE), "Overflow\nshown as critical");
}

TEST_F(RealProcessExitTest, AnExitIsASuccess)
{
    EXPECT_EXIT(processExit.exit(), testing::ExitedWithCode(EXIT_SUCCESS), "");
}

TEST_F(RealDialogsTest, AQuestionStandsOnNoWithTheIconItWasGivenAndBothButtons)
{
    when<QMessageBox>([](QMessageBox& box) {
        EXPECT_EQ(box.defaultButton(), box.button(QMessageBox::No));
        EXPECT_EQ(box.standardButtons(), QMessageBox::Yes | QMessageBox::No);
        EXPECT_EQ(box.icon(), QMessageBox::NoIcon);
        box.reject();
    });
    pressEnter();
    EXPECT_EQ(dialogs.message("Delete?", Icon::None, Buttons::YesNo), Answer::No);
    EXPECT_EQ(dialogs.message("Delete?", Icon::Critical, Buttons::YesNo), Answer::No) << "Enter";
}

TEST_F(RealDialogsTest, ADocumentThatNoProgramTakesIsReported)
{
    EXPECT_FALSE(dialogs.showDocument(folder.filePath("manual.html"))) << "without a desktop nothing opens it";
}

TEST_F(RealDialogsTest, TheChineseWordsOfTheFileDialogsAreDrawnWithTheirOwnGlyphs)
{
    QTextLayout words(QString::fromUtf8("圖檔 命令檔 文件"), QApplication::font());
    words.beginLayout();
    words.createLine();
    words.endLayout();
    for (const QGlyphRun& run : words.glyphRuns())
        EXPECT_FALSE(run.glyphIndexes().contains(0U)) << run.rawFont().familyName().toStdString();
}

} // namespace
