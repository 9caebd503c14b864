// SPDX-License-Identifier: GPL-3.0-or-later
#include "service_tour.h"

#include "form_orb.h"
#include "service_controls.h"
#include "tour.h"
#include "user_interface.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

namespace orb {

namespace {

const QPoint keyF2(122, 309);
const QPoint keyF1(56, 309);

void mouse(QWidget& widget, QEvent::Type type, const QPoint& at)
{
    const bool isDown = type == QEvent::MouseButtonPress;
    QMouseEvent event(type, at, widget.mapToGlobal(at), type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton,
                      isDown ? Qt::LeftButton : Qt::NoButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&widget, &event);
}

/// A place on the panel picture, given as on one of its design size.
QPoint onPanel(const FormORB& form, const QPoint& at)
{
    const QSize size = form.fraDisplay.Image2.size();
    return {at.x() * size.width() / 380, at.y() * size.height() / 612};
}

void pressKey(FormORB& form, const QPoint& design)
{
    const QPoint at = onPanel(form, design);
    mouse(form.fraDisplay.Image2, QEvent::MouseButtonPress, at);
    mouse(form.fraDisplay.Image2, QEvent::MouseButtonRelease, at);
}

QImage shown(const FormORB& form)
{
    return form.fraDisplay.Image1.pixmap().toImage();
}

void require(bool holds, const char* what)
{
    if (!holds)
        throw TourFailure(QString::fromLatin1(what));
}

void mirrorSteps(Tour& tour, FormORB& form)
{
    tour.then(QStringLiteral("shows the controls for service"), [&form] { showServiceControls(form); });
    tour.then(
        QStringLiteral("goes to the page Display"), [&form] { return ui::find(form, QStringLiteral("Display")); },
        [&form] { ui::press(form, QStringLiteral("Display")); });
    tour.then(
        QStringLiteral("starts the mirror"), [&form] { return form.fraDisplay.dispPlay.isEnabled(); },
        [&form] { form.fraDisplay.dispPlay.click(); });
    tour.then(
        QStringLiteral("waits for the first picture"), [&form] { return !form.fraDisplay.Picture1.tag().isEmpty(); },
        [&form] { require(shown(form).size() == QSize(320, 240), "the picture is not that of the screen"); });
    tour.picture(form, QStringLiteral("display.png"));
}

/// The picture after a key comes with the press, without a wait for the mirror.
void keySteps(Tour& tour, FormORB& form)
{
    tour.then(QStringLiteral("presses F2 on the panel and sees the other page"), [&form] {
        const QImage before = shown(form);
        pressKey(form, keyF2);
        require(shown(form) != before, "the picture did not change");
    });
    tour.picture(form, QStringLiteral("display_all.png"));
    tour.then(QStringLiteral("stops the mirror"), [&form] { form.fraDisplay.dispStop.click(); });
    tour.then(QStringLiteral("presses F1, which starts it again"), [&form] {
        require(!form.fraDisplay.TimerDisplay.enabled(), "the mirror runs after its stop");
        pressKey(form, keyF1);
        require(form.fraDisplay.TimerDisplay.enabled(), "the mirror does not run");
        require(!form.fraDisplay.dispStop.isEnabled(), "the buttons have changed");
    });
    tour.then(QStringLiteral("starts it by its button"), [&form] { form.fraDisplay.dispPlay.click(); });
}

/// The panel around a key with the pointer that the form shows there.
QPixmap withPointer(FormORB& form, const QPoint& at)
{
    constexpr QSize around(120, 90);
    QPixmap picture = form.fraDisplay.Image2.grab(QRect(at - QPoint(60, 45), around));
    QPainter painter(&picture);
    const QCursor pointer = form.cursor();
    painter.drawPixmap(QPoint(60, 45) - pointer.hotSpot(), pointer.pixmap());
    return picture;
}

void pointerSteps(Tour& tour, FormORB& form)
{
    struct Place {
        const char* picture;
        QPoint at;
    };
    for (const Place& place :
         {Place{"pointer_key.png", {173, 407}}, Place{"pointer_knob_left.png", {251, 432}},
          Place{"pointer_knob_right.png", {318, 432}}, Place{"pointer_knob_press.png", {285, 432}}})
        tour.then(QStringLiteral("takes the picture ") + QLatin1String(place.picture), [&tour, &form, place] {
            const QPoint at = onPanel(form, place.at);
            mouse(form.fraDisplay.Image2, QEvent::MouseMove, at);
            require(form.cursor().shape() == Qt::BitmapCursor, "the pointer is not that of a key");
            require(withPointer(form, at).save(tour.path(QLatin1String(place.picture))), "can't write the picture");
        });
}

void saveSteps(Tour& tour, FormORB& form)
{
    const QString name = QStringLiteral("screen.bmp");
    tour.then(QStringLiteral("saves the picture"), [&tour, &form, name] {
        QFile::remove(tour.path(name)); // of an earlier tour: the dialog would ask
        form.fraDisplay.dispSave.click();
    });
    tour.chooseFile(name);
    tour.then(
        QStringLiteral("reads the file"), [&tour, name] { return QFileInfo(tour.path(name)).size() > 0; },
        [&tour, name] { require(QImage(tour.path(name)).size() == QSize(320, 240), "the file is not the picture"); });
}

void pressEscape(FormORB& form)
{
    QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
    QCoreApplication::sendEvent(&*form.fraDisplay.oFullScreen, &escape);
}

/// The task list brings the main form to the front; a desktop does the same when the full screen is hidden.
void leaveSteps(Tour& tour, FormORB& form, const QString& way, const std::function<void()>& leave)
{
    tour.then(QStringLiteral("goes full screen"), [&form] { form.fraDisplay.dispEnlarge.click(); });
    tour.then(
        QStringLiteral("waits for a picture there"),
        [&form] {
            const auto& other = form.fraDisplay.oFullScreen;
            return other && other->isVisible() && !other->Image1.pixmap().isNull();
        },
        [&tour, &form] {
            require(form.fraDisplay.oFullScreen->grab().save(tour.path(QStringLiteral("full_screen.png"))),
                    "can't write the picture");
        });
    tour.then(
        QStringLiteral("waits until it is the active window"),
        [&form] { return form.fraDisplay.oFullScreen->isActiveWindow() && form.bFullScrMode; }, leave);
    tour.then(
        way, [&form] { return !form.bFullScrMode; },
        [&form] {
            if (form.fraDisplay.oFullScreen->isVisible())
                pressEscape(form);
        });
}

void fullScreenSteps(Tour& tour, FormORB& form)
{
    leaveSteps(tour, form, QStringLiteral("is back after Escape"), [&form] {
        pressEscape(form);
        form.activateWindow();
    });
    leaveSteps(tour, form, QStringLiteral("is back by the task list"), [&form] { form.activateWindow(); });
    tour.then(QStringLiteral("stops the mirror again"), [&form] { form.fraDisplay.dispStop.click(); });
}

void aboutSteps(Tour& tour, FormORB& form)
{
    tour.then(QStringLiteral("opens the about box"), [&form] { ui::press(form, QStringLiteral("About")); });
    tour.then(
        QStringLiteral("takes the picture about.png"), [] { return QApplication::activeModalWidget() != nullptr; },
        [&tour] {
            QWidget& box = *QApplication::activeModalWidget();
            require(box.grab().save(tour.path(QStringLiteral("about.png"))), "can't write the picture");
            ui::press(box, QStringLiteral("OK"));
        });
}

} // namespace

void serviceSteps(Tour& tour, FormORB& form)
{
    mirrorSteps(tour, form);
    keySteps(tour, form);
    pointerSteps(tour, form);
    saveSteps(tour, form);
    fullScreenSteps(tour, form);
    aboutSteps(tour, form);
}

} // namespace orb
