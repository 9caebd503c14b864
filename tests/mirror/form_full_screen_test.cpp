// SPDX-License-Identifier: GPL-3.0-or-later
#include "form_full_screen.h"

#include "form_test.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QScreen>

using namespace orb;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class FormFullScreenTest : public FormTest {
protected:
    void pressKey(int key)
    {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
        QCoreApplication::sendEvent(&fullScreen, &event);
    }

    FormFullScreen fullScreen{run};
};

TEST_F(FormFullScreenTest, TheFormHasNoBorderAndCoversTheScreenFromItsTopLeftCorner)
{
    const QSize screen = QGuiApplication::primaryScreen()->size();
    EXPECT_FALSE(fullScreen.isVisible());
    fullScreen.show();
    EXPECT_TRUE(fullScreen.isWindow());
    EXPECT_TRUE(fullScreen.windowFlags() & Qt::FramelessWindowHint);
    EXPECT_EQ(fullScreen.windowState(), Qt::WindowNoState) << "its size is its own";
    EXPECT_EQ(fullScreen.geometry(), QRect(QPoint(0, 0), screen));
    EXPECT_EQ(fullScreen.Image1.geometry(), QRect(QPoint(0, 0), screen));
}

TEST_F(FormFullScreenTest, EscapeHidesTheFormAndKeepsItsPicture)
{
    fullScreen.show();
    fullScreen.Image1.setPixmap(QPixmap(3, 3));
    pressKey(Qt::Key_Escape);
    EXPECT_FALSE(fullScreen.isVisible());
    EXPECT_EQ(fullScreen.Image1.pixmap().size(), QSize(3, 3));
}

TEST_F(FormFullScreenTest, EachArrowKeyEndsTheProgram)
{
    for (const int key : {Qt::Key_Left, Qt::Key_Up, Qt::Key_Right, Qt::Key_Down}) {
        RecordedExit exit;
        orb::Run ownRun(exit);
        FormFullScreen other(ownRun);
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
        QCoreApplication::sendEvent(&other, &event);
        EXPECT_THAT(exit.reports, ElementsAre("Run-time error '91':\n\nObject variable not set"));
    }
}

TEST_F(FormFullScreenTest, AllOtherKeysDoNothing)
{
    fullScreen.show();
    for (const int key : {Qt::Key_Return, Qt::Key_Space, Qt::Key_A, Qt::Key_PageUp, Qt::Key_F11})
        pressKey(key);
    EXPECT_TRUE(fullScreen.isVisible());
    EXPECT_THAT(processExit.reports, IsEmpty());
}

TEST_F(FormFullScreenTest, TheFormDoesNotKeepTheProcessAliveAfterTheMainForm)
{
    EXPECT_FALSE(fullScreen.testAttribute(Qt::WA_QuitOnClose));
}

} // namespace
