// SPDX-License-Identifier: GPL-3.0-or-later
// The real program, operated by itself: a test starts it as a process of its own and reads what it prints.
#include "form_orb.h"
#include "program.h"

#include <QApplication>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPrintDialog>
#include <QTimer>
#include <QWidget>

#include <cstdio>
#include <deque>

using namespace orb;

namespace {

void print(const char* line)
{
    std::puts(line);
    std::fflush(stdout);
}

/// Minimizes the window and puts another one in front, then prints that the program has started, and whenever the window
/// becomes the active one again.
class FrontWatch final : public QObject {
public:
    explicit FrontWatch(FormORB& form) : form_(form)
    {
        QTimer::singleShot(0, &form, [this] {
            form_.setWindowState(Qt::WindowMinimized);
            other_.show();
            other_.activateWindow();
        });
        other_.installEventFilter(this);
        form.installEventFilter(this);
    }

    bool eventFilter(QObject* object, QEvent* event) override
    {
        if (event->type() == QEvent::WindowActivate && object == &other_) {
            printNotice();
            print("started");
        }
        if (event->type() == QEvent::WindowActivate && object == &form_ && !form_.isMinimized() && other_.isVisible())
            print("in front");
        return QObject::eventFilter(object, event);
    }

private:
    /// Prints what the Connect page says about unsaved rows.
    void printNotice() const
    {
        for (const QLabel* label : form_.findChildren<QLabel*>())
            if (!label->isHidden() && label->text().contains(QStringLiteral("not saved")))
                print(qPrintable(label->text()));
    }

    FormORB& form_;
    QWidget other_;
};

/// Acts on the dialogs as they come up, one step for each.
class Operator final : public QObject {
public:
    template <typename Dialog> void when(const std::function<void(Dialog&)>& act)
    {
        steps_.push_back([act] {
            auto* dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
            const bool isUp = dialog != nullptr && dialog->isVisible();
            if (isUp)
                act(*dialog);
            return isUp;
        });
    }

    /// Presses the button once the program has started, then takes the steps.
    void press(PictureButton& button)
    {
        QTimer::singleShot(0, this, [this, &button] {
            poll();
            button.click();
            print("goes on");
        });
    }

private:
    void poll()
    {
        constexpr int pollMs = 20;
        QTimer::singleShot(pollMs, this, [this] { // before the step, which may open the next dialog
            if (!steps_.empty())
                poll();
            if (const auto step = steps_.empty() ? nullptr : steps_.front(); step) {
                steps_.pop_front();
                if (!step())
                    steps_.push_front(step);
            }
        });
    }

    std::deque<std::function<bool()>> steps_;
};

/// Prints the text of the next message box and answers it.
void readMessage(Operator& user)
{
    user.when<QMessageBox>([](QMessageBox& box) {
        print(qPrintable(box.text().replace(QLatin1Char('\n'), QLatin1Char(' '))));
        box.accept();
    });
}

/// Prints the graph, and cancels the printer dialog.
void printGraph(FormORB& form, Operator& user)
{
    user.when<QPrintDialog>([](QPrintDialog& dialog) {
        print(qPrintable(dialog.findChild<QLineEdit*>(QStringLiteral("filename"))->text()));
        dialog.reject();
    });
    user.press(form.frmDatalog.logPrint);
}

QLineEdit& nameEdit(const QFileDialog& dialog)
{
    return *dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
}

/// Exports a log of one row to `path`, which is refused, then gives up.
void exportLog(FormORB& form, Operator& user, const QString& path)
{
    form.dbMain.execute(QStringLiteral("insert into DataMeasure (SeqNo,RecTime,PVal1,SVal1) "
                                       "values(0,'2024/01/31 10:15:00',1.5,12.5)"));
    form.frmDatalog.lLogRecNo = 1;
    form.frmDatalog.iLogChannels = 1;
    user.when<QFileDialog>([path](QFileDialog& dialog) {
        nameEdit(dialog).setText(path);
        static_cast<QDialog&>(dialog).accept();
    });
    readMessage(user);
    user.when<QFileDialog>([](QFileDialog& dialog) {
        print(qPrintable(nameEdit(dialog).text()));
        dialog.reject();
    });
    readMessage(user);
    user.press(form.frmDatalog.cmdExport);
}

} // namespace

/// With no argument the program comes to the front when another start asks for it; "print", or "export" and a path, has
/// the operator press that button.
int main(int argc, char** argv)
{
    std::optional<FrontWatch> frontWatch;
    Operator user;
    return runProgram(argc, argv, [&](FormORB& form) {
        const QStringList arguments = QCoreApplication::arguments();
        if (arguments.value(1) == QStringLiteral("print"))
            printGraph(form, user);
        else if (arguments.value(1) == QStringLiteral("export"))
            exportLog(form, user, arguments.value(2));
        else
            frontWatch.emplace(form);
    });
}
