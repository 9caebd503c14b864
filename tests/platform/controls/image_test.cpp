// SPDX-License-Identifier: GPL-3.0-or-later
#include "control_fixture.h"
#include "image.h"

#include <QMouseEvent>

using namespace orb;
using testing::ElementsAre;

namespace {

class ImageTest : public FormTest {};

TEST_F(ImageTest, AMousePressOnAnImageIsGivenInTwips)
{
    std::vector<float> at;
    Image image;
    put(image).resizeTwips(300, 300);
    image.onMouseDown = [&](float x, float y) { at = {x, y}; };
    QMouseEvent down(QEvent::MouseButtonPress, QPointF(7, 3), QPointF(7, 3), Qt::RightButton, Qt::RightButton,
                     Qt::NoModifier);

    QCoreApplication::sendEvent(&image, &down);

    EXPECT_THAT(at, ElementsAre(105.0F, 45.0F));
}

} // namespace
