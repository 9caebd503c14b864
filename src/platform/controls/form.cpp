// SPDX-License-Identifier: GPL-3.0-or-later
#include "form.h"

#include <QCloseEvent>
#include <QEventLoop>

namespace orb {

void enter(const QWidget& source, const std::function<void()>& handler) noexcept
{
    if (const auto* form = dynamic_cast<const Form*>(source.window()))
        form->run().enter(handler);
}

Form::Form(Run& run, QWidget* parent) : Control<QWidget>(parent), run_(run) {}

bool Form::event(QEvent* event)
{
    const bool handled = QWidget::event(event);
    if (event->type() == QEvent::WindowActivate)
        enter(onActivate);
    return handled;
}

void Form::showModal()
{
    class HideWatch final : public QObject {
    public:
        QEventLoop loop;

        bool eventFilter(QObject*, QEvent* event) override
        {
            if (event->type() == QEvent::Hide && !event->spontaneous()) // a minimized window is still shown
                loop.quit();
            return false;
        }
    };
    HideWatch watch;
    installEventFilter(&watch);
    setWindowModality(Qt::ApplicationModal);
    show();
    watch.loop.exec();
}

void Form::closeEvent(QCloseEvent* event)
{
    enter(onUnload);
    event->accept();
}

void Form::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    enter(onResize);
}

} // namespace orb
