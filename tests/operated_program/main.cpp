// SPDX-License-Identifier: GPL-3.0-or-later
// The real program, operated by itself: a test starts it as a process of its own and reads what it prints.
#include "form_orb.h"
#include "program.h"

#include <QTimer>
#include <QWidget>

#include <cstdio>

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
        if (event->type() == QEvent::WindowActivate && object == &other_)
            print("started");
        if (event->type() == QEvent::WindowActivate && object == &form_ && !form_.isMinimized() && other_.isVisible())
            print("in front");
        return QObject::eventFilter(object, event);
    }

private:
    FormORB& form_;
    QWidget other_;
};

} // namespace

int main(int argc, char** argv)
{
    std::optional<FrontWatch> frontWatch;
    return runProgram(argc, argv, [&](FormORB& form) { frontWatch.emplace(form); });
}
