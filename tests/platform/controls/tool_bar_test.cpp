// SPDX-License-Identifier: GPL-3.0-or-later
#include "control_fixture.h"
#include "tool_bar.h"

#include <QLayout>

using namespace orb;

namespace {

TEST(ToolBarTest, TheButtonsAreInOneRowWithPicturesOfOneSize)
{
    PictureButton first("Open"), second("Save");
    const std::unique_ptr<QWidget> bar(toolBarOf({&first, &second}));

    ASSERT_EQ(bar->layout()->count(), 3);
    EXPECT_EQ(bar->layout()->itemAt(0)->widget(), &first);
    EXPECT_EQ(bar->layout()->itemAt(1)->widget(), &second);
    EXPECT_TRUE(bar->layout()->itemAt(2)->spacerItem()) << "on a wide page the buttons stay at its left";
    EXPECT_EQ(first.iconSize(), QSize(32, 32));
    EXPECT_EQ(second.iconSize(), QSize(32, 32));
    EXPECT_LT(first.font().pointSizeF(), bar->font().pointSizeF());
    first.setParent(nullptr);
    second.setParent(nullptr);
}

} // namespace
