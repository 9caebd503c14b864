// SPDX-License-Identifier: GPL-3.0-or-later
#include "form_full_screen.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QScreen>

#include <utility>

namespace orb {

namespace {

enum KeyCode : int { Escape = 27, Left = 37, Up = 38, Right = 39, Down = 40 };

int keyCode(int key)
{
    switch (key) {
    case Qt::Key_Escape:
        return Escape;
    case Qt::Key_Left:
        return Left;
    case Qt::Key_Up:
        return Up;
    case Qt::Key_Right:
        return Right;
    case Qt::Key_Down:
        return Down;
    default:
        return 0;
    }
}

} // namespace

FormFullScreen::FormFullScreen(Run& run) : Form(run)
{
    setWindowFlags(Qt::Window | Qt::FramelessWindowHint);
    setAttribute(Qt::WA_QuitOnClose, false); // the process ends with the main form, also while this one is shown
    onUnload = [this] { unload(); };
    FormLoad();
}

FormFullScreen::~FormFullScreen()
{
    unload();
}

/// Covers the screen by its own size: a window that the desktop maximizes would keep clear of the desktop's bars.
void FormFullScreen::FormLoad()
{
    const QSize display = QGuiApplication::primaryScreen()->size();
    move(0, 0);
    resize(display);
    hScreenDC = getScreenContext();
    Image1.move(0, 0);
    Image1.resize(display);
}

void FormFullScreen::keyPressEvent(QKeyEvent* event)
{
    enter([this, code = keyCode(event->key())] { KeyDown(code); });
}

void FormFullScreen::KeyDown(int code)
{
    switch (code) {
    case Escape:
        hide();
        break;
    case Left:
    case Up:
    case Right:
    case Down:
        // They would move a picture, but nothing assigns it, and asking for its width ends the program.
        throw RuntimeFailure(failure::ObjectVariableNotSet);
    default:
        break;
    }
}

void FormFullScreen::unload()
{
    deleteScreenContext(std::exchange(hScreenDC, nullptr));
}

} // namespace orb
