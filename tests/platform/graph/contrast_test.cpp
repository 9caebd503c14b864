// SPDX-License-Identifier: GPL-3.0-or-later
#include "contrast.h"

#include <gmock/gmock.h>

namespace orb {
namespace {

TEST(ContrastTest, ALineTooDarkOrTooLightForItsGroundGetsAnEdge)
{
    const QColor ground(12, 15, 20);
    for (const QColor& line :
         {QColor(0, 255, 0), QColor(255, 255, 0), QColor(255, 255, 255), QColor(255, 0, 0), QColor(128, 128, 0)})
        EXPECT_FALSE(edgeFor(line, ground).isValid()) << line.name().toStdString();
    for (const QColor& line : {QColor(0, 0, 255), QColor(128, 0, 128), QColor(128, 0, 0)}) {
        const QColor edge = edgeFor(line, ground);
        ASSERT_TRUE(edge.isValid()) << line.name().toStdString();
        EXPECT_GE(contrast(edge, ground), 3) << line.name().toStdString();
    }
    EXPECT_TRUE(edgeFor(Qt::white, Qt::white).isValid());
    EXPECT_FALSE(edgeFor(Qt::black, Qt::white).isValid());
    EXPECT_DOUBLE_EQ(contrast(Qt::black, Qt::white), 21);
}

TEST(ContrastTest, TextCanBeReadOnAnyGround)
{
    for (int grey = 0; grey <= 255; grey += 5)
        EXPECT_GE(contrast(textOn(QColor(grey, grey, grey)), QColor(grey, grey, grey)), 3.5) << grey;
}

} // namespace
} // namespace orb
