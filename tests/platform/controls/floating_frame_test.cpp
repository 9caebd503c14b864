// SPDX-License-Identifier: GPL-3.0-or-later
#include "floating_frame.h"

#include "control_fixture.h"
#include "text_box.h"

#include <QImage>

using namespace orb;

namespace {

class FloatingFrameTest : public FormTest {
protected:
    FloatingFrameTest()
    {
        form.resize(200, 200);
        put(covered).setGeometry(0, 0, 200, 200);
        covered.setBackColor(Qt::green);
        put(frame).setGeometry(20, 20, 100, 100);
        form.show();
    }

    TextBox covered;
    FloatingFrame frame{"Caption"};
};

TEST_F(FloatingFrameTest, TheFrameHidesWhatItCovers)
{
    const QImage picture = form.grab().toImage();
    for (int y = 24; y < 116; ++y)
        for (int x = 24; x < 116; ++x)
            ASSERT_NE(picture.pixelColor(x, y), QColor(Qt::green)) << x << ' ' << y;
}

TEST_F(FloatingFrameTest, TheFrameHasABorderAndShowsItsCaption)
{
    const QImage picture = frame.grab().toImage();
    EXPECT_EQ(picture.pixelColor(50, 0), QColor(0x5a, 0x64, 0x72));
    frame.setCaption("");
    EXPECT_NE(frame.grab().toImage(), picture);
    EXPECT_EQ(frame.caption(), "");
}

TEST_F(FloatingFrameTest, APressOnTheFrameDoesNotReachWhatItCovers)
{
    QMouseEvent down(QEvent::MouseButtonPress, QPointF(50, 50), frame.mapToGlobal(QPointF(50, 50)), Qt::LeftButton,
                     Qt::LeftButton, Qt::NoModifier);
    down.ignore();
    QCoreApplication::sendEvent(&frame, &down);
    EXPECT_TRUE(down.isAccepted());
}

} // namespace
